#pragma once
// The diary progress report, opened from the diary's list: the conditions a
// client must meet and the reference shown beside each name, kept in the
// settings between runs. The report reads the diary screen, which stays open
// beneath it: its list, its title, its tax year and its event descriptions.

#include "reports/diary_report.h"

#include <QDialog>

#include <array>

class QFrame;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QStackedLayout;

namespace quillon {

class frmDiaryReport : public QDialog {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmDiaryReport";
    static constexpr int kReferences = 4;

    explicit frmDiaryReport(QWidget* parent = nullptr);

    QLineEdit* txtPartner = nullptr;
    QLineEdit* txtManager = nullptr;
    QLineEdit* txtAssistant = nullptr;
    QLineEdit* txtOffice = nullptr;
    std::array<QRadioButton*, kReferences> op3Reference{};
    QPushButton* cm3Print = nullptr;
    QPushButton* cm3Close = nullptr;
    QPushButton* cm3Help = nullptr;
    QFrame* picHelp = nullptr;

    void cm3Print_Click();
    void cm3Help_Click();

    // The report as the diary screen and this form stand now.
    DiaryReport Report() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void done(int result) override;

private:
    QWidget* ConditionsFrame();
    QWidget* ReferenceFrame();
    QFrame* HelpPanel();
    void Form_Load();

    QStackedLayout* pages_ = nullptr;
    bool loading_ = true;
    bool placed_ = false;
};

}  // namespace quillon
