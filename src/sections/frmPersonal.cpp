#include "sections/frmPersonal.h"

#include "data/ql_date.h"
#include "data/validate.h"
#include "platform/widgets_gui.h"
#include "shell/forms_gui.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace quillon {

frmPersonal::frmPersonal(QWidget* parent) : SectionScreen(kPersonalSection, parent) {
    setWindowTitle(QStringLiteral("Personal"));
    auto* columns = new QHBoxLayout(Body());
    auto* left = new QVBoxLayout;
    left->addWidget(BuildNames());
    left->addWidget(BuildAddress());
    auto* right = new QVBoxLayout;
    right->addWidget(BuildTelephones());
    right->addWidget(BuildOptions());
    columns->addLayout(left);
    columns->addLayout(right);
    columns->addWidget(BuildFamily(), 1);
    BindFields();
    // In the order CheckDates tests them.
    AddDateBox(txtDOB, ValidBirthDate);
    AddDateBox(txtSpouseDOB, ValidBirthDate);
    for (QLineEdit* box : txtChildDOB) {
        AddDateBox(box, ValidDate);
    }
    connect(cmdClearSex, &QPushButton::clicked, this, [this] { sex_->Clear(); });
    connect(cmdClearMarital, &QPushButton::clicked, this, [this] { marital_->Clear(); });
    connect(cm3Spouse, &QPushButton::clicked, this, &frmPersonal::cm3Spouse_Click);
}

frmPersonal::~frmPersonal() = default;

QWidget* frmPersonal::BuildNames() {
    auto* frame = new QGroupBox(Body());
    auto* form = new QFormLayout(frame);
    txtFullName = Named<QLineEdit>(QStringLiteral("txtFullName"), frame);
    txtTitle = Named<QLineEdit>(QStringLiteral("txtTitle"), frame);
    txtCalled = Named<QLineEdit>(QStringLiteral("txtCalled"), frame);
    txtDOB = Named<QLineEdit>(QStringLiteral("txtDOB"), frame);
    form->addRow(tr("Full name"), txtFullName);
    form->addRow(tr("Title"), txtTitle);
    form->addRow(tr("Called"), txtCalled);
    form->addRow(tr("Date of birth"), txtDOB);
    return frame;
}

// txtAddress(1) to txtAddress(6).
QWidget* frmPersonal::BuildAddress() {
    auto* frame = new QGroupBox(tr("Address"), Body());
    auto* form = new QFormLayout(frame);
    for (int line = 1; line <= 6; ++line) {
        txtAddress[line] = Named<QLineEdit>(QStringLiteral("txtAddress(%1)").arg(line), frame);
        form->addRow(line == 6 ? QStringLiteral("Postcode") : QString(), txtAddress[line]);
    }
    return frame;
}

// txtTelephone(0) to txtTelephone(3).
QWidget* frmPersonal::BuildTelephones() {
    auto* frame = new QGroupBox(tr("Telephone"), Body());
    auto* form = new QFormLayout(frame);
    const QString labels[] = {QStringLiteral("Home"), QStringLiteral("Work"), QStringLiteral("Fax"),
                              QStringLiteral("Mobile")};
    for (int i = 0; i < 4; ++i) {
        txtTelephone[i] = Named<QLineEdit>(QStringLiteral("txtTelephone(%1)").arg(i), frame);
        form->addRow(labels[i], txtTelephone[i]);
    }
    return frame;
}

// txtSpouse(0) and txtSpouse(1), txtChild(0) to txtChild(3) each beside its
// txtChildDOB.
QWidget* frmPersonal::BuildFamily() {
    auto* frame = new QGroupBox(tr("Family"), Body());
    auto* grid = new QGridLayout(frame);
    txtSpouse[0] = Named<QLineEdit>(QStringLiteral("txtSpouse(0)"), frame);
    txtSpouse[1] = Named<QLineEdit>(QStringLiteral("txtSpouse(1)"), frame);
    txtSpouseDOB = Named<QLineEdit>(QStringLiteral("txtSpouseDOB"), frame);
    cm3Spouse = Named<QPushButton>(QStringLiteral("cm3Spouse"), QStringLiteral("Select"), frame);
    grid->addWidget(new QLabel(tr("Spouse"), frame), 0, 0);
    grid->addWidget(txtSpouse[0], 0, 1);
    grid->addWidget(txtSpouse[1], 0, 2);
    grid->addWidget(txtSpouseDOB, 0, 3);
    grid->addWidget(cm3Spouse, 1, 3);
    for (int i = 0; i < 4; ++i) {
        txtChild[i] = Named<QLineEdit>(QStringLiteral("txtChild(%1)").arg(i), frame);
        txtChildDOB[i] = Named<QLineEdit>(QStringLiteral("txtChildDOB(%1)").arg(i), frame);
        grid->addWidget(new QLabel(tr("Child %1").arg(i + 1), frame), i + 2, 0);
        grid->addWidget(txtChild[i], i + 2, 1, 1, 2);
        grid->addWidget(txtChildDOB[i], i + 2, 3);
    }
    cm3Indicators = Named<QPushButton>(QStringLiteral("cm3Indicators"), tr("Indicators"), frame);
    grid->addWidget(cm3Indicators, 6, 3);
    grid->setRowStretch(7, 1);
    return frame;
}

