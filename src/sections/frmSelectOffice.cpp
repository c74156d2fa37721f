#include "sections/frmSelectOffice.h"

#include "correspondence/list_entries.h"
#include "data/data_access.h"
#include "platform/services.h"
#include "platform/widgets_gui.h"
#include "sections/frmAdministration.h"
#include "shell/forms_gui.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

namespace quillon {

namespace {
const QString kTitle = QStringLiteral("Tax Offices");
constexpr int kNumberTail = 6;  // " (", the number, ")"
}  // namespace

frmSelectOffice::frmSelectOffice(QWidget* parent) : QDialog(parent) {
    setObjectName(QString::fromLatin1(kFormName));
    setWindowTitle(QStringLiteral("Select Tax Office"));
    const NamePick pick = MakeNamePick(this, QStringLiteral("lstOffices"), cm3Seek,
                                       [this](int i) { cm3Seek_Click(i); });
    lstOffices = pick.list;
    cm3OK = pick.ok;
    cm3Cancel = pick.cancel;
    connect(lstOffices, &QListWidget::itemClicked, this, &frmSelectOffice::lstOffices_Click);
    connect(lstOffices, &QListWidget::itemDoubleClicked, this, &frmSelectOffice::cm3OK_Click);
    connect(cm3OK, &QPushButton::clicked, this, &frmSelectOffice::cm3OK_Click);
    connect(cm3Cancel, &QPushButton::clicked, this, &QDialog::reject);
    Form_Load();
}

void frmSelectOffice::Form_Load() {
    try {
        WaitPointer wait;
        lstOffices->addItems(OfficeEntries());
    } catch (const std::exception& error) {
        MsgBox(ErrorReportText(objectName(), QStringLiteral("Form_Load"), DetailsOf(error)),
               vbExclamation, kTitle);
    }
}

void frmSelectOffice::cm3Seek_Click(int index) {
    const int row = RowForLetter(lstOffices, index,
                                 QStringLiteral("No tax office name beginning with "), kTitle);
    if (row < 0) {
        return;
    }
    lstOffices->setCurrentRow(row);
    lstOffices->scrollToItem(lstOffices->item(row), QAbstractItemView::PositionAtTop);
    lstOffices_Click();
}

void frmSelectOffice::lstOffices_Click() {
    cm3OK->setEnabled(lstOffices->currentRow() >= 0);
}

// Only the number is taken: the three characters before the closing bracket.
void frmSelectOffice::cm3OK_Click() {
    const QListWidgetItem* item = lstOffices->currentItem();
    const QString entry = item ? item->text() : QString();
    auto* administration = LoadedForm<frmAdministration>();
    if (entry.size() > kNumberTail && administration) {
        administration->txtTOfficeNo->setText(OfficeOfEntry(entry).number);
        administration->txtTOfficeNo_Change();
    }
    accept();
}

}  // namespace quillon
