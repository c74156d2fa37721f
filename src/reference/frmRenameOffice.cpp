#include "reference/frmRenameOffice.h"

#include "data/client_rows.h"
#include "data/validate.h"
#include "platform/dao.h"
#include "platform/wait_pointer.h"
#include "reference/frmOffices.h"
#include "sections/key_routine_filter_gui.h"
#include "shell/forms_gui.h"
#include "shell/variables.h"

#include <QLineEdit>
#include <QTimer>

namespace quillon {

namespace {
constexpr int kTimerInterval = 100;  // ms
const QString kTitle = QStringLiteral("Rename Tax Office");
}  // namespace

frmRenameOffice::frmRenameOffice(QWidget* parent)
    : OfficeDialog(kTitle, parent), oldNumber_(CurrentOfficeNumber), oldName_(CurrentOfficeName) {
    setObjectName(QString::fromLatin1(kFormName));
    InstallKeyRoutine(txtNumber, DigitKeyFilter);
    txtNumber->setText(oldNumber_);
    txtName->setText(oldName_);
}

void frmRenameOffice::cm3OK_Click() {
    const QString number = txtNumber->text().trimmed();
    const QString name = txtName->text().trimmed();
    try {
        bool found = false;
        {
            WaitPointer wait;
            dao::Database db = OpenOfficeDatabase();
            dao::Recordset offices = db.OpenRecordset(QStringLiteral("Tax Offices"));
            offices.SetIndex(QStringLiteral("Office Name"));
            offices.Seek(QStringLiteral("="), {oldName_, oldNumber_});
            found = !offices.NoMatch();
            if (found) {
                offices.Edit();
                offices.Fields(QStringLiteral("Number")).SetValue(number);
                offices.Fields(QStringLiteral("Name")).SetValue(name);
                offices.Update();
            }
        }
        if (!found) {
            RecordGone(kTitle);
            return;
        }
    } catch (const std::exception& error) {
        ReportFailure(QStringLiteral("Tax Offices"), error);
        return;
    }
    CurrentOfficeNumber = number;
    CurrentOfficeName = name;
    if (auto* offices = LoadedForm<frmOffices>()) {
        offices->tmrRename->start(kTimerInterval);
    }
    close();
}

}  // namespace quillon
