#include "reference/frmOffices.h"

#include "correspondence/list_entries.h"
#include "data/client_rows.h"
#include "data/data_access.h"
#include "data/validate.h"
#include "platform/services.h"
#include "platform/widgets_gui.h"
#include "reference/reference_files.h"
#include "reference/reference_updates.h"
#include "sections/key_routine_filter_gui.h"
#include "shell/forms_gui.h"
#include "shell/variables.h"

#include <QCheckBox>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace quillon {

namespace {

constexpr int kNumberLength = 3;
const QString kModule = QString::fromLatin1(frmOffices::kFormName);
const QString kName = QStringLiteral("Name");
const QString kNumber = QStringLiteral("Number");

// clang-format off
const ReferenceTexts kTexts{
    frmOffices::kFormName,
    "Tax Offices",
    "lstOffices",
    "No tax office name beginning with ",
    "Tick this box to automatically check for an updated version of the Tax Offices Database when this form is opened",
    &TaxOfficesUpdate,
};
// clang-format on

dao::Recordset OfficesBy(dao::Database& db, const QString& index) {
    dao::Recordset offices = db.OpenRecordset(QStringLiteral("Tax Offices"));
    offices.SetIndex(index);
    return offices;
}

// The box of `field`, held to the field's width.
QLineEdit* DetailBox(const QString& name, const QString& field, QWidget* parent) {
    auto* box = Named<QLineEdit>(name, parent);
    box->setMaxLength(OfficeFieldWidth(field));
    return box;
}

// The focus selects the whole text, so that a number is typed over.
class SelectOnFocus : public QObject {
public:
    explicit SelectOnFocus(QLineEdit* box) : QObject(box) { box->installEventFilter(this); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::FocusIn) {
            auto* box = static_cast<QLineEdit*>(watched);
            QTimer::singleShot(0, box, &QLineEdit::selectAll);
        }
        return false;
    }
};

}  // namespace

frmOffices::frmOffices(QWidget* parent) : ReferenceScreen(kTexts, parent) {
    lstOffices = List();
    Arrange(nullptr, BuildGoto(), BuildDetails(), {});
    connect(cm3Goto, &QPushButton::clicked, this, &frmOffices::cm3Goto_Click);
    connect(txtGoto, &QLineEdit::textChanged, this,
            [this](const QString& text) { cm3Goto->setEnabled(text.size() == kNumberLength); });
    connect(cm3New, &QPushButton::clicked, this, &frmOffices::cm3New_Click);
    connect(cm3Rename, &QPushButton::clicked, this, &frmOffices::cm3Rename_Click);
    connect(cm3Delete, &QPushButton::clicked, this, &frmOffices::cm3Delete_Click);
    connect(cm3Save, &QPushButton::clicked, this, &frmOffices::SaveOffice);
    connect(tmrNew, &QTimer::timeout, this, &frmOffices::tmrNew_Timer);
    connect(tmrRename, &QTimer::timeout, this, &frmOffices::tmrRename_Timer);
    Form_Load();
}

QWidget* frmOffices::BuildDetails() {
    auto* details = new QWidget(this);
    auto* grid = new QGridLayout(details);
    grid->setContentsMargins(0, 0, 0, 0);
    lblTOfficeName = Named<QLabel>(QStringLiteral("lblTOfficeName"), details);
    lblTOfficeNo = Named<QLabel>(QStringLiteral("lblTOfficeNo"), details);
    const QStringList fields = OfficeDetailFields(true);
    for (int i = 1; i <= 6; ++i) {
        txtTAddress[i] =
            DetailBox(QStringLiteral("txtTAddress(%1)").arg(i), fields[i - 1], details);
    }
    txtTPhone = DetailBox(QStringLiteral("txtTPhone"), fields[6], details);
    txtTFax = DetailBox(QStringLiteral("txtTFax"), fields[7], details);
    txtTOfficeNo = DetailBox(QStringLiteral("txtTOfficeNo"), fields[8], details);
    txtTEmail = DetailBox(QStringLiteral("txtTEmail"), fields[9], details);
    lblOffNo = Named<QLabel>(QStringLiteral("lblOffNo"), QStringLiteral("Office No."), details);
    lblOffEmail = Named<QLabel>(QStringLiteral("lblOffEmail"), QStringLiteral("Email"), details);
    const std::pair<QString, QWidget*> lines[] = {
        {tr("Name"), lblTOfficeName},    {tr("Number"), lblTOfficeNo},
        {tr("Address"), txtTAddress[1]}, {QString(), txtTAddress[2]},
        {QString(), txtTAddress[3]},     {QString(), txtTAddress[4]},
        {QString(), txtTAddress[5]},     {tr("Postcode"), txtTAddress[6]},
        {tr("Telephone"), txtTPhone},    {tr("Fax"), txtTFax},
    };
    int row = 0;
    for (const auto& [label, widget] : lines) {
        grid->addWidget(new QLabel(label, details), row, 0);
        grid->addWidget(widget, row++, 1);
    }
    grid->addWidget(lblOffNo, row, 0);
    grid->addWidget(txtTOfficeNo, row++, 1);
    grid->addWidget(lblOffEmail, row, 0);
    grid->addWidget(txtTEmail, row++, 1);
    grid->setRowStretch(row, 1);
    return details;
}

