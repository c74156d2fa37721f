#pragma once
// Asks before the clients of a first-version database are added to the
// selected client database.

#include <QDialog>

class QPlainTextEdit;
class QPushButton;

namespace quillon {

class frmTransfer : public QDialog {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmTransfer";
    explicit frmTransfer(QWidget* parent = nullptr);

    QPlainTextEdit* txtInfo = nullptr;
    QPushButton* cm3Transfer = nullptr;
    QPushButton* cm3Cancel = nullptr;

    void cm3Transfer_Click();
};

}  // namespace quillon
