#include "sections/frmHelpIndics.h"

namespace quillon {

namespace {

const char* const kText = R"(
<h3>Indicators</h3>
<p>Indicators are ten yes-or-no marks that your practice gives its own meaning, such as
<i>needs a reminder</i> or <i>pays by direct debit</i>. The personal section, each
employment and each business have ten of their own.</p>
<h4>Ticking</h4>
<p>Click a client in the list, then tick or untick the boxes: each tick is saved at
once.</p>
<h4>Descriptions</h4>
<p>The description beside each tick is the same for every client of the database. You
can change them here; when you close the screen you are asked whether the changes should
apply to all clients.</p>
<h4>Finding clients</h4>
<p>Click the small box beside an indicator to list only the clients who have it ticked
(<b>Y</b>), click again for those who have it unticked (<b>N</b>), and again to take the
filter off. All the filters that are set must agree. A client ticked just now shows in
the filtered list when a filter box is next clicked.</p>
<p>The list can be printed under the title above it, made into a merge data file, or, on
the personal indicators, printed as address labels.</p>
)";

}  // namespace

frmHelpIndics::frmHelpIndics(QWidget* parent)
    : HelpScreen(kFormName, QStringLiteral("Indicators Help"), QString::fromUtf8(kText), parent) {}

}  // namespace quillon
