#include "sections/frmNBusiness.h"

#include "data/client_rows.h"
#include "platform/widgets_gui.h"
#include "sections/section_state.h"

#include <QCloseEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace quillon {

namespace {

const QString kModule = QString::fromLatin1(frmNBusiness::kFormName);

QString PageTable() {
    return QStringLiteral("Business %1").arg(BusinessPage);
}

ClientName BusinessClient() {
    return {BusinessFirst, BusinessLast};
}

}  // namespace

frmNBusiness::frmNBusiness(QWidget* parent) : QDialog(parent), table_(PageTable()), image_(table_) {
    setObjectName(kModule);
    setWindowTitle(QStringLiteral("Business Notes"));
    txtNotes = Named<QPlainTextEdit>(QStringLiteral("txtNotes"), this);
    image_.BindText(txtNotes, QStringLiteral("Notes"));
    cm3Close = Named<QPushButton>(QStringLiteral("cm3Close"), tr("&Close"), this);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(txtNotes, 1);
    AddButtonRow(layout, {cm3Close});
    resize(420, 240);
    connect(cm3Close, &QPushButton::clicked, this, &QDialog::close);
    Form_Activate();
}

void frmNBusiness::Form_Activate() {
    WaitPointer wait;
    ReadClientRow({kModule, QStringLiteral("Form_Activate")}, table_, BusinessClient(),
                  [this](const dao::Recordset& row) {
                      image_.Fill(row);
                      setWindowTitle(BusinessFirst + QLatin1Char(' ') + BusinessLast +
                                     QStringLiteral(" (Business %1)").arg(BusinessPage));
                  });
}

void frmNBusiness::Form_Unload() {
    ChangeClientRow({kModule, QStringLiteral("Form_Unload")}, table_, BusinessClient(),
                    [this](dao::Recordset& row) { image_.AssignChanged(row); });
}

void frmNBusiness::reject() {
    close();
}

void frmNBusiness::closeEvent(QCloseEvent* event) {
    // Not the dialog's own handling, which would reject and so close again.
    Form_Unload();
    event->accept();
}

}  // namespace quillon
