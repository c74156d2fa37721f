#include "sections/frmPersonal.h"

#include "platform/widgets_gui.h"
#include "shell/forms_gui.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>

namespace quillon {

namespace {

using Rule = FieldRule;

const FieldRow kNames[] = {
    {"txtFullName", "Full Name", Rule::Text, "Full name"},
    {"txtTitle", "Title", Rule::Text, "Title"},
    {"txtCalled", "Called", Rule::Text, "Called"},
    {"txtDOB", "Date of Birth", Rule::BirthDate, "Date of birth"},
};

const FieldRow kAddress[] = {
    {"txtAddress(1)", "Address 1"}, {"txtAddress(2)", "Address 2"},
    {"txtAddress(3)", "Address 3"}, {"txtAddress(4)", "Address 4"},
    {"txtAddress(5)", "Address 5"}, {"txtAddress(6)", "Address 6", Rule::Text, "Postcode"},
};

const FieldRow kTelephones[] = {
    {"txtTelephone(0)", "Home Telephone", Rule::Text, "Home"},
    {"txtTelephone(1)", "Work Telephone", Rule::Text, "Work"},
    {"txtTelephone(2)", "Fax", Rule::Text, "Fax"},
    {"txtTelephone(3)", "Mobile", Rule::Text, "Mobile"},
};

// The dates of the spouse and the children follow the client's in the order
// they are checked. Children's dates are shown as stored.
const FieldRow kFamily[] = {
    {"txtSpouse(0)", "Spouse First", Rule::Text, "Spouse"},
    {"txtSpouse(1)", "Spouse Last", Rule::Text, nullptr},
    {"txtSpouseDOB", "Spouse DOB", Rule::BirthDate, nullptr},
    {"txtChild(0)", "Child 1 Name", Rule::Text, "Child 1"},
    {"txtChildDOB(0)", "Child 1 DOB", Rule::Date, nullptr},
    {"txtChild(1)", "Child 2 Name", Rule::Text, "Child 2"},
    {"txtChildDOB(1)", "Child 2 DOB", Rule::Date, nullptr},
    {"txtChild(2)", "Child 3 Name", Rule::Text, "Child 3"},
    {"txtChildDOB(2)", "Child 3 DOB", Rule::Date, nullptr},
    {"txtChild(3)", "Child 4 Name", Rule::Text, "Child 4"},
    {"txtChildDOB(3)", "Child 4 DOB", Rule::Date, nullptr},
};

// "Not stated" has no button: it is the cleared group.
const OptionField kSex{"Sex", "Sex", "op3Sex", {"Male", "Female"}, "cmdClearSex"};
const OptionField kMarital{"Marital Status",
                           "Marital status",
                           "op3Marital",
                           {"Single", "Married", "Separated", "Divorced", "Widowed"},
                           "cmdClearMarital"};

}  // namespace

// Blind and the indicators of the row belong to the indicators screen and are
// never written from here.
frmPersonal::frmPersonal(QWidget* parent) : SectionScreen(kPersonalSection, parent) {
    setWindowTitle(QStringLiteral("Personal"));
    QGroupBox* names = FieldGroup(QString(), kNames);
    QGroupBox* address = FieldGroup(tr("Address"), kAddress);
    QGroupBox* telephones = FieldGroup(tr("Telephone"), kTelephones);
    QGroupBox* family = FieldGroup(tr("Family"), kFamily);
    auto* options = new QWidget(Body());
    auto* optionRow = new QHBoxLayout(options);
    optionRow->setContentsMargins(0, 0, 0, 0);
    optionRow->addWidget(OptionGroupBox(kSex));
    optionRow->addWidget(OptionGroupBox(kMarital));
    cm3Spouse = Named<QPushButton>(QStringLiteral("cm3Spouse"), QStringLiteral("Select"), family);
    cm3Indicators = Named<QPushButton>(QStringLiteral("cm3Indicators"), tr("Indicators"), family);
    auto* familyGrid = static_cast<QGridLayout*>(family->layout());
    const int below = familyGrid->rowCount();
    familyGrid->addWidget(cm3Spouse, below, 3);
    familyGrid->addWidget(cm3Indicators, below + 1, 3);
    Arrange({{names, address}, {telephones, options}, {family}});
    connect(cm3Spouse, &QPushButton::clicked, this, &frmPersonal::cm3Spouse_Click);
    connect(cm3Indicators, &QPushButton::clicked, this,
            [] { ShowModal(QStringLiteral("frmIPersonal")); });
}

void frmPersonal::cm3Spouse_Click() {
    ShowModal(QStringLiteral("frmSpouseList"));
}

}  // namespace quillon