QWidget* frmOffices::BuildGoto() {
    auto* panel = new QWidget(this);
    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins(0, 0, 0, 0);
    pnlCount = Named<QLabel>(QStringLiteral("pnlCount"), panel);
    pnlCount->setFrameShape(QFrame::Panel);
    pnlCount->setFrameShadow(QFrame::Sunken);
    column->addWidget(pnlCount);
    auto* row = new QHBoxLayout;
    column->addLayout(row);
    txtGoto = Named<QLineEdit>(QStringLiteral("txtGoto"), panel);
    txtGoto->setMaxLength(kNumberLength);
    txtGoto->setMaximumWidth(txtGoto->fontMetrics().horizontalAdvance(QStringLiteral("WWWW")) + 12);
    InstallKeyRoutine(txtGoto, AlphaNumericKeyFilter);
    new SelectOnFocus(txtGoto);
    cm3Goto = Named<QPushButton>(QStringLiteral("cm3Goto"), QStringLiteral("&Goto"), panel);
    cm3Goto->setEnabled(false);
    row->addWidget(new QLabel(tr("District number"), panel));
    row->addWidget(txtGoto);
    row->addWidget(cm3Goto);
    row->addStretch(1);
    return panel;
}

void frmOffices::Form_Load() {
    Loading = true;
    if (TaxOfficesUpdate) {
        UpdateOfficeDatabase();
    }
    const QString version = ReadOfficeVersion();
    version_ = static_cast<float>(VersionNumber(version));
    setWindowTitle(QStringLiteral("Tax Offices (Version ") + version + QLatin1Char(')'));
    for (QWidget* later : {static_cast<QWidget*>(lblOffNo), static_cast<QWidget*>(txtTOfficeNo),
                           static_cast<QWidget*>(lblOffEmail), static_cast<QWidget*>(txtTEmail)}) {
        later->setVisible(LaterLayout());
    }
    chkUpdate->setChecked(TaxOfficesUpdate);
    try {
        WaitPointer wait;
        FillList();
    } catch (const std::exception& error) {
        Report(kModule, QStringLiteral("Form_Load"), error);
    }
    ShowCount();
}

bool frmOffices::LaterLayout() const {
    return version_ >= kOfficeNumbersLayout;
}

QList<QLineEdit*> frmOffices::DetailBoxes() const {
    QList<QLineEdit*> boxes(txtTAddress.begin() + 1, txtTAddress.end());
    boxes << txtTPhone << txtTFax;
    if (LaterLayout()) {
        boxes << txtTOfficeNo << txtTEmail;
    }
    return boxes;
}

// In name order: the list is read whole only here and after a rename, so an
// office added meanwhile stands at the end until then.
void frmOffices::FillList() {
    const QSignalBlocker quiet(lstOffices);
    lstOffices->clear();
    lstOffices->addItems(OfficeEntries());
}

void frmOffices::ShowCount() {
    pnlCount->setText(QString::number(lstOffices->count()) + QStringLiteral(" offices"));
}

void frmOffices::Form_Activate() {
    ReferenceScreen::Form_Activate();
    const int current = RowOf(OfficeEntry(CurrentOfficeName, CurrentOfficeNumber));
    SelectEntry(current >= 0 ? current : 0);
}

bool frmOffices::Form_Deactivate() {
    SaveOffice();
    return true;
}

bool frmOffices::Form_Unload() {
    SaveOffice();
    return false;
}

// Every save rewrites the row, changed or not.
void frmOffices::SaveOffice() {
    try {
        WaitPointer wait;
        dao::Database db = OpenOfficeDatabase();
        dao::Recordset offices = OfficesBy(db, QStringLiteral("Office Name"));
        offices.Seek(QStringLiteral("="), {lblTOfficeName->text(), lblTOfficeNo->text()});
        if (offices.NoMatch()) {
            return;  // another user may have deleted it
        }
        offices.Edit();
        const QStringList fields = OfficeDetailFields(LaterLayout());
        const QList<QLineEdit*> boxes = DetailBoxes();
        for (int i = 0; i < fields.size(); ++i) {
            offices.Fields(fields[i]).SetValue(boxes[i]->text());
        }
        offices.Update();
    } catch (const std::exception& error) {
        Report(kModule, QStringLiteral("SaveOffice"), error);
    }
}

frmOffices::Office frmOffices::OfficeOfRow(const dao::Recordset& office) const {
    Office read{NullToEmpty(office.Fields(kNumber)), NullToEmpty(office.Fields(kName)), {}};
    for (const QString& field : OfficeDetailFields(LaterLayout())) {
        read.details << NullToEmpty(office.Fields(field));
    }
    return read;
}

