#include "sections/frmSpouseList.h"

#include "data/client_rows.h"
#include "data/data_access.h"
#include "platform/dao.h"
#include "platform/letter_buttons_gui.h"
#include "platform/services.h"
#include "platform/widgets_gui.h"
#include "sections/frmPersonal.h"
#include "shell/forms_gui.h"
#include "shell/variables.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include <exception>

namespace quillon {

namespace {

const QString kListSeparator = QStringLiteral(", ");
const QString kFirstNames = QStringLiteral("First Names");
const QString kLastName = QStringLiteral("Last Name");

QString ListText(const QString& first, const QString& last) {
    return last + kListSeparator + first;
}

dao::Recordset ByName(dao::Database& db, const QString& table) {
    dao::Recordset rows = db.OpenRecordset(table, dao::dbOpenTable);
    rows.SetIndex(QStringLiteral("Name"));
    return rows;
}

}  // namespace

frmSpouseList::frmSpouseList(QWidget* parent) : QDialog(parent) {
    setObjectName(QString::fromLatin1(kFormName));
    setWindowTitle(QStringLiteral("Select Spouse"));
    const NamePick pick = MakeNamePick(this, QStringLiteral("lstClients"), cm3Seek,
                                       [this](int i) { cm3Seek_Click(i); });
    lstClients = pick.list;
    cm3OK = pick.ok;
    cm3Cancel = pick.cancel;

    // Only a click on a name chooses it: the list's current row also moves when
    // it merely takes the focus, and Enter must not then link the first client.
    connect(lstClients, &QListWidget::itemClicked, this, &frmSpouseList::lstClients_Click);
    connect(lstClients, &QListWidget::itemDoubleClicked, this, &frmSpouseList::SelectClient);
    connect(cm3OK, &QPushButton::clicked, this, &frmSpouseList::SelectClient);
    connect(cm3Cancel, &QPushButton::clicked, this, &frmSpouseList::reject);
    Form_Load();
}

// Every client in name order but the current one.
void frmSpouseList::Form_Load() {
    try {
        WaitPointer wait;
        dao::Database db = OpenClientDatabase();
        dao::Recordset clients = ByName(db, QStringLiteral("Clients"));
        const QString current = ListText(CurrentFirst, CurrentLast);
        for (clients.MoveFirst(); !clients.IsEOF(); clients.MoveNext()) {
            const QString text = ListText(NullToEmpty(clients.Fields(kFirstNames)),
                                          NullToEmpty(clients.Fields(kLastName)));
            if (text != current) {
                lstClients->addItem(text);
            }
        }
        clients.Close();
        db.Close();
    } catch (const std::exception& error) {
        ReportError(kSpouseListModule, QStringLiteral("Form_Load"), error);
    }
}

void frmSpouseList::cm3Seek_Click(int index) {
    const int row =
        RowForLetter(lstClients, index, QStringLiteral("No client name beginning with "));
    if (row < 0) {
        return;
    }
    lstClients->setCurrentRow(row);
    lstClients_Click();
}

void frmSpouseList::lstClients_Click() {
    cm3OK->setEnabled(lstClients->currentRow() >= 0);
}

void frmSpouseList::SelectClient() {
    const QListWidgetItem* item = lstClients->currentItem();
    const QString text = item ? item->text() : QString();
    const qsizetype split = text.indexOf(kListSeparator);
    if (split >= 0) {
        LinkTo(text.mid(split + kListSeparator.size()), text.left(split));
    }
    accept();
}

void frmSpouseList::LinkTo(const QString& first, const QString& last) {
    WaitPointer wait;
    try {
        dao::Database db = OpenClientDatabase();
        dao::Recordset clients = ByName(db, QStringLiteral("Clients"));
        dao::Recordset personal = ByName(db, QStringLiteral("Personal"));
        clients.Seek(QStringLiteral("="), {last, first});
        if (clients.NoMatch()) {
            Beep();
            MsgBox(QStringLiteral("Client record not found"), vbExclamation);
            return;
        }
        personal.Seek(QStringLiteral("="), {last, first});
        QString birthDate;
        if (!personal.NoMatch()) {
            birthDate = NullToEmpty(personal.Fields(QStringLiteral("Date of Birth")));
        }
        auto* screen = LoadedForm<frmPersonal>();
        if (screen) {
            screen->Box(QStringLiteral("txtSpouse(0)"))->setText(first);
            screen->Box(QStringLiteral("txtSpouse(1)"))->setText(last);
            screen->Box(QStringLiteral("txtSpouseDOB"))->setText(birthDate);
        }
        // The client's date of birth as it stands in the box, saved or not.
        personal.Edit();
        personal.Fields(QStringLiteral("Spouse First")).SetValue(CurrentFirst);
        personal.Fields(QStringLiteral("Spouse Last")).SetValue(CurrentLast);
        personal.Fields(QStringLiteral("Spouse DOB"))
            .SetValue(screen ? screen->Box(QStringLiteral("txtDOB"))->text() : QString());
        personal.Update();
    } catch (const std::exception& error) {
        ReportError(kSpouseListModule, QStringLiteral("SelectClient"), error);
    }
}

void frmSpouseList::CurrentRecordLocked() {
    Beep();
    MsgBox(QStringLiteral("The current record cannot be changed.") + QLatin1Char('\n') +
               QStringLiteral("Another user may have exclusive access to it."),
           vbExclamation);
}

void frmSpouseList::PartnerRecordLocked() {
    Beep();
    MsgBox(QStringLiteral("The partner's record cannot be changed.") + QLatin1Char('\n') +
               QStringLiteral("Another user may have exclusive access to it."),
           vbExclamation, QStringLiteral("Data access"));
}

void frmSpouseList::RecordNotAvailable() {
    Beep();
    MsgBox(QStringLiteral("The selected record is not available"), vbExclamation);
}

}  // namespace quillon
