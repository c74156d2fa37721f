#include "reports/client_records.h"

#include "correspondence/client_row_set.h"
#include "correspondence/list_entries.h"
#include "data/client_rows.h"
#include "data/convert.h"
#include "data/currency.h"
#include "data/database_schema.h"
#include "reports/printer_object.h"
#include "reports/report_state.h"
#include "reports/vsprinter_control.h"

#include <QHash>

#include <algorithm>
#include <array>
#include <exception>
#include <span>

namespace quillon {

namespace {

// Where the four columns start, in millimetres from the paper's left edge.
constexpr std::array<double, 4> kColumns{5, 40, 75, 110};
constexpr int kPages = 4;
constexpr int kIndicators = 10;
constexpr int kSharedAssetLines = 15;
constexpr int kAssetLines = 19;
constexpr int kOwnAssetLines[] = {16, 17, 18, 19};
constexpr int kAssetDetailLines = 10;
constexpr int kUserLines = 8;

const char* const kSexes[] = {"Male", "Female"};
const char* const kMaritalStates[] = {"Single", "Married", "Separated", "Divorced", "Widowed"};
const char* const kBusinessTypes[] = {"Sole Trade", "Partnership", "Limited Company"};
const char* const kMonths[] = {"January",   "February", "March",    "April",
                               "May",       "June",     "July",     "August",
                               "September", "October",  "November", "December"};

QString Numbered(const char* prefix, int n) {
    return QLatin1String(prefix) + QLatin1Char(' ') + QString::number(n);
}

QString YesNo(bool value) {
    return value ? QStringLiteral("Yes") : QStringLiteral("No");
}

// A column of a fixed-width line: its width, its side, the blanks after it.
struct FixedColumn {
    int width;
    bool right = false;
    int gap = 1;
};

QString FixedLine(std::span<const FixedColumn> columns, const QStringList& values) {
    QString line;
    for (size_t i = 0; i < columns.size(); ++i) {
        const QString& value = values.at(qsizetype(i));
        line += columns[i].right ? value.rightJustified(columns[i].width, QLatin1Char(' '), true)
                                 : value.leftJustified(columns[i].width, QLatin1Char(' '), true);
        if (i + 1 < columns.size()) {
            line += QString(columns[i].gap, QLatin1Char(' '));
        }
    }
    while (line.endsWith(QLatin1Char(' '))) {
        line.chop(1);
    }
    return line;
}

// Description, date, value and note of an asset line.
constexpr FixedColumn kAssetColumns[] = {{30}, {8}, {10, true}, {40}};
// Provider, contract, type, single or regular, net or gross, date, amount.
constexpr FixedColumn kContributionColumns[] = {{30, false, 2}, {15, false, 2}, {5, false, 3},
                                                {1, false, 3},  {1, false, 3},  {8, false, 2},
                                                {8, true}};

// The printer's current line, written column by column. A text never prints
// over what stands before it: it starts a blank further on, or at its column
// on a new line when it would run off the paper there.
class Lines {
public:
    void Put(int column, const QString& text) {
        const double start = kColumns.at(size_t(column - 1));
        double x = start;
        if (Printer.CurrentX() > 0) {
            x = std::max(start, Printer.CurrentX() + Printer.TextWidth(QStringLiteral(" ")));
            if (x > start && x + Printer.TextWidth(text) > Printer.ScaleWidth()) {
                End();
                x = start;
            }
        }
        // The printer's own overflow would start the next page at its left
        // edge; a line that runs over keeps its column.
        if (Printer.CurrentX() == 0 && Printer.CurrentY() > 0 &&
            Printer.CurrentY() + Printer.TextHeight(text) > Printer.ScaleHeight()) {
            Printer.NewPage();
        }
        Printer.setCurrentX(x);
        Printer.PrintRunOn(text);
    }
    void End() { Printer.Print(); }
    // A section's title: a blank line, then the title underlined at column 1.
    void Title(const QString& title) {
        End();
        Printer.FontUnderline = true;
        Put(1, title);
        Printer.FontUnderline = false;
        End();
    }
    // `label` at column 1 beside the first of `rows`, each a pair of texts at
    // column 2 and `second`; nothing at all when there are no rows.
    void Pairs(const QString& label, const QList<std::pair<QString, QString>>& rows, int second) {
        for (qsizetype i = 0; i < rows.size(); ++i) {
            if (i == 0) {
                Put(1, label);
            }
            Put(2, rows.at(i).first);
            Put(second, rows.at(i).second);
            End();
        }
    }
};

// The descriptions shared by all clients, by the name of their `Common` row.
struct CommonRow {
    QString title;
    QString taxYear;
    std::array<QString, kDiaryEvents + 1> texts;  // 0 unused
};

QHash<QString, CommonRow> ReadCommonRows(dao::Database& db) {
    QStringList names{QStringLiteral("Personal"), QStringLiteral("Assets"), QStringLiteral("User")};
    for (int page = 1; page <= kPages; ++page) {
        names << Numbered("Employment", page) << Numbered("Business", page)
              << Numbered("Diary", page);
    }
    dao::Recordset common = db.OpenRecordset(QStringLiteral("Common"), dao::dbOpenTable);
    common.SetIndex(QStringLiteral("Name"));
    QHash<QString, CommonRow> rows;
    for (const QString& name : names) {
        common.Seek(QStringLiteral("="), {name});
        if (common.NoMatch()) {
            continue;
        }
        CommonRow& row = rows[name];
        row.title = NullToEmpty(common.Fields(QStringLiteral("Title")));
        row.taxYear = NullToEmpty(common.Fields(QStringLiteral("Tax Year")));
        for (int n = 1; n <= kDiaryEvents; ++n) {
            row.texts.at(size_t(n)) = NullToEmpty(common.Fields(Numbered("Text", n)));
        }
    }
    return rows;
}

QString UserTitleOf(const QHash<QString, CommonRow>& common) {
    const QString title = common.value(QStringLiteral("User")).title;
    return title.isEmpty() ? QStringLiteral("User defined") : title;
}

// Tax offices by number, from the offices file beside the client database;
// without that file every office is its number alone.
class OfficeNames {
public:
    QString Text(const QString& number) {
        if (number.isEmpty() || !Open()) {
            return number;
        }
        offices_.Seek(QStringLiteral("="), {number});
        if (offices_.NoMatch()) {
            return number;
        }
        return NullToEmpty(offices_.Fields(QStringLiteral("Name"))) + QStringLiteral(" (") +
               number + QLatin1Char(')');
    }

private:
    dao::Database db_;
    // The file is opened at the first number asked for, if ever.
    bool Open() {
        if (!tried_) {
            tried_ = true;
            try {
                db_ = OpenOfficeDatabase();
                offices_ = db_.OpenRecordset(QStringLiteral("Tax Offices"), dao::dbOpenTable);
                offices_.SetIndex(QStringLiteral("District Code"));
            } catch (const dao::DaoError&) {
                offices_ = dao::Recordset();
            }
        }
        return offices_.IsOpen();
    }