// op3Sex(1), op3Sex(2) with cmdClearSex; op3Marital(1) to op3Marital(5) with
// cmdClearMarital. "Not stated" has no button: it is the cleared group.
QWidget* frmPersonal::BuildOptions() {
    auto* panel = new QWidget(Body());
    auto* row = new QHBoxLayout(panel);
    row->setContentsMargins(0, 0, 0, 0);
    auto* sexFrame = new QGroupBox(tr("Sex"), panel);
    auto* sexLayout = new QVBoxLayout(sexFrame);
    const QString sexes[] = {QStringLiteral("Male"), QStringLiteral("Female")};
    std::vector<QAbstractButton*> sexButtons;
    for (int i = 1; i <= 2; ++i) {
        op3Sex[i] =
            Named<QRadioButton>(QStringLiteral("op3Sex(%1)").arg(i), sexes[i - 1], sexFrame);
        sexLayout->addWidget(op3Sex[i]);
        sexButtons.push_back(op3Sex[i]);
    }
    cmdClearSex = Named<QPushButton>(QStringLiteral("cmdClearSex"), tr("Clear"), sexFrame);
    sexLayout->addWidget(cmdClearSex);
    auto* maritalFrame = new QGroupBox(tr("Marital status"), panel);
    auto* maritalLayout = new QVBoxLayout(maritalFrame);
    const QString states[] = {QStringLiteral("Single"), QStringLiteral("Married"),
                              QStringLiteral("Separated"), QStringLiteral("Divorced"),
                              QStringLiteral("Widowed")};
    std::vector<QAbstractButton*> maritalButtons;
    for (int i = 1; i <= 5; ++i) {
        op3Marital[i] = Named<QRadioButton>(QStringLiteral("op3Marital(%1)").arg(i), states[i - 1],
                                            maritalFrame);
        maritalLayout->addWidget(op3Marital[i]);
        maritalButtons.push_back(op3Marital[i]);
    }
    cmdClearMarital =
        Named<QPushButton>(QStringLiteral("cmdClearMarital"), tr("Clear"), maritalFrame);
    maritalLayout->addWidget(cmdClearMarital);
    row->addWidget(sexFrame);
    row->addWidget(maritalFrame);
    sex_ = std::make_unique<OptionGroup>(sexButtons);
    marital_ = std::make_unique<OptionGroup>(maritalButtons);
    return panel;
}

// Blind and the indicators of the row belong to the indicators screen and are
// never written from here.
void frmPersonal::BindFields() {
    RecordImage& image = Image();
    image.BindText(txtFullName, QStringLiteral("Full Name"));
    image.BindText(txtTitle, QStringLiteral("Title"));
    image.BindText(txtCalled, QStringLiteral("Called"));
    image.BindText(txtDOB, QStringLiteral("Date of Birth"), ExpandBirthYear);
    for (int line = 1; line <= 6; ++line) {
        image.BindText(txtAddress[line], QStringLiteral("Address %1").arg(line));
    }
    const QString telephones[] = {QStringLiteral("Home Telephone"),
                                  QStringLiteral("Work Telephone"), QStringLiteral("Fax"),
                                  QStringLiteral("Mobile")};
    for (int i = 0; i < 4; ++i) {
        image.BindText(txtTelephone[i], telephones[i]);
    }
    image.BindText(txtSpouse[0], QStringLiteral("Spouse First"));
    image.BindText(txtSpouse[1], QStringLiteral("Spouse Last"));
    image.BindText(txtSpouseDOB, QStringLiteral("Spouse DOB"), ExpandBirthYear);
    // Child 1 Name to Child 4 Name, Child 1 DOB to Child 4 DOB; shown as stored.
    for (int i = 0; i < 4; ++i) {
        image.BindText(txtChild[i], QStringLiteral("Child %1 Name").arg(i + 1));
        image.BindText(txtChildDOB[i], QStringLiteral("Child %1 DOB").arg(i + 1));
    }
    image.BindOptions(sex_.get(), QStringLiteral("Sex"));
    image.BindOptions(marital_.get(), QStringLiteral("Marital Status"));
}

void frmPersonal::TellBadDate(QLineEdit* box) {
    // Dates of birth may carry the century; the others are always dd/mm/yy.
    if (box == txtDOB || box == txtSpouseDOB) {
        InvalidBirthDate();
    } else {
        InvalidDate();
    }
}

void frmPersonal::cm3Spouse_Click() {
    ShowModal(QStringLiteral("frmSpouseList"));
}

}  // namespace quillon
