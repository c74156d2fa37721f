#pragma once
// The print dialog of the preview: which pages, a manual duplex pass, how many
// copies. Opened over the preview, whose page order it follows.

#include <QDialog>

#include <array>

class QEventLoop;
class QGroupBox;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTimer;

namespace quillon {

class frmVSPrint;
class VSPrinterControl;

class frmVSPrintDialog : public QDialog {
    Q_OBJECT

public:
    explicit frmVSPrintDialog(frmVSPrint& preview);

    std::array<QRadioButton*, 3> optRange{};
    QLineEdit* txtPageNumbers;
    QGroupBox* fraDuplex;
    std::array<QRadioButton*, 3> optDuplex{};
    QLineEdit* txtCopies;
    QPushButton* cmdPrint;
    QPushButton* cmdCancel;
    QTimer* tmrAbandon;

    void done(int result) override;

public Q_SLOTS:
    void cmdPrint_Click();
    void tmrAbandon_Timer();
    void optRange_Click();

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QGroupBox* BuildRangeFrame();
    QGroupBox* BuildDuplexFrame();
    bool PagesAreInTheDocument(const QString& first, const QString& last);
    bool WaitUntilReady();
    void PageSpan(QString* first, QString* last) const;

    frmVSPrint& preview_;
    VSPrinterControl& control_;
    QEventLoop* waiting_ = nullptr;
    bool abandoned_ = false;
    bool unloaded_ = false;
};

}  // namespace quillon
