#include "sections/frmHelpDiary.h"

namespace quillon {

namespace {

const char* const kText = R"(
<h3>The diary</h3>
<p>The diary keeps the progress of each client's tax work in four tax years. Turn the
pages with the arrows beside the page number; the <b>Tax Year</b> box names the year a
page stands for, for all clients.</p>
<h4>Standard events</h4>
<p>The twenty standard events are the same for every client of the database: change a
description and you are asked whether the change should apply to all clients. Each client
has a date of their own beside each standard event. The dates are free text of up to
eight characters, so a note such as <i>ask</i> can stand in place of a date.</p>
<p>A standard event whose description begins with an asterisk (*) becomes a column of
the diary report.</p>
<h4>Client events</h4>
<p>The twenty client events and their dates belong to the client alone.</p>
<h4>The list</h4>
<p><b>List On</b> shows the list of clients. Click the small box beside a standard event
to list only the clients who have a date there (<b>Y</b>), click it again for those who
have none (<b>N</b>), and again to take the filter off. All the filters that are set
must agree. The list can be printed, made into a merge data file, or reported on with
<b>Report</b>. With the list off, <b>Print</b> prints this client's diary.</p>
<h4>Clearing</h4>
<p><b>Clear</b> empties this client's dates and client events of the page shown.
<b>Clear All</b> does the same for every client of the database; make a backup first.
The standard events and the tax year stay, ready for the next year's work.</p>
)";

}  // namespace

frmHelpDiary::frmHelpDiary(QWidget* parent)
    : HelpScreen(kFormName, tr("Diary Help"), QString::fromUtf8(kText), parent) {}

}  // namespace quillon