    bool tried_ = false;
    dao::Recordset offices_;
};

// How a row of a section prints its field.
enum class Rule {
    Text,        // the field at column 2
    Address,     // lines 1 to 5 of the field family, one a line at column 2
    Choice,      // the name of the field's number, from 1
    Telephones,  // the four numbers of the personal row
    Spouse,
    Children,    // each named child: `Child n Name` and `Child n DOB`
    Indicators,  // each described indicator and whether it is set
    Director,    // director, and close company at column 3
    Earnings,    // each tax year with net relevant earnings
    YearEnd,
    Office,
};

struct RecordRow {
    const char* label;
    const char* field = nullptr;
    Rule rule = Rule::Text;
    std::span<const char* const> choices = {};
};

const RecordRow kPersonalRows[] = {
    {"Title:", "Title"},
    {"First Names:", "First Names"},
    {"Last Name:", "Last Name"},
    {"Full Name:", "Full Name"},
    {"Called:", "Called"},
    {"Date of Birth:", "Date of Birth"},
    {"Address:", "Address", Rule::Address},
    {"Postcode:", "Address 6"},
    {"Telephone:", nullptr, Rule::Telephones},
    {"Sex:", "Sex", Rule::Choice, kSexes},
    {"Marital Status:", "Marital Status", Rule::Choice, kMaritalStates},
    {"Spouse:", nullptr, Rule::Spouse},
    {"Children:", nullptr, Rule::Children},
    {"Indicators:", nullptr, Rule::Indicators},
};

const RecordRow kAdministrationRows[] = {
    {"Client Ref.:", "Client Reference"},
    {"N.I. Number:", "NI Number"},
    {"Tax Ref.:", "Tax Reference"},
    {"Partner:", "Partner"},
    {"Manager:", "Manager"},
    {"Assistant:", "Assistant"},
    {"Tax Inspector:", "Inspector"},
    {"Tax Office:", "Office Number", Rule::Office},
};

const RecordRow kEmploymentRows[] = {
    {"Employer:", "Employer"},
    {"Address:", "Address", Rule::Address},
    {"Postcode:", "Postcode"},
    {"Occupation:", "Occupation"},
    {"PAYE Reference:", "PAYE Reference"},
    {"Start Date:", "Start Date"},
    {"Finish Date:", "Finish Date"},
    {"Director:", "Director", Rule::Director},
    {"N.R. Earnings:", nullptr, Rule::Earnings},
    {"Indicators:", nullptr, Rule::Indicators},
};

const RecordRow kBusinessRows[] = {
    {"Name:", "Business Name"},
    {"Address:", "Address", Rule::Address},
    {"Postcode:", "Postcode"},
    {"Description:", "Description"},
    {"Type:", "Type", Rule::Choice, kBusinessTypes},
    {"Telephone:", "Telephone"},
    {"Fax:", "Fax"},
    {"Mobile:", "Mobile"},
    {"Email:", "Email"},
    {"Commencement:", "Commencement"},
    {"Cessation:", "Cessation"},
    {"Year End:", nullptr, Rule::YearEnd},
    {"N.R. Earnings:", nullptr, Rule::Earnings},
    {"Indicators:", nullptr, Rule::Indicators},
};

class RecordPrinter {
public:
    RecordPrinter(dao::Database& db, const RecordSections& sections)
        : sections_(sections), rows_(db, Tables(sections)), common_(ReadCommonRows(db)) {}

