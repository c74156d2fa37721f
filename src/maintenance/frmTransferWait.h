#pragma once
// Shows the transfer of a first-version database as it goes, with a cancel
// that stops it at the next record; its timer does the work.

#include <QDialog>

class QLabel;
class QProgressBar;
class QPushButton;
class QTimer;

namespace quillon {

struct TransferFiles;

class frmTransferWait : public QDialog {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmTransferWait";
    explicit frmTransferWait(QWidget* parent = nullptr);

    QLabel* lblSourceFile = nullptr;
    QLabel* lblDestFile = nullptr;
    QLabel* lblTable = nullptr;
    QLabel* lblRecord = nullptr;
    QProgressBar* gauProgress = nullptr;
    QPushButton* cm3Cancel = nullptr;
    QTimer* tmrGo = nullptr;

    void tmrGo_Timer();
    void cm3Cancel_Click();

protected:
    void showEvent(QShowEvent* event) override;

private:
    bool ShowProgress(const QString& table, int row, int rows);
    // True when the transfer ran to its end; throws what fails.
    bool Transfer(const TransferFiles& files);
    void Finish();

    bool cancelled_ = false;
};

}  // namespace quillon
