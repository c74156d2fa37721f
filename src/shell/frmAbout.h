#pragma once
// The About box: the program's title and version, and a way to the platform's
// system information program.

#include <QDialog>

class QLabel;
class QPushButton;

namespace quillon {

class frmAbout : public QDialog {
    Q_OBJECT
public:
    static constexpr const char* kFormName = "frmAbout";

    explicit frmAbout(QWidget* parent = nullptr);

    QLabel* lblTitle = nullptr;
    QLabel* lblVersion = nullptr;
    QLabel* lblSystem = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdSysInfo = nullptr;

    void cmdSysInfo_Click();
};

// The system information program of this platform, or empty when it has none.
QString SystemInformationProgram();

}  // namespace quillon