    // False when the entry is no longer a client.
    bool Print(const QString& entry) {
        if (!rows_.Seek(ClientOfEntry(entry))) {
            return false;
        }
        if (Printer.CurrentX() != 0 || Printer.CurrentY() != 0) {
            Printer.NewPage();
        }
        lines_.Put(1, entry);
        lines_.End();
        lines_.End();
        PrintSections();
        return true;
    }

private:
    static QStringList Tables(const RecordSections& sections) {
        QStringList tables;
        const auto add = [&tables](bool wanted, const QStringList& names) {
            if (wanted) {
                tables << names;
            }
        };
        const auto paged = [](const char* prefix, const auto& numbers) {
            QStringList names;
            for (const int n : numbers) {
                names << Numbered(prefix, n);
            }
            return names;
        };
        constexpr int kPageNumbers[] = {1, 2, 3, 4};
        add(sections.personal, {QStringLiteral("Personal")});
        add(sections.administration, {QStringLiteral("Administration")});
        add(sections.employment, paged("Employment", kPageNumbers));
        add(sections.business, paged("Business", kPageNumbers));
        add(sections.assets,
            QStringList{QStringLiteral("Assets")} + paged("Asset", kOwnAssetLines));
        add(sections.contributions, {QStringLiteral("Contributions")});
        add(sections.user, {QStringLiteral("User")});
        add(sections.diary, paged("Diary", kPageNumbers));
        return tables;
    }

    void PrintSections() {
        if (sections_.personal) {
            PrintRows(QStringLiteral("Personal"), QStringLiteral("Personal"), kPersonalRows);
        }
        if (sections_.administration) {
            PrintRows(QStringLiteral("Administration"), QStringLiteral("Administration"),
                      kAdministrationRows);
        }
        for (int page = 1; page <= kPages && sections_.employment; ++page) {
            PrintPage("Employment", page, "Employer", kEmploymentRows);
        }
        for (int page = 1; page <= kPages && sections_.business; ++page) {
            PrintPage("Business", page, "Description", kBusinessRows);
        }
        if (sections_.assets) {
            PrintAssets();
        }
        if (sections_.contributions) {
            PrintContributions();
        }
        if (sections_.user) {
            PrintUser();
        }
        for (int page = 1; page <= kPages && sections_.diary; ++page) {
            PrintDiary(page);
        }
    }

