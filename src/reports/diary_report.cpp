#include "reports/diary_report.h"

#include "correspondence/client_row_set.h"
#include "correspondence/list_entries.h"
#include "data/database_schema.h"
#include "platform/files.h"
#include "platform/services.h"
#include "reports/vsprint.h"
#include "shell/variables.h"

#include <array>
#include <exception>

namespace quillon {

namespace {

constexpr int kDiaryReportColumns = 6;
constexpr int kDiaryReportLines = 60;

// The event row (1 to 20) of each column, 0 for a column with no event.
using DiaryEventTable = std::array<int, kDiaryReportColumns>;

// The columns of `events`: each description that, trimmed, begins with "*" and
// has more after it, in row order, until six are taken.
DiaryEventTable DiaryEventColumns(const QStringList& events) {
    DiaryEventTable columns{};
    int taken = 0;
    for (int row = 1; row <= kDiaryEvents && taken < kDiaryReportColumns; ++row) {
        const QString description = events.value(row - 1).trimmed();
        if (description.size() > 1 && description.startsWith(QLatin1Char('*'))) {
            columns[taken++] = row;
        }
    }
    return columns;
}

const QString kDocumentName = QStringLiteral("Diary Report");
const QString kAdministration = QStringLiteral("Administration");

// The page in millimetres: the left and right edges of the table, its head
// and foot lines, and the line rows.
constexpr double kLeft = 5;
constexpr double kRight = 190;
constexpr double kReferenceRight = 25;
constexpr double kNameRight = 70;
constexpr double kTableTop = 7;
constexpr double kHeadsFoot = 27;
constexpr double kTableFoot = 267;
constexpr double kFirstBaseline = 30;
constexpr double kLineHeight = 4;
constexpr double kColumnWidth = 20;
constexpr double kThick = 0.4;
constexpr double kThin = 0.2;

// Column k (1 to 6) spans from here plus 20 k to 20 mm further on.
constexpr double kColumnOrigin = 50;

const char* const kReferenceFields[] = {nullptr, "Client Reference", "NI Number", "Tax Reference"};

// A client's line as read: nothing prints for an entry that is no longer a
// client or that a condition drops.
struct DiaryLine {
    bool printed = false;
    QString reference;
    QString name;
    std::array<QString, kDiaryReportColumns> dates;
};

double ColumnLeft(int k) {
    return kColumnOrigin + kColumnWidth * k;
}

double Baseline(int row) {
    return kFirstBaseline + kLineHeight * row;
}

QString Conditions(const DiaryReportSheet& sheet) {
    QStringList set;
    for (const QString* text : {&sheet.partner, &sheet.manager, &sheet.assistant, &sheet.office}) {
        if (!text->isEmpty()) {
            set << *text;
        }
    }
    return set.join(QLatin1Char('/'));
}

void DrawRules() {
    VSDrawHLine(kThick, kLeft, kRight, kTableTop);
    VSDrawHLine(kThick, kLeft, kRight, kHeadsFoot);
    // A thin rule 1 mm below each baseline but the last, whose rule is the foot's.
    for (int row = 0; row < kDiaryReportLines - 1; ++row) {
        VSDrawHLine(kThin, kLeft, kRight, Baseline(row) + 1);
    }
    VSDrawHLine(kThick, kLeft, kRight, kTableFoot);
    VSDrawVLine(kThick, kLeft, kTableTop, kTableFoot);
    VSDrawVLine(kThin, kReferenceRight, kTableTop, kTableFoot);
    for (int k = 1; k <= kDiaryReportColumns; ++k) {
        VSDrawVLine(kThin, ColumnLeft(k), kTableTop, kTableFoot);
    }
    VSDrawVLine(kThick, kRight, kTableTop, kTableFoot);
}

// Whether the client's Administration row meets every condition that is set:
// the field must be there and equal to the condition exactly.
bool MeetsConditions(const ClientRowSet& rows, const DiaryReportSheet& sheet) {
    const std::pair<const QString*, const char*> conditions[] = {{&sheet.partner, "Partner"},
                                                                 {&sheet.manager, "Manager"},
                                                                 {&sheet.assistant, "Assistant"},
                                                                 {&sheet.office, "Office Number"}};
    for (const auto& [text, field] : conditions) {
        if (text->isEmpty()) {
            continue;
        }
        const QVariant value = rows.Value(kAdministration, QLatin1String(field));
        if (value.isNull() || value.toString() != *text) {
            return false;
        }
    }
    return true;
}

DiaryLine ReadLine(const ClientRowSet& rows, const DiaryReport& report, const QString& diaryTable,
                   const DiaryEventTable& columns) {
    DiaryLine line;
    line.printed = MeetsConditions(rows, report.sheet);
    if (!line.printed) {
        return line;
    }
    if (report.reference > drNone && report.reference <= drTaxReference) {
        line.reference =
            rows.Text(kAdministration, QLatin1String(kReferenceFields[report.reference]))
                .remove(QLatin1Char(' '));
    }
    for (int k = 0; k < kDiaryReportColumns; ++k) {
        if (columns[k] > 0) {
            const QString date =
                rows.Text(diaryTable, QStringLiteral("Standard Date %1").arg(columns[k]));
            line.dates[k] = date.trimmed().isEmpty() ? QString() : date;
        }
    }
    return line;
}

// Every entry's line, read in short read transactions so that no other
// workstation waits on the file for more than a moment.
std::vector<DiaryLine> ReadLines(const DiaryReport& report, const DiaryEventTable& columns,
                                 const DiaryReportProgress& progress) {
    const QString diaryTable = QStringLiteral("Diary %1").arg(report.diaryPage);
    dao::Database db = dao::OpenDatabase(PathOnDisk(ClientDatabasePath()), false, true);
    ClientRowSet rows(db, {kAdministration, diaryTable});
    std::vector<DiaryLine> lines;
    lines.reserve(size_t(report.entries.size()));
    ReadInShortTransactions(db, report.entries.size(), progress, [&](qsizetype i) {
        const ClientName client = ClientOfEntry(report.entries.at(i));
        if (!rows.Seek(client)) {
            lines.emplace_back();
            return;
        }
        lines.push_back(ReadLine(rows, report, diaryTable, columns));
        lines.back().name = client.last + QStringLiteral(", ") + client.first;
    });
    return lines;
}

// The counts of the report: [0] the clients printed, [k] the dates in column k.
using DiaryCounts = std::array<int, kDiaryReportColumns + 1>;

void DrawLine(const DiaryLine& line, int row, DiaryCounts& counts) {
    const double y = Baseline(row);
    if (!line.reference.isEmpty()) {
        VSTextAt(kLeft + 1, y, line.reference);
    }
    ++counts[0];
    VSTextAt(kReferenceRight + 1, y, line.name);
    for (int k = 1; k <= kDiaryReportColumns; ++k) {
        if (!line.dates[k - 1].isEmpty()) {
            ++counts[k];
            VSTextCentred(ColumnLeft(k), ColumnLeft(k) + kColumnWidth, y, line.dates[k - 1]);
        }
    }
}

void DrawTotals(const DiaryCounts& counts, int row) {
    const double y = Baseline(row);
    VSTextCentred(kLeft + 1, kReferenceRight, y, QStringLiteral("TOTALS"));
    VSTextCentred(kReferenceRight + 1, kNameRight, y, QString::number(counts[0]));
    for (int k = 1; k <= kDiaryReportColumns; ++k) {
        VSTextCentred(ColumnLeft(k), ColumnLeft(k) + kColumnWidth, y, QString::number(counts[k]));
    }
}

// Page by page: a new page starts when the one before holds its sixty lines,
// also for an entry that then prints nothing.
void DrawLines(const DiaryReportSheet& sheet, const std::vector<DiaryLine>& lines) {
    const auto nextPage = [&sheet] {
        ++ReportPageNumber;
        VSNextSheet();
        DrawDiaryPage(sheet);
    };
    DiaryCounts counts{};
    ReportPageNumber = 1;
    DrawDiaryPage(sheet);
    int row = 0;
    for (const DiaryLine& line : lines) {
        if (row == kDiaryReportLines) {
            row = 0;
            nextPage();
        }
        if (line.printed) {
            DrawLine(line, row++, counts);
        }
    }
    // A line stays empty above the totals.
    if (++row >= kDiaryReportLines) {
        row = 0;
        nextPage();
    }
    DrawTotals(counts, row);
}

}  // namespace

void DrawDiaryPage(const DiaryReportSheet& sheet) {
    VSSetFontName(QStringLiteral("Arial"));
    VSSetFont(9, true, false);
    VSTextAt(kLeft, 3, Conditions(sheet));
    VSTextCentred(kLeft, kRight, 3, sheet.title);
    VSTextRightAt(kRight, 3, sheet.taxYear);
    VSTextAt(kLeft, 274, Today().toString(QStringLiteral("dd/MM/yyyy")));
    VSTextRightAt(kRight, 274, QString::number(ReportPageNumber));
    VSBoldOff();
    VSTextCentred(kLeft, kReferenceRight, 24, QStringLiteral("Reference"));
    VSTextCentred(kReferenceRight, kNameRight, 24, QStringLiteral("Name"));
    const DiaryEventTable columns = DiaryEventColumns(sheet.events);
    for (int k = 1; k <= kDiaryReportColumns; ++k) {
        if (columns[k - 1] > 0) {
            VSTextBox(ColumnLeft(k) + 0.5, 9, kColumnWidth - 1, 16,
                      sheet.events.at(columns[k - 1] - 1).trimmed().mid(1));
        }
    }
    DrawRules();
}

DiaryReportOutcome PrintDiaryReport(const DiaryReport& report, ErrorDetails& failure,
                                    const DiaryReportProgress& progress) {
    std::vector<DiaryLine> lines;
    try {
        lines = ReadLines(report, DiaryEventColumns(report.sheet.events), progress);
    } catch (const std::exception& error) {
        failure = DetailsOf(error);
        return DiaryReportOutcome::Failed;
    }
    if (!VSOpenReport(kDocumentName)) {
        return DiaryReportOutcome::Refused;
    }
    DrawLines(report.sheet, lines);
    VSEndDocument();
    return DiaryReportOutcome::Drawn;
}

}  // namespace quillon
