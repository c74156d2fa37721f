#include "sections/frmEmployment.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace quillon {

namespace {

using Rule = FieldRule;

const FieldRow kEmployer[] = {
    {"txtEmployer", "Employer", Rule::Text, "Employer"},
    {"txtEAddress(1)", "Address 1", Rule::Text, "Address"},
    {"txtEAddress(2)", "Address 2", Rule::Text, ""},
    {"txtEAddress(3)", "Address 3", Rule::Text, ""},
    {"txtEAddress(4)", "Address 4", Rule::Text, ""},
    {"txtEAddress(5)", "Address 5", Rule::Text, ""},
    {"txtEAddress(6)", "Postcode", Rule::Text, "Postcode"},
};

// Start before finish: the order in which the dates are checked.
const FieldRow kJob[] = {
    {"txtOccupation", "Occupation", Rule::Text, "Occupation"},
    {"txtPAYE", "PAYE Reference", Rule::Text, "PAYE Reference"},
    {"txtEStart", "Start Date", Rule::Date, "Start Date"},
    {"txtEFinish", "Finish Date", Rule::Date, "Finish Date"},
};

const EarningsNames kEarnings{"txtEYear", "txtENRE", "cm3ENRE"};

}  // namespace

// The email and the indicators of the table are not shown here; they are
// never written from this screen.
frmEmployment::frmEmployment(QWidget* parent)
    : EarningsScreen(kEmploymentSection, "frmIEmployment", parent) {
    setWindowTitle(QStringLiteral("Employment"));
    QGroupBox* employer = FieldGroup(QString(), kEmployer);
    QGroupBox* job = FieldGroup(QString(), kJob);
    FitShortBoxes(job);
    // Each flag reports its own failures: "Procedure: chkDirector_Click" and so on.
    chkDirector = FlagBox("chkDirector", "Director", "Director", "chkDirector_Click");
    chkClose = FlagBox("chkClose", "Close Company", "Close", "chkClose_Click");
    chkMain = FlagBox("chkMain", "Main Employment", "Main Employment", "chkMain_Click");
    auto* flags = new QWidget(Body());
    auto* flagColumn = new QVBoxLayout(flags);
    flagColumn->setContentsMargins(4, 0, 0, 0);
    for (QCheckBox* flag : {chkDirector, chkClose, chkMain}) {
        flagColumn->addWidget(flag);
    }
    Arrange({{employer}, {job, flags}, {EarningsList(kEarnings)}}, {1, 1, 0});
    AddCommand(PageControls("spnEPage", "lblEPage"));
    AddCommand(cm3Indicators);
}

}  // namespace quillon