    QString Text(const QString& field) const { return rows_.Text(table_, field); }
    QVariant Value(const QString& field) const { return rows_.Value(table_, field); }
    const CommonRow& Common(const QString& name) const {
        static const CommonRow kNone;
        const auto found = common_.constFind(name);
        return found == common_.constEnd() ? kNone : *found;
    }

    // A page of employment or business prints only with its key field filled.
    void PrintPage(const char* prefix, int page, const char* key, std::span<const RecordRow> rows) {
        const QString table = Numbered(prefix, page);
        if (rows_.Text(table, QLatin1String(key)).isEmpty()) {
            return;
        }
        PrintRows(
            table,
            QLatin1String(prefix) + QLatin1Char('(') + QString::number(page) + QLatin1Char(')'),
            rows);
    }

    void PrintRows(const QString& table, const QString& title, std::span<const RecordRow> rows) {
        if (!rows_.Found(table)) {
            return;
        }
        table_ = table;
        lines_.Title(title);
        for (const RecordRow& row : rows) {
            PrintRow(row);
        }
    }

    void PrintRow(const RecordRow& row) {
        const QString label = QLatin1String(row.label);
        const QString field = row.field ? QLatin1String(row.field) : QString();
        switch (row.rule) {
            case Rule::Text:
                PrintFieldRow(label, field);
                return;
            case Rule::Address:
                PrintAddress(label, field);
                return;
            case Rule::Choice: {
                const int n = NullToZero(Value(field));
                lines_.Put(1, label);
                if (n >= 1 && n <= int(row.choices.size())) {
                    lines_.Put(2, QLatin1String(row.choices[size_t(n - 1)]));
                }
                lines_.End();
                return;
            }
            case Rule::Director:
                lines_.Put(1, label);
                lines_.Put(2, YesNo(NullToFalse(Value(field))));
                lines_.Put(3, QStringLiteral("Close Company:"));
                lines_.Put(4, YesNo(NullToFalse(Value(QStringLiteral("Close")))));
                lines_.End();
                return;
            case Rule::YearEnd:
                PrintYearEnd(label);
                return;
            case Rule::Office:
                lines_.Put(1, label);
                lines_.Put(2, offices_.Text(Text(field)));
                lines_.End();
                return;
            default:
                lines_.Pairs(label, PairsOf(row.rule), row.rule == Rule::Indicators ? 4 : 3);
                return;
        }
    }

    // The label, and the field's value at column 2 unless it is Null.
    void PrintFieldRow(const QString& label, const QString& field) {
        lines_.Put(1, label);
        const QVariant value = Value(field);
        if (!value.isNull()) {
            lines_.Put(2, value.toString());
        }
        lines_.End();
    }

    void PrintAddress(const QString& label, const QString& family) {
        PrintFieldRow(label, family + QStringLiteral(" 1"));
        for (int line = 2; line <= 5; ++line) {
            const QString text = Text(family + QLatin1Char(' ') + QString::number(line));
            if (!text.isEmpty()) {
                lines_.Put(2, text);
                lines_.End();
            }
        }
    }

    void PrintYearEnd(const QString& label) {
        const int month = Text(QStringLiteral("Year end month")).toInt();
        QString yearEnd = Text(QStringLiteral("Year end day"));
        if (month >= 1 && month <= 12) {
            yearEnd += QLatin1Char(' ') + QLatin1String(kMonths[month - 1]);
        }
        lines_.Put(1, label);
        lines_.Put(2, yearEnd.trimmed());
        lines_.End();
    }

