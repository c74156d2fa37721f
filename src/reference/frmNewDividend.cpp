#include "reference/frmNewDividend.h"

#include "platform/dao.h"
#include "platform/wait_pointer.h"
#include "reference/frmDividends.h"
#include "reference/reference_files.h"
#include "shell/forms_gui.h"
#include "shell/variables.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QTimer>

namespace quillon {

namespace {
constexpr int kTimerInterval = 100;  // ms
}

frmNewDividend::frmNewDividend(QWidget* parent)
    : ShareDialog(QStringLiteral("New Dividend"), parent) {
    setObjectName(QString::fromLatin1(kFormName));
}

// `Issued` stays unset, which marks the share as the user's.
void frmNewDividend::cm3OK_Click() {
    const ShareKey share{txtCompany->text(), txtStock->text(), chkFID->isChecked()};
    try {
        WaitPointer wait;
        dao::Database db = dao::OpenDatabase(DividendDatabasePath(TaxYear));
        dao::Recordset shares = db.OpenRecordset(QStringLiteral("Dividends"));
        shares.AddNew();
        shares.Fields(QStringLiteral("Company")).SetValue(share.company);
        shares.Fields(QStringLiteral("Stock")).SetValue(share.stock);
        shares.Fields(QStringLiteral("FID")).SetValue(share.fid);
        shares.Update();
    } catch (const std::exception& error) {
        ReportFailure(QStringLiteral("Dividends"), error);
        return;
    }
    CurrentCompany = share.company;
    CurrentStock = share.stock;
    CurrentFID = share.fid;
    if (auto* dividends = LoadedForm<frmDividends>()) {
        dividends->tmrNew->start(kTimerInterval);
    }
    close();
}

}  // namespace quillon
