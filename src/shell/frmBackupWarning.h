#pragma once
// The backup reminder, shown in place of the main window every tenth start.

#include <QDialog>

class QCheckBox;
class QGridLayout;
class QLabel;
class QPushButton;

namespace quillon {

class frmBackupWarning : public QDialog {
    Q_OBJECT
public:
    static constexpr const char* kFormName = "frmBackupWarning";

    explicit frmBackupWarning(QWidget* parent = nullptr);

    // The reminder's text for the selected slot's client database.
    static QString WarningText();

    QLabel* lblWarning = nullptr;
    QCheckBox* chkDisable = nullptr;
    QPushButton* cmdBackup = nullptr;
    QPushButton* cmdContinue = nullptr;
    QPushButton* cmdExit = nullptr;

    void cmdBackup_Click();
    void cmdContinue_Click();
    void cmdExit_Click();

private:
    void Form_Load();
    void storeChoice();
    void unloadMe();
};

}  // namespace quillon