void frmOffices::ShowOffice(const Office& office) {
    lblTOfficeNo->setText(office.number);
    lblTOfficeName->setText(office.name);
    const QList<QLineEdit*> boxes = DetailBoxes();
    for (int i = 0; i < boxes.size(); ++i) {
        boxes[i]->setText(office.details.value(i));
    }
    CurrentOfficeNumber = office.number;
    CurrentOfficeName = office.name;
}

void frmOffices::ClearShown() {
    ShowOffice({});
}

void frmOffices::SelectOffice() {
    WaitPointer wait;
    SaveOffice();
    const OfficeKey key = OfficeOfEntry(SelectedEntry());
    try {
        Office office;
        bool found = false;
        {
            dao::Database db = OpenOfficeDatabase();
            dao::Recordset offices = OfficesBy(db, QStringLiteral("Office Name"));
            offices.Seek(QStringLiteral("="), {key.name, key.number});
            found = !offices.NoMatch();
            if (!found) {
                offices.MoveFirst();
            }
            office = OfficeOfRow(offices);
        }
        if (!found) {
            Beep();
            MsgBox(QStringLiteral("Tax Office record not found"), vbExclamation, Title());
        }
        ShowOffice(office);
    } catch (const std::exception& error) {
        Report(kModule, QStringLiteral("SelectOffice"), error);
    }
}

// The first office of the number; another of the same number can only be
// reached by its name.
void frmOffices::cm3Goto_Click() {
    WaitPointer wait;
    const QString number = txtGoto->text();
    txtGoto->clear();
    try {
        bool found = false;
        QString entry;
        {
            dao::Database db = OpenOfficeDatabase();
            dao::Recordset offices = OfficesBy(db, QStringLiteral("District Code"));
            offices.Seek(QStringLiteral("="), {number});
            found = !offices.NoMatch();
            if (!found) {
                offices.SetIndex(QStringLiteral("Office Name"));
                offices.MoveFirst();
            }
            entry = OfficeEntry(NullToEmpty(offices.Fields(kName)),
                                NullToEmpty(offices.Fields(kNumber)));
        }
        if (!found) {
            Beep();
            MsgBox(QStringLiteral("Tax office not found"), vbExclamation, Title());
        }
        SelectEntryText(entry);
    } catch (const std::exception& error) {
        Report(kModule, QStringLiteral("cm3Goto_Click"), error);
    }
}

void frmOffices::cm3New_Click() {
    ShowModal(QStringLiteral("frmNewOffice"));
}

// What was typed is saved first: the rename changes the key it is saved under.
void frmOffices::cm3Rename_Click() {
    SaveOffice();
    ShowModal(QStringLiteral("frmRenameOffice"));
}

void frmOffices::cm3Delete_Click() {
    const QString name = lblTOfficeName->text();
    const QString number = lblTOfficeNo->text();
    const int answer = MsgBox(
        QStringLiteral("Delete tax office:") + QStringLiteral("\n\n") + OfficeEntry(name, number),
        vbYesNo | vbQuestion | vbDefaultButton2, QStringLiteral("Delete Tax Office"));
    if (answer != vbYes) {
        return;
    }
    try {
        bool found = false;
        {
            WaitPointer wait;
            dao::Database db = OpenOfficeDatabase();
            dao::Recordset offices = OfficesBy(db, QStringLiteral("Office Name"));
            offices.Seek(QStringLiteral("="), {name, number});
            found = !offices.NoMatch();
            if (found) {
                offices.Delete();
            }
        }
        if (!found) {
            Beep();
            MsgBox(QStringLiteral("Record not found"), vbOKOnly,
                   QStringLiteral("Delete Tax Office"));
            SelectEntry(0);
            return;
        }
        RemoveSelectedEntry();
        ShowCount();
    } catch (const std::exception& error) {
        Report(kModule, QStringLiteral("cm3Delete_Click"), error);
    }
}

// Added at the end, out of order until the list is next read whole.
void frmOffices::tmrNew_Timer() {
    tmrNew->stop();
    lstOffices->addItem(OfficeEntry(CurrentOfficeName, CurrentOfficeNumber));
    SelectEntry(lstOffices->count() - 1);
    ShowCount();
    txtTAddress[1]->setFocus();
}

// The renamed office takes its place in the order at once.
void frmOffices::tmrRename_Timer() {
    tmrRename->stop();
    const QString entry = OfficeEntry(CurrentOfficeName, CurrentOfficeNumber);
    try {
        WaitPointer wait;
        FillList();
        SelectEntryText(entry);
        txtTAddress[1]->setFocus();
    } catch (const std::exception& error) {
        Report(kModule, QStringLiteral("tmrRename_Timer"), error);
    }
}

}  // namespace quillon