    QList<std::pair<QString, QString>> PairsOf(Rule rule) const {
        QList<std::pair<QString, QString>> pairs;
        const auto add = [&pairs](const char* left, const QString& right) {
            pairs.append({QLatin1String(left), right});
        };
        switch (rule) {
            case Rule::Telephones:
                add("Home", Text(QStringLiteral("Home Telephone")));
                add("Work", Text(QStringLiteral("Work Telephone")));
                add("Fax", Text(QStringLiteral("Fax")));
                add("Mobile", Text(QStringLiteral("Mobile")));
                break;
            case Rule::Spouse:
                if (!Text(QStringLiteral("Spouse Last")).isEmpty()) {
                    add("First Name", Text(QStringLiteral("Spouse First")));
                    add("Last Name", Text(QStringLiteral("Spouse Last")));
                    add("Date of Birth", Text(QStringLiteral("Spouse DOB")));
                }
                break;
            case Rule::Children:
                for (int n = 1; n <= 4; ++n) {
                    const QString child = QStringLiteral("Child %1 ").arg(n);
                    if (!Text(child + QStringLiteral("Name")).isEmpty()) {
                        pairs.append({Text(child + QStringLiteral("Name")),
                                      Text(child + QStringLiteral("DOB"))});
                    }
                }
                break;
            case Rule::Earnings:
                for (int n = 1; n <= 8; ++n) {
                    if (!Text(Numbered("NRE", n)).isEmpty()) {
                        pairs.append({Text(Numbered("Tax Year", n)), Text(Numbered("NRE", n))});
                    }
                }
                break;
            default:
                pairs = IndicatorPairs();
                break;
        }
        return pairs;
    }

    // The personal row's first indicator is its `Blind` field; every other
    // indicator prints when the practice has described it.
    QList<std::pair<QString, QString>> IndicatorPairs() const {
        QList<std::pair<QString, QString>> pairs;
        const bool personal = table_ == QLatin1String("Personal");
        if (personal) {
            pairs.append({QStringLiteral("Blind"), YesNo(NullToFalse(Value("Blind")))});
        }
        const CommonRow& titles = Common(table_);
        for (int n = personal ? 2 : 1; n <= kIndicators; ++n) {
            const QString& title = titles.texts.at(size_t(n));
            if (!title.isEmpty()) {
                pairs.append({title, YesNo(NullToFalse(Value(Numbered("Indicator", n))))});
            }
        }
        return pairs;
    }

    // An asset line: description, date, value and note, a negative value in
    // brackets.
    void PrintAssetLine(const QString& table, const QString& description, int n) {
        const QString value = rows_.Text(table, Numbered("Value", n)).trimmed();
        const double number = Val(value);
        lines_.Put(1, FixedLine(kAssetColumns, {description, rows_.Text(table, Numbered("Date", n)),
                                                number < 0 ? FormatAmount(number) : value,
                                                rows_.Text(table, Numbered("Note", n))}));
        lines_.End();
    }

    void PrintAssets() {
        table_ = QStringLiteral("Assets");
        if (!rows_.Found(table_)) {
            return;
        }
        lines_.Title(QStringLiteral("Assets"));
        const CommonRow& shared = Common(table_);
        for (int n = 1; n <= kSharedAssetLines; ++n) {
            if (!shared.texts.at(size_t(n)).isEmpty()) {
                PrintAssetLine(table_, shared.texts.at(size_t(n)), n);
            }
        }
        // The net value as the assets screen totals it.
        Currency net;
        for (int n = 1; n <= kAssetLines; ++n) {
            net += Currency::FromText(Text(Numbered("Value", n)));
        }
        lines_.Put(
            1, FixedLine(kAssetColumns, {QStringLiteral("Net value of assets").rightJustified(30),
                                         Text(QStringLiteral("Date 20")),
                                         FormatAmount(double(net.RoundedPounds())), QString()}));
        lines_.End();
        for (const int line : kOwnAssetLines) {
            PrintOwnAsset(line);
        }
    }

    // An asset line of the client's own description, with its details.
    void PrintOwnAsset(int line) {
        const QString title = rows_.Text(QStringLiteral("Assets"), Numbered("Asset", line));
        if (title.isEmpty()) {
            return;
        }
        PrintAssetLine(QStringLiteral("Assets"), title, line);
        const QString details = Numbered("Asset", line);
        bool headed = false;
        for (int n = 1; n <= kAssetDetailLines; ++n) {
            const QString description = rows_.Text(details, Numbered("Asset", n));
            if (description.isEmpty()) {
                continue;
            }
            if (!headed) {
                lines_.Put(1, QStringLiteral("Details of ") + title + QLatin1Char(':'));
                lines_.End();
                headed = true;
            }
            PrintAssetLine(details, description, n);
        }
    }

