#pragma once
// The dividends of listed shares in one of four tax years: every share of the
// chosen year's file, up to four payments of the one selected, each with its
// number of shares, date and amount in pence. A payment's date must fall in
// the tax year: the screen is not left while one doesn't. The year-end
// transfer starts next year's file from a year's shares.

#include "reference/reference_screen_gui.h"

#include <array>

class QLabel;
class QLineEdit;
class QRadioButton;

namespace quillon {

class frmDividends : public ReferenceScreen {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmDividends";
    static constexpr int kPayments = 4;
    static constexpr int kYears = 4;

    explicit frmDividends(QWidget* parent = nullptr);

    QListWidget* lstShares = nullptr;
    // op3TaxYear(0) to (3): 2011-12 to 2014-15.
    std::array<QRadioButton*, kYears> op3TaxYear{};
    QLabel* lblCompany = nullptr;
    QLabel* lblStock = nullptr;
    QLabel* lblFID = nullptr;
    // Indexes 1 to 4; 0 unused.
    std::array<QLineEdit*, kPayments + 1> txtNumber{};
    std::array<QLineEdit*, kPayments + 1> txtDate{};
    std::array<QLineEdit*, kPayments + 1> txtDividend{};
    QPushButton* cm3Transfer = nullptr;

    // Fills the list from the chosen year's file.
    void OpenDDB();
    // Writes the boxes to the share the labels name.
    void SaveShare();
    // Saves, then shows the share of the selected entry.
    void SelectShare();
    // True when a date is outside the tax year: the user has been told and
    // the focus is back in that box.
    bool DatesOutsideYear();
    void op3TaxYear_Click(int index);
    void cm3Save_Click();
    void cm3New_Click();
    void cm3Rename_Click();
    void cm3Delete_Click();
    void cm3Transfer_Click();
    void tmrNew_Timer();
    void tmrRename_Timer();

protected:
    void ListClick() override { SelectShare(); }
    void ClearShown() override;
    void Form_Activate() override;
    bool Form_Deactivate() override;
    bool Form_Unload() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* BuildYears();
    QWidget* BuildDetails();
    void Form_Load();
    void FurnishSlotFolder();
    void ChooseYear();
    void ShowVersion(const QString& procedure);
    bool ShareShown() const;
    void ShowSelectionOfShownShare();

    QLineEdit* toldBox_ = nullptr;
};

}  // namespace quillon
