#include "sections/frmHelpContribs.h"

namespace quillon {

namespace {

const char* const kHelp =
    "<p><b>Type</b> &mdash; click the box to go through RAP (retirement annuity payments), "
    "PPC (personal pension contributions), FSAVC (FSAVC schemes) and back to blank. "
    "Retirement annuity payments are made gross and FSAVC payments net, so the N/G box is "
    "set for them; for personal pension contributions the N/G box may be clicked. Clearing "
    "the type clears the line's S/R and N/G boxes too.</p>"
    "<p><b>S/R</b> &mdash; S (single payment), R (regular payments).</p>"
    "<p><b>N/G</b> &mdash; N (payment was made net of tax), G (payment was made gross).</p>"
    "<p><b>Date</b> &mdash; for a single payment, the date of the payment; for regular "
    "payments, the date of the first payment.</p>"
    "<p><b>Amount</b> &mdash; for a single payment, the amount paid; for regular payments, "
    "the amount paid annually. A payment made net is entered as the amount after tax.</p>";

}  // namespace

frmHelpContribs::frmHelpContribs(QWidget* parent)
    : HelpScreen(kFormName, QStringLiteral("Pension Contributions Help"),
                 QString::fromLatin1(kHelp), parent) {}

}  // namespace quillon
