#pragma once
// The print preview: the shared document's pages with page navigation, zoom,
// the page order for printing, and the print dialog.

#include "reports/preview_view_gui.h"

#include <QDialog>

class QComboBox;
class QLabel;
class QPushButton;
class QTimer;

namespace quillon {

class frmVSPrint : public QDialog {
    Q_OBJECT

public:
    explicit frmVSPrint(QWidget* parent = nullptr);

    PreviewView* vp;
    QPushButton* cmdFirst;
    QPushButton* cmdPrevious;
    QPushButton* cmdNext;
    QPushButton* cmdLast;
    QLabel* lblPage;
    QComboBox* cmbZoomMode;
    QComboBox* cmbPercent;
    QComboBox* cmbPrint;
    QPushButton* cmdPrint;
    QPushButton* cmdClose;
    QTimer* tmrLastPage;

    bool ReverseOrder() const;
    void UpdateNavigation();
    void done(int result) override;

public Q_SLOTS:
    void cmdFirst_Click();
    void cmdPrevious_Click();
    void cmdNext_Click();
    void cmdLast_Click();
    void cmbZoomMode_Click();
    void cmbPercent_Click();
    void cmdPrint_Click();
    void cmdClose_Click();
    void tmrLastPage_Timer();

protected:
    void showEvent(QShowEvent* event) override;

private:
    QWidget* BuildToolbar();
    void PlaceWindow();
    void StoreWindowSettings();
    void GoToPage(int page);

    bool unloaded_ = false;
};

}  // namespace quillon
