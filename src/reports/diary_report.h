#pragma once
// The diary progress sheet: a line for each client of the diary's list, a
// column for each marked standard event with the client's date under it, and
// the counts at the foot. A practice marks an event as a column by beginning
// its description with an asterisk.

#include "data/data_access.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace quillon {

// Which Administration field stands beside each name (DIARY REPORT REFERENCE).
enum DiaryReportReference : qint16 {
    drNone = 0,
    drClientReference = 1,
    drNINumber = 2,
    drTaxReference = 3,
};

// What every page shows around the lines: the conditions, the diary's list
// title and tax year, and its twenty event descriptions.
struct DiaryReportSheet {
    QString partner;
    QString manager;
    QString assistant;
    QString office;
    QString title;
    QString taxYear;
    QStringList events;
};

struct DiaryReport {
    DiaryReportSheet sheet;
    qint16 reference = drNone;
    int diaryPage = 1;
    QStringList entries;  // last name, ", ", first names
};

// Draws the frame of page ReportPageNumber: head, foot, column heads, the
// events' titles and the rules.
void DrawDiaryPage(const DiaryReportSheet& sheet);

// Called with each entry's number, from 1, as it is read.
using DiaryReportProgress = std::function<void(int number)>;

enum class DiaryReportOutcome {
    Drawn,    // the document stands finished, to be shown
    Refused,  // no printer would take it; the user has been told
    Failed,   // the database failed: `failure` says how, and nothing is drawn
};

// Reads the clients of the report's entries, then opens the document "Diary
// Report" and draws it whole.
DiaryReportOutcome PrintDiaryReport(const DiaryReport& report, ErrorDetails& failure,
                                    const DiaryReportProgress& progress = {});

}  // namespace quillon
