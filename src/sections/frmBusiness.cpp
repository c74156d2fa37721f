#include "sections/frmBusiness.h"

#include "data/convert.h"
#include "platform/services.h"
#include "platform/widgets_gui.h"
#include "shell/forms_gui.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>

namespace quillon {

namespace {

using Rule = FieldRule;

const FieldRow kBusiness[] = {
    {"txtBDescription", "Description", Rule::Text, "Description of business"},
    {"txtBName", "Business Name", Rule::Text, "Name of business"},
    {"txtBAddress(1)", "Address 1", Rule::Text, "Address"},
    {"txtBAddress(2)", "Address 2", Rule::Text, ""},
    {"txtBAddress(3)", "Address 3", Rule::Text, ""},
    {"txtBAddress(4)", "Address 4", Rule::Text, ""},
    {"txtBAddress(5)", "Address 5", Rule::Text, ""},
    {"txtBAddress(6)", "Postcode", Rule::Text, "Postcode"},
    {"txtBEmail", "Email", Rule::Text, "Email address"},
    {"txtTelephone(4)", "Telephone", Rule::Text, "Telephone"},
    {"txtTelephone(5)", "Fax", Rule::Text, "Fax"},
    {"txtTelephone(6)", "Mobile", Rule::Text, "Mobile"},
};

// Commencement, cessation, then the year end: the order of the checks.
const FieldRow kDates[] = {
    {"txtCommencement", "Commencement", Rule::Date, "Commencement"},
    {"txtCessation", "Cessation", Rule::Date, "Cessation"},
    {"txtEndDay", "Year end day", Rule::Digits, "Year end day"},
    {"txtEndMonth", "Year end month", Rule::Digits, "Year end month"},
};

const OptionField kType{"Type",
                        "Type of business",
                        "op3BType",
                        {"Sole Trader", "Partnership", "Limited company"},
                        "cmdClearType"};

const EarningsNames kEarnings{"txtBYear", "txtBNRE", "cm3BNRE"};

int LastDayOfYearEnd(int month) {
    switch (month) {
        case 2:
            return 28;  // a year end is never 29 February, leap year or not
        case 4:
        case 6:
        case 9:
        case 11:
            return 30;
        default:
            return 31;
    }
}

}  // namespace

frmBusiness::frmBusiness(QWidget* parent)
    : EarningsScreen(kBusinessSection, "frmIBusiness", parent) {
    setWindowTitle(QStringLiteral("Business"));
    QGroupBox* business = FieldGroup(QString(), kBusiness);
    QGroupBox* dates = FieldGroup(QString(), kDates);
    QLineEdit* day = Box(QStringLiteral("txtEndDay"));
    QLineEdit* month = Box(QStringLiteral("txtEndMonth"));
    AddCheck(
        day, [this] { return ValidYearEnd(); }, [this] { InvalidYearEnd(); }, {day, month});
    chkMain = FlagBox("chkMain", "Main business", "Main Business", "chkMain_Click");
    cm3Notes = Named<QPushButton>(QStringLiteral("cm3Notes"), QStringLiteral("Note"), this);
    cm3List = Named<QPushButton>(QStringLiteral("cm3List"), QStringLiteral("&List"), this);
    FitShortBoxes(dates);
    // The business's own boxes take the room that the others leave.
    Arrange({{business}, {dates, OptionGroupBox(kType), chkMain}, {EarningsList(kEarnings)}},
            {1, 0, 0});
    AddCommand(PageControls("spnBPage", "lblBPage"));
    for (QPushButton* button : {cm3Notes, cm3List, cm3Indicators}) {
        AddCommand(button);
    }
    connect(cm3Notes, &QPushButton::clicked, this, &frmBusiness::cm3Notes_Click);
    connect(cm3List, &QPushButton::clicked, this, &frmBusiness::cm3List_Click);
}

bool frmBusiness::ValidYearEnd() const {
    const QString day = Box(QStringLiteral("txtEndDay"))->text();
    const QString month = Box(QStringLiteral("txtEndMonth"))->text();
    if (day.isEmpty() || month.isEmpty()) {
        return true;  // half a year end is let stand
    }
    const double dayNumber = Val(day);
    const double monthNumber = Val(month);
    if (monthNumber < 1 || monthNumber > 12) {
        return false;
    }
    return dayNumber >= 1 && dayNumber <= LastDayOfYearEnd(static_cast<int>(monthNumber));
}

void frmBusiness::InvalidYearEnd() {
    Beep();
    MsgBox(QStringLiteral("Invalid Year-end date"), vbOKOnly, QStringLiteral("Business"));
}

void frmBusiness::cm3Notes_Click() {
    ShowModal(QStringLiteral("frmNBusiness"));
}

// The list reads every business table: this page's changes go first.
void frmBusiness::cm3List_Click() {
    WriteCRecord();
    ShowModal(QStringLiteral("frmYearEnd"));
}

}  // namespace quillon
