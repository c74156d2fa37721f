#pragma once
// The sixteen database slots, each a title and a folder. The selected slot's
// folder cannot be changed here; its title can.

#include <QDialog>

#include <array>

class QLineEdit;
class QPushButton;

namespace quillon {

class frmFolderManager : public QDialog {
    Q_OBJECT
public:
    static constexpr const char* kFormName = "frmFolderManager";

    explicit frmFolderManager(QWidget* parent = nullptr);

    std::array<QLineEdit*, 17> txtName{};  // 1 to 16
    std::array<QLineEdit*, 17> txtPath{};  // 1 to 16
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

    void cmdOK_Click();

private:
    void Form_Load();
};

// A folder as typed, without surrounding blanks or trailing separators.
QString CleanedFolder(const QString& typed);

}  // namespace quillon
