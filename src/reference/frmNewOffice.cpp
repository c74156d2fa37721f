#include "reference/frmNewOffice.h"

#include "data/client_rows.h"
#include "platform/dao.h"
#include "platform/wait_pointer.h"
#include "reference/frmOffices.h"
#include "shell/forms_gui.h"
#include "shell/variables.h"

#include <QLineEdit>
#include <QTimer>

namespace quillon {

namespace {
constexpr int kTimerInterval = 100;  // ms
}

// The number takes any character here: only a renumbering keeps to digits.
frmNewOffice::frmNewOffice(QWidget* parent)
    : OfficeDialog(QStringLiteral("New Tax Office"), parent) {
    setObjectName(QString::fromLatin1(kFormName));
}

void frmNewOffice::cm3OK_Click() {
    const QString number = txtNumber->text().trimmed();
    const QString name = txtName->text().trimmed();
    try {
        WaitPointer wait;
        dao::Database db = OpenOfficeDatabase();
        dao::Recordset offices = db.OpenRecordset(QStringLiteral("Tax Offices"));
        offices.AddNew();
        offices.Fields(QStringLiteral("Number")).SetValue(number);
        offices.Fields(QStringLiteral("Name")).SetValue(name);
        offices.Update();
    } catch (const std::exception& error) {
        ReportFailure(QStringLiteral("Tax Offices"), error);
        return;
    }
    CurrentOfficeNumber = number;
    CurrentOfficeName = name;
    if (auto* offices = LoadedForm<frmOffices>()) {
        offices->tmrNew->start(kTimerInterval);
    }
    close();
}

}  // namespace quillon
