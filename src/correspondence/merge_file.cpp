#include "correspondence/merge_file.h"

#include "correspondence/client_row_set.h"
#include "correspondence/correspondence_state.h"
#include "correspondence/list_entries.h"
#include "data/client_rows.h"
#include "data/data_access.h"
#include "platform/code_page.h"
#include "platform/files.h"
#include "shell/program_folder.h"
#include "shell/variables.h"

#include <QDir>
#include <QFile>

#include <span>

namespace quillon {

namespace {

const QString kMonths = QStringLiteral("JanFebMarAprMayJunJulAugSepOctNovDec");

// A field of the merge: its header name, the table it comes from and the field.
struct MergeField {
    const char* header;
    const char* table;
    const char* field;
};

// Fields 4 to 9 take the address the options choose; the rest stand here.
const MergeField kClientFields[] = {
    {"Title", "Personal", "Title"},
    {"FirstNames", "Personal", "First Names"},
    {"LastName", "Personal", "Last Name"},
    {"Address1", nullptr, "Address 1"},
    {"Address2", nullptr, "Address 2"},
    {"Address3", nullptr, "Address 3"},
    {"Address4", nullptr, "Address 4"},
    {"Address5", nullptr, "Address 5"},
    {"Address6", nullptr, nullptr},
    {"Called", "Personal", "Called"},
    {"DateofBirth", "Personal", "Date of Birth"},
    {"HomeTelephone", "Personal", "Home Telephone"},
    {"WorkTelephone", "Personal", "Work Telephone"},
    {"NINumber", "Administration", "NI Number"},
    {"TaxRef", "Administration", "Tax Reference"},
    {"ClientRef", "Administration", "Client Reference"},
    {"BusinessName", "Business 1", "Business Name"},
    {"YearEnd", "Business 1", nullptr},
};
const char* const kLeftOutOfPickedClients = "WorkTelephone";
const QStringList kClientMergeTables{QStringLiteral("Personal"), QStringLiteral("Administration"),
                                     QStringLiteral("Business 1")};

const MergeField kOfficeFields[] = {
    {"Number", "Tax Offices", "Number"},       {"Name", "Tax Offices", "Name"},
    {"Address1", "Tax Offices", "Address 1"},  {"Address2", "Tax Offices", "Address 2"},
    {"Address3", "Tax Offices", "Address 3"},  {"Address4", "Tax Offices", "Address 4"},
    {"Address5", "Tax Offices", "Address 5"},  {"Postcode", "Tax Offices", "Postcode"},
    {"Telephone", "Tax Offices", "Telephone"}, {"Fax", "Tax Offices", "Fax"},
};

bool InLayout(const MergeField& field, ClientMergeLayout layout) {
    return layout == ClientMergeLayout::HandedList ||
           qstrcmp(field.header, kLeftOutOfPickedClients) != 0;
}

QString ClientValue(const MergeField& field, const ClientRowSet& rows, qint16 address) {
    const bool business = address == 1;
    if (field.table == nullptr) {  // the chosen address
        const QString table = business ? QStringLiteral("Business 1") : QStringLiteral("Personal");
        const QString name = field.field ? QLatin1String(field.field)
                             : business  ? QStringLiteral("Postcode")
                                         : QStringLiteral("Address 6");
        return rows.Text(table, name);
    }
    if (field.field == nullptr) {
        const QString table = QLatin1String(field.table);
        return YearEndText(rows.Value(table, QStringLiteral("Year end day")),
                           rows.Value(table, QStringLiteral("Year end month")));
    }
    return rows.Text(QLatin1String(field.table), QLatin1String(field.field));
}

// The file, opened for writing from its start; written lines stay when a
// later one fails.
QStringList Headers(std::span<const MergeField> fields) {
    QStringList headers;
    for (const MergeField& field : fields) {
        headers << QLatin1String(field.header);
    }
    return headers;
}

}  // namespace

MergeOptions CurrentMergeOptions() {
    return {UseQuotes ? QStringLiteral("\"") : QString(), FieldDelimiter, AddressForMerge};
}

QByteArray MergeLine(const QStringList& values, const MergeOptions& options) {
    QString line;
    for (qsizetype i = 0; i < values.size(); ++i) {
        line +=
            (i > 0 ? options.delimiter : QString()) + options.quote + values.at(i) + options.quote;
    }
    return ToCodePage(line + QStringLiteral("\r\n"));
}

MergeWriter::MergeWriter(const QString& path, const MergeOptions& options)
    : file_(path), options_(options) {
    if (!file_.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        Fail();
    }
}

void MergeWriter::Write(const QStringList& values) {
    if (file_.write(MergeLine(values, options_)) < 0) {
        Fail();
    }
}

void MergeWriter::Fail() {
    throw dao::DaoError(kErrPathFileAccess, QStringLiteral("Path/File access error"));
}

QStringList ClientMergeHeader(ClientMergeLayout layout) {
    QStringList headers;
    for (const MergeField& field : kClientFields) {
        if (InLayout(field, layout)) {
            headers << QLatin1String(field.header);
        }
    }
    return headers;
}

QStringList OfficeMergeHeader() {
    return Headers(kOfficeFields);
}

QString YearEndText(const QVariant& day, const QVariant& month) {
    if (day.isNull() || month.isNull()) {
        return {};
    }
    bool number = false;
    const int m = month.toString().trimmed().toInt(&number);
    if (!number || m < 1 || m > 12) {
        return {};
    }
    return day.toString() + QLatin1Char(' ') + kMonths.mid((m - 1) * 3, 3);
}

QString MergeFilePath(bool lowerCase) {
    return QDir::toNativeSeparators(
        ProgramFolder() + QLatin1Char('/') +
        (lowerCase ? QStringLiteral("merge.txt") : QStringLiteral("MERGE.TXT")));
}

void WriteClientMerge(const QString& path, const QStringList& entries, ClientMergeLayout layout,
                      const MergeOptions& options, const MergeProgress& progress) {
    MergeWriter writer(path, options);
    writer.Write(ClientMergeHeader(layout));
    // Read only, in short read transactions: a client is read whole, and the
    // file is never held from other workstations for more than a moment.
    dao::Database db = dao::OpenDatabase(PathOnDisk(ClientDatabasePath()), false, true);
    ClientRowSet rows(db, kClientMergeTables);
    ReadInShortTransactions(db, entries.size(), progress, [&](qsizetype i) {
        if (!rows.Seek(ClientOfEntry(entries.at(i)))) {
            return;
        }
        QStringList values;
        for (const MergeField& field : kClientFields) {
            if (InLayout(field, layout)) {
                values << ClientValue(field, rows, options.address);
            }
        }
        writer.Write(values);
    });
}

void WriteOfficeMerge(const QString& path, const QStringList& entries, const MergeOptions& options,
                      const MergeProgress& progress) {
    MergeWriter writer(path, options);
    writer.Write(OfficeMergeHeader());
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
        QStringList values;
        for (const MergeField& field : kOfficeFields) {
            values << NullToEmpty(offices.Fields(QLatin1String(field.field)));
        }
        writer.Write(values);
    }
}

}  // namespace quillon
