#include "reference/frmRenameDividend.h"

#include "platform/dao.h"
#include "platform/wait_pointer.h"
#include "reference/frmDividends.h"
#include "shell/forms_gui.h"
#include "shell/variables.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QTimer>

namespace quillon {

namespace {
constexpr int kTimerInterval = 100;  // ms
const QString kTitle = QStringLiteral("Rename Dividend");
}  // namespace

frmRenameDividend::frmRenameDividend(QWidget* parent)
    : ShareDialog(kTitle, parent), old_{CurrentCompany, CurrentStock, CurrentFID} {
    setObjectName(QString::fromLatin1(kFormName));
    txtCompany->setText(old_.company);
    txtStock->setText(old_.stock);
    chkFID->setChecked(old_.fid);
}

void frmRenameDividend::cm3OK_Click() {
    const ShareKey share{txtCompany->text(), txtStock->text(), chkFID->isChecked()};
    try {
        bool found = false;
        {
            WaitPointer wait;
            dao::Database db = dao::OpenDatabase(DividendDatabasePath(TaxYear));
            dao::Recordset shares = db.OpenRecordset(QStringLiteral("Dividends"));
            shares.SetIndex(QStringLiteral("Name"));
            shares.Seek(QStringLiteral("="), {old_.company, old_.stock, old_.fid});
            found = !shares.NoMatch();
            if (found) {
                shares.Edit();
                shares.Fields(QStringLiteral("Company")).SetValue(share.company);
                shares.Fields(QStringLiteral("Stock")).SetValue(share.stock);
                shares.Fields(QStringLiteral("FID")).SetValue(share.fid);
                shares.Update();
            }
        }
        if (!found) {
            RecordGone(kTitle);
            return;
        }
    } catch (const std::exception& error) {
        ReportFailure(QStringLiteral("Dividends"), error);
        return;
    }
    CurrentCompany = share.company;
    CurrentStock = share.stock;
    CurrentFID = share.fid;
    if (auto* dividends = LoadedForm<frmDividends>()) {
        dividends->tmrRename->start(kTimerInterval);
    }
    close();
}

}  // namespace quillon