    void PrintContributions() {
        table_ = QStringLiteral("Contributions");
        if (!rows_.Found(table_)) {
            return;
        }
        lines_.Title(QStringLiteral("Pension Contributions"));
        for (int n = 1; n <= kContributionLines; ++n) {
            if (Text(Numbered("Provider", n)).isEmpty()) {
                continue;
            }
            QStringList values;
            for (const char* family :
                 {"Provider", "Contract", "Type", "SR", "NG", "Date", "Amount"}) {
                values << Text(Numbered(family, n));
            }
            lines_.Put(1, FixedLine(kContributionColumns, values));
            lines_.End();
        }
    }

    void PrintUser() {
        table_ = QStringLiteral("User");
        if (!rows_.Found(table_)) {
            return;
        }
        lines_.Title(UserTitleOf(common_));
        const CommonRow& labels = Common(table_);
        for (int n = 1; n <= kUserLines; ++n) {
            if (labels.texts.at(size_t(n)).isEmpty()) {
                continue;
            }
            lines_.Put(1, labels.texts.at(size_t(n)));
            lines_.Put(2, Text(Numbered("Left", n)));
            lines_.Put(4, Text(Numbered("Right", n)));
            lines_.End();
        }
    }

    // A diary year under its tax year: the standard events with a date, then
    // the client's own.
    void PrintDiary(int page) {
        table_ = Numbered("Diary", page);
        if (!rows_.Found(table_)) {
            return;
        }
        const CommonRow& events = Common(table_);
        lines_.Title((QStringLiteral("Tax Year ") + events.taxYear).trimmed());
        lines_.Put(1, QStringLiteral(" Standard Events:"));
        lines_.End();
        for (int n = 1; n <= kDiaryEvents; ++n) {
            const QString date = Text(Numbered("Standard Date", n));
            if (!date.isEmpty()) {
                lines_.Put(2, date);
                lines_.Put(3, events.texts.at(size_t(n)));
                lines_.End();
            }
        }
        lines_.Put(1, QStringLiteral(" Client Events:"));
        lines_.End();
        for (int n = 1; n <= kDiaryEvents; ++n) {
            const QString date = Text(Numbered("Client Date", n));
            const QString event = Text(Numbered("Client Event", n));
            if (!date.isEmpty() || !event.isEmpty()) {
                lines_.Put(2, date);
                lines_.Put(3, event);
                lines_.End();
            }
        }
    }

    const RecordSections& sections_;
    ClientRowSet rows_;
    QHash<QString, CommonRow> common_;
    OfficeNames offices_;
    Lines lines_;
    QString table_;  // the table of the section being printed
};

// The printer as the report uses it: millimetres, typewriter-like bold.
void PrepareRecordPrinter() {
    Printer.setScaleMode(vbMillimeters);
    Printer.FontName = QStringLiteral("Courier New");
    Printer.FontSize = 10;
    Printer.FontBold = true;
    Printer.FontItalic = false;
    Printer.FontUnderline = false;
}

}  // namespace

RecordSections TickedRecordSections() {
    return {ClientRecordPersonal != 0,   ClientRecordAdministration != 0,
            ClientRecordEmployment != 0, ClientRecordBusiness != 0,
            ClientRecordAssets != 0,     ClientRecordContributions != 0,
            ClientRecordUser != 0,       ClientRecordDiary != 0};
}

RecordSections AllRecordSections() {
    return {true, true, true, true, true, true, true, true};
}

QString RecordUserTitle() {
    dao::Database db = OpenClientDatabase();
    return UserTitleOf(ReadCommonRows(db));
}

bool PrintClientRecords(const QStringList& entries, const RecordSections& sections,
                        ErrorDetails& failure, const RecordProgress& progress) {
    try {
        PrepareRecordPrinter();
        {
            dao::Database db = OpenClientDatabase();
            RecordPrinter records(db, sections);
            for (const QString& entry : entries) {
                if (progress) {
                    progress(entry);
                }
                records.Print(entry);
            }
        }
        if (Printer.EndDoc()) {
            return true;
        }
        failure = {vsErrPrinter, Printer.LastError};
    } catch (const std::exception& error) {
        failure = DetailsOf(error);
    }
    Printer.KillDoc();
    return false;
}

}  // namespace quillon
