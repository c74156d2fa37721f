#pragma once
// What the three indicator screens share. Each shows ten yes/no indicators of
// one client's row in its section's table, ticked and saved at the click, with
// descriptions that all clients share in the `Common` row of the same name;
// the descriptions are saved together, after one question, when the screen
// closes. The filter box beside each indicator selects the clients for whom it
// is ticked (Y) or not (N), and the list can be printed or merged.
//
// Indicator i is the field `Indicator i` of the row, with the description
// `Text i` of `Common`.
//
// A screen is one row of this table: which table and page, whose client it
// opens on, and whether the first indicator is a fixed field of its own.

#include "data/client_rows.h"

#include <QDialog>
#include <QString>

#include <array>

class QCheckBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QPushButton;
class QTimer;

namespace quillon {

class ClickLabel;

constexpr int kIndicators = 10;

struct IndicatorRow {
    const char* form;
    // The caption until a client is chosen, and the title of a missing record's message.
    const char* title;
    // The table, "%1" standing for the page; also the name of its `Common` row.
    const char* table;
    // The page of the section, or nullptr.
    const quint8* page;
    // The client that the section screen shows, which the list opens on.
    const QString* shownFirst;
    const QString* shownLast;
    // The field of indicator 1 when it is one of the row's own, with that
    // fixed description; nullptr when it is `Indicator 1` with `Text 1`.
    const char* firstField;
    // Whether the list can be printed as address labels.
    bool labels;
};

class IndicatorScreen : public QDialog {
    Q_OBJECT

public:
    // Ticks and filters are indexed 1 to 10; a description box is nullptr for
    // an indicator with a fixed description.
    std::array<QCheckBox*, kIndicators> chkTick{};
    std::array<QLineEdit*, kIndicators> txtIndicator{};
    std::array<ClickLabel*, kIndicators> lblFilter{};
    QLabel* lblIndicator = nullptr;
    QLineEdit* txtTitle = nullptr;
    QListWidget* lstClients = nullptr;
    QLabel* lblCount = nullptr;
    QPushButton* cm3Labels = nullptr;
    QPushButton* cm3Merge = nullptr;
    QPushButton* cm3Print = nullptr;
    QPushButton* cm3Help = nullptr;
    QPushButton* cm3Close = nullptr;
    QTimer* tmrUnload = nullptr;

    bool Loading = true;
    bool Reading = false;

    void Form_Activate();
    void UpdateList();
    void SelectClient();
    void lblFilter_Click(int index);
    void chkTick_Click(int index);
    void cm3Print_Click();
    void cm3Merge_Click();
    void cm3Labels_Click();
    // True when the unload is cancelled; this screen never refuses.
    bool Form_Unload();

    // The table shown and the name of its `Common` row.
    QString TableName() const;
    // The client chosen in the list, whose ticks are shown.
    const ClientName& Selected() const { return selected_; }

protected:
    IndicatorScreen(const IndicatorRow& row, QWidget* parent);

    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void done(int result) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* IndicatorGrid();
    QWidget* ListPanel();
    QLayout* CommandRow();
    QString FieldOf(int index) const;
    bool Described(int index) const { return txtIndicator[size_t(index - 1)] != nullptr; }
    void ReadDescriptions();
    bool DescriptionsChanged() const;
    void WriteDescriptions();
    void ShowTicks(const std::array<bool, kIndicators>& ticks);
    void CurrentItemChanged(QListWidgetItem* item);
    QString Module() const { return QString::fromLatin1(row_.form); }

    const IndicatorRow& row_;
    ClientName selected_;
    std::array<QString, kIndicators> images_;
    bool activated_ = false;
    bool unloaded_ = false;
    bool listing_ = false;
};

}  // namespace quillon
