#include "sections/frmAdministration.h"

#include "data/client_rows.h"
#include "data/data_access.h"
#include "platform/widgets_gui.h"
#include "reference/reference_files.h"
#include "shell/forms_gui.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

namespace quillon {

namespace {

using Rule = FieldRule;

constexpr int kOfficeNumberLength = 3;
constexpr int kNoteLines = 3;  // shown; the note scrolls beyond them
const QString kModule = QString::fromLatin1(frmAdministration::kFormName);

// Boxes 3 to 5 of the references were never used.
const FieldRow kReferences[] = {
    {"txtTRef(0)", "Client Reference", Rule::Text, "Client Reference"},
    {"txtTRef(1)", "NI Number", Rule::Text, "National Insurance No."},
    {"txtTRef(2)", "Tax Reference", Rule::Text, "Taxpayer Reference No."},
    {"txtTRef(6)", "File Identifier", Rule::Text, "File Identifier"},
};

const FieldRow kStaff[] = {
    {"txtTStaff(0)", "Partner", Rule::Text, "Partner"},
    {"txtTStaff(1)", "Manager", Rule::Text, "Manager"},
    {"txtTStaff(2)", "Assistant", Rule::Text, "Assistant"},
};

// Only the inspector and the number are the client's; the rest is the office's.
const FieldRow kOffice[] = {
    {"txtTInspector", "Inspector", Rule::Text, "Inspector"},
    {"txtTOfficeNo", "Office Number", Rule::Text, "Number"},
    {"txtTOfficeName", nullptr, Rule::Text, "Name"},
    {"txtTAddress(1)", nullptr, Rule::Text, "Address"},
    {"txtTAddress(2)", nullptr, Rule::Text, ""},
    {"txtTAddress(3)", nullptr, Rule::Text, ""},
    {"txtTAddress(4)", nullptr, Rule::Text, ""},
    {"txtTAddress(5)", nullptr, Rule::Text, ""},
    {"txtTAddress(6)", nullptr, Rule::Text, ""},
    {"txtTPhone", nullptr, Rule::Text, "Tel."},
    {"txtTFax", nullptr, Rule::Text, "Fax"},
    {"txtIROffice", nullptr, Rule::Text, "IR Office"},
};

const FieldRow kNote[] = {{"txtTNote", "Notes", Rule::Note, ""}};

}  // namespace

frmAdministration::frmAdministration(QWidget* parent)
    : SectionScreen(kAdministrationSection, parent) {
    setWindowTitle(QStringLiteral("Administration"));
    QGroupBox* references = FieldGroup(tr("References"), kReferences);
    references->setObjectName(QStringLiteral("fr3"));
    QGroupBox* staff = FieldGroup(tr("Staff"), kStaff);
    QGroupBox* office = FieldGroup(tr("Tax Office"), kOffice);
    QGroupBox* note = FieldGroup(tr("Note"), kNote);
    auto* notes = note->findChild<QPlainTextEdit*>(QStringLiteral("txtTNote"));
    notes->setMaximumHeight(notes->fontMetrics().lineSpacing() * kNoteLines +
                            2 * notes->frameWidth() + 8);
    txtTOfficeNo = Box(QStringLiteral("txtTOfficeNo"));
    txtTOfficeName = Box(QStringLiteral("txtTOfficeName"));
    for (int i = 1; i <= 6; ++i) {
        txtTAddress[i] = Box(QStringLiteral("txtTAddress(%1)").arg(i));
    }
    txtTPhone = Box(QStringLiteral("txtTPhone"));
    txtTFax = Box(QStringLiteral("txtTFax"));
    txtIROffice = Box(QStringLiteral("txtIROffice"));
    for (QLineEdit* box : OfficeBoxes()) {
        box->setReadOnly(true);
        box->setFocusPolicy(Qt::ClickFocus);
    }
    auto* grid = static_cast<QGridLayout*>(office->layout());
    int row = 0;
    int column = 0;
    int span = 0;
    grid->getItemPosition(grid->indexOf(txtIROffice), &row, &column, &span, &span);
    lblIROffice = qobject_cast<QLabel*>(grid->itemAtPosition(row, 0)->widget());
    lblIROffice->setObjectName(QStringLiteral("lblIROffice"));
    cm3Select = Named<QPushButton>(QStringLiteral("cm3Select"), QStringLiteral("&Select"), office);
    grid->addWidget(cm3Select, 1, 2);
    Arrange({{references, staff, note}, {office}});
    // The office's lines are the longest texts of the screen.
    static_cast<QBoxLayout*>(Body()->layout())->setStretch(1, 5);
    static_cast<QBoxLayout*>(Body()->layout())->setStretch(0, 4);

    laterLayout_ = VersionNumber(ReadOfficeVersion()) >= kOfficeNumbersLayout;
    lblIROffice->setVisible(laterLayout_);
    txtIROffice->setVisible(laterLayout_);
    connect(txtTOfficeNo, &QLineEdit::textEdited, this, &frmAdministration::txtTOfficeNo_Change);
    connect(cm3Select, &QPushButton::clicked, this, &frmAdministration::cm3Select_Click);
}

QList<QLineEdit*> frmAdministration::OfficeBoxes() const {
    QList<QLineEdit*> boxes{txtTOfficeName};
    boxes.append(QList<QLineEdit*>(txtTAddress.begin() + 1, txtTAddress.end()));
    boxes << txtTPhone << txtTFax << txtIROffice;
    return boxes;
}

void frmAdministration::ReadAlongside() {
    ReadOffice();
}

void frmAdministration::txtTOfficeNo_Change() {
    ReadOffice();
}

// Until the number has its three characters, no office is shown.
void frmAdministration::ReadOffice() {
    const QString number = txtTOfficeNo->text();
    QStringList shown;
    if (number.size() == kOfficeNumberLength) {
        try {
            WaitPointer wait;
            dao::Database db = OpenOfficeDatabase();
            dao::Recordset offices = db.OpenRecordset(QStringLiteral("Tax Offices"));
            offices.SetIndex(QStringLiteral("District Code"));
            offices.Seek(QStringLiteral("="), {number});
            if (!offices.NoMatch()) {
                QStringList fields{QStringLiteral("Name")};
                fields << OfficeDetailFields(false);
                if (laterLayout_) {
                    fields << QStringLiteral("Office No");
                }
                for (const QString& field : fields) {
                    shown << NullToEmpty(offices.Fields(field));
                }
            }
        } catch (const std::exception& error) {
            shown.clear();
            ReportError(kModule, QStringLiteral("ReadOffice"), error);
        }
    }
    const QList<QLineEdit*> boxes = OfficeBoxes();
    for (int i = 0; i < boxes.size(); ++i) {
        boxes[i]->setText(shown.value(i));
        boxes[i]->setCursorPosition(0);  // the start of a long line shows
    }
}

void frmAdministration::cm3Select_Click() {
    ShowModal(QStringLiteral("frmSelectOffice"));
}

}  // namespace quillon
