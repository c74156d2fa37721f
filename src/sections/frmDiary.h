#pragma once
// The diary: for each of four tax years, twenty standard events whose
// descriptions all clients share, with the client's date of each, and twenty
// events of the client's own. With the list on, the filter box beside each
// standard event selects the clients for whom it has (Y) or hasn't (N) been
// dated, and the list can be printed, merged or reported on.

#include "sections/diary_clearing.h"
#include "sections/section_screen_gui.h"

#include <array>

class QLabel;
class QListWidget;
class QTabWidget;

namespace quillon {

class ClickLabel;
class CommonTexts;

class frmDiary : public SectionScreen {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmDiary";

    explicit frmDiary(QWidget* parent = nullptr);

    QTabWidget* tabEvents = nullptr;
    QLineEdit* txtDYear = nullptr;
    std::array<ClickLabel*, kDiaryEvents> lblDFilter{};
    QLineEdit* txtTitle = nullptr;
    QListWidget* lstClients = nullptr;
    QLabel* lblListCount = nullptr;
    QPushButton* cm3DList = nullptr;
    QPushButton* cm3Clear = nullptr;
    QPushButton* cm3ClearAll = nullptr;
    QPushButton* cm3Print = nullptr;
    QPushButton* cm3Merge = nullptr;
    QPushButton* cm3Report = nullptr;

    void ReadEvents();
    void WriteTaxYear();
    void UpdateList();
    bool ListShown() const;

    void cm3DList_Click();
    void lblDFilter_Click(int index);
    void cm3Clear_Click();
    void cm3ClearAll_Click();
    void cm3Print_Click();
    void cm3Merge_Click();
    void cm3Report_Click();

protected:
    QString CaptionDetail() const override;
    void ReadMore() override;
    void PageLeaving() override;
    void PageEntered() override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    QWidget* EventsPage(bool standard);
    QWidget* TaxYearControls();
    QWidget* ListPanel();
    QLayout* Commands();
    void ShowList(bool shown);
    void EnableListCommands(bool listed);
    QString Client() const;
    // The 60 boxes of the client's own: the dates and the client events.
    std::vector<QLineEdit*> ClientBoxes() const;
    bool Confirmed(const QString& question, const QString& title) const;
    void ClearAllRows();

    CommonTexts* events_ = nullptr;
    std::vector<QLineEdit*> standardDates_;
};

}  // namespace quillon
