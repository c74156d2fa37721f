#pragma once
// Deletes the current client: its row in each client table, in one
// transaction. A table without a row of the client doesn't stop it.

#include <QDialog>

class QLabel;
class QPushButton;

namespace quillon {

class frmDeleteClient : public QDialog {
    Q_OBJECT
public:
    static constexpr const char* kFormName = "frmDeleteClient";

    explicit frmDeleteClient(QWidget* parent = nullptr);

    QLabel* lblName = nullptr;
    QLabel* lbl = nullptr;
    QPushButton* cm3Yes = nullptr;
    QPushButton* cm3No = nullptr;

    void cm3Yes_Click();

protected:
    void showEvent(QShowEvent* event) override;

private:
    bool placed_ = false;
};

}  // namespace quillon
