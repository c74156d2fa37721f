#include "correspondence/labels.h"

#include "correspondence/client_row_set.h"
#include "correspondence/list_entries.h"
#include "data/client_rows.h"
#include "data/data_access.h"
#include "reports/printer_object.h"

namespace quillon {

namespace {

constexpr double kRowPitch = 38;
constexpr double kColumnPitch = 101.5;
constexpr double kLeft = 15;
constexpr double kDropPerMissingLine = 2;

void AddLine(QStringList& lines, const QString& text) {
    const QString trimmed = text.trimmed();
    if (!trimmed.isEmpty()) {
        lines << trimmed;
    }
}

}  // namespace

LabelSheet::LabelSheet(double top, int fullLines, int row, int column)
    : top_(top), fullLines_(fullLines), row_(row), column_(column) {}

void LabelSheet::Print(const QStringList& lines) {
    if (column_ > 1) {
        column_ = 0;
        ++row_;
    }
    if (row_ > kLabelRows - 1) {
        Printer.NewPage();
        row_ = 0;
    }
    Printer.setCurrentY(row_ * kRowPitch + top_ +
                        (fullLines_ - lines.size()) * kDropPerMissingLine);
    for (const QString& line : lines) {
        Printer.setCurrentX(column_ * kColumnPitch + kLeft);
        Printer.Print(line);
    }
    ++column_;
}

QStringList ClientLabelLines(const LabelField& field, qint16 address) {
    QStringList lines;
    const QString title = field("Personal", "Title");
    AddLine(lines, (title.isEmpty() ? QString() : title + QLatin1Char(' ')) +
                       field("Personal", "First Names") + QLatin1Char(' ') +
                       field("Personal", "Last Name"));
    if (address == 1) {
        // Address 5 stays off a business label, to keep to seven lines.
        for (const char* name :
             {"Business Name", "Address 1", "Address 2", "Address 3", "Address 4", "Postcode"}) {
            AddLine(lines, field("Business 1", name));
        }
    } else {
        for (const char* name :
             {"Address 1", "Address 2", "Address 3", "Address 4", "Address 5", "Address 6"}) {
            AddLine(lines, field("Personal", name));
        }
    }
    return lines;
}

QStringList OfficeLabelLines(const std::function<QString(const char* field)>& field) {
    QStringList lines{QStringLiteral("HM Revenue & Customs")};
    for (const char* name :
         {"Name", "Address 1", "Address 2", "Address 3", "Address 4", "Address 5", "Postcode"}) {
        AddLine(lines, field(name));
    }
    return lines;
}

void PrintClientLabelsOf(const QStringList& entries, int copies, qint16 address, LabelSheet& sheet,
                         const LabelProgress& progress) {
    dao::Database db = OpenClientDatabase();
    ClientRowSet rows(db, {QStringLiteral("Personal"), QStringLiteral("Business 1")});
    const LabelField field = [&rows](const char* table, const char* name) {
        return rows.Text(QLatin1String(table), QLatin1String(name));
    };
    for (qsizetype i = 0; i < entries.size(); ++i) {
        if (progress) {
            progress(int(i) + 1);
        }
        if (!rows.Seek(ClientOfEntry(entries.at(i)))) {
            continue;
        }
        const QStringList lines = ClientLabelLines(field, address);
        for (int copy = 0; copy < copies; ++copy) {
            sheet.Print(lines);
        }
    }
}

void PrintOfficeLabelsOf(const QStringList& entries, int copies, LabelSheet& sheet,
                         const LabelProgress& progress) {
    dao::Database db = OpenOfficeDatabase();
    dao::Recordset offices = db.OpenRecordset(QStringLiteral("Tax Offices"), dao::dbOpenTable);
    offices.SetIndex(QStringLiteral("Office Name"));
    for (qsizetype i = 0; i < entries.size(); ++i) {
        if (progress) {
            progress(int(i) + 1);
        }
        const OfficeKey office = OfficeOfEntry(entries.at(i));
        offices.Seek(QStringLiteral("="), {office.name, office.number});
        if (offices.NoMatch()) {
            continue;
        }
        const QStringList lines = OfficeLabelLines([&offices](const char* name) {
            return NullToEmpty(offices.Fields(QLatin1String(name)));
        });
        for (int copy = 0; copy < copies; ++copy) {
            sheet.Print(lines);
        }
    }
}

void PrepareLabelPrinter() {
    Printer.setScaleMode(vbMillimeters);
    Printer.FontName = QStringLiteral("Times New Roman");
    Printer.FontSize = 10;
    Printer.FontBold = true;
    Printer.FontItalic = false;
}

LabelSheet ClientLabelSheet(int row, int column) {
    return LabelSheet(15, 7, row, column);
}

LabelSheet OfficeLabelSheet(int row, int column) {
    return LabelSheet(13, 8, row, column);
}

}  // namespace quillon
