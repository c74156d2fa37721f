#include "sections/year_end_list.h"

#include "correspondence/client_row_set.h"
#include "data/data_access.h"
#include "platform/files.h"
#include "shell/variables.h"

namespace quillon {

namespace {

const QString kSeparator = QStringLiteral(", ");
const QString kOpening = QStringLiteral(" (");

// The header name of each column and the field it is read from.
struct MergeColumn {
    const char* header;
    const char* table;
    const char* field;
};
const MergeColumn kColumns[] = {
    {"Title", "Personal", "Title"},
    {"FirstNames", "Personal", "First Names"},
    {"LastName", "Personal", "Last Name"},
    {"Address1", "Personal", "Address 1"},
    {"Address2", "Personal", "Address 2"},
    {"Address3", "Personal", "Address 3"},
    {"Address4", "Personal", "Address 4"},
    {"Address5", "Personal", "Address 5"},
    {"Address6", "Personal", "Address 6"},
    {"Called", "Personal", "Called"},
    {"DateofBirth", "Personal", "Date of Birth"},
    {"HomeTelephone", "Personal", "Home Telephone"},
    {"NINumber", "Administration", "NI Number"},
    {"TaxRef", "Administration", "Tax Reference"},
    {"ClientRef", "Administration", "Client Reference"},
};

dao::Database OpenToRead() {
    return dao::OpenDatabase(PathOnDisk(ClientDatabasePath()), false, true);
}

// A month as the field holds it: "03" and "3" are March; anything that is not
// a number is no month.
int MonthOf(const QVariant& value) {
    bool number = false;
    const int month = value.toString().trimmed().toInt(&number);
    return number ? month : 0;
}

}  // namespace

QString YearEndEntry(const ClientName& client, const QString& business) {
    return client.last + kSeparator + client.first + kOpening + business + QLatin1Char(')');
}

YearEndClient YearEndOfEntry(const QString& entry) {
    const qsizetype split = entry.indexOf(kSeparator);
    const qsizetype firstStart = split < 0 ? 0 : split + kSeparator.size();
    const qsizetype opening = entry.indexOf(kOpening, firstStart);
    YearEndClient result;
    result.client.last = split < 0 ? QString() : entry.left(split);
    if (opening < 0) {
        result.client.first = entry.mid(firstStart);
        return result;
    }
    result.client.first = entry.mid(firstStart, opening - firstStart);
    result.business = entry.mid(opening + kOpening.size());
    if (result.business.endsWith(QLatin1Char(')'))) {
        result.business.chop(1);
    }
    return result;
}

QStringList YearEndEntries(int month) {
    dao::Database db = OpenToRead();
    db.BeginTrans();  // one view of the four tables, and the shared lock taken once
    QStringList entries;
    for (int n = 1; n <= kBusinessTables; ++n) {
        dao::Recordset rows = db.OpenRecordset(QStringLiteral("Business %1").arg(n),
                                               dao::dbOpenTable, dao::dbReadOnly);
        rows.SetIndex(QStringLiteral("Name"));
        const dao::Field first = rows.Fields(QStringLiteral("First Names"));
        const dao::Field last = rows.Fields(QStringLiteral("Last Name"));
        const dao::Field yearEnd = rows.Fields(QStringLiteral("Year end month"));
        const dao::Field name = rows.Fields(QStringLiteral("Business Name"));
        for (rows.MoveFirst(); !rows.IsEOF(); rows.MoveNext()) {
            const QVariant business = name.Value();
            const QVariant ends = yearEnd.Value();
            if (business.isNull() || ends.isNull() || MonthOf(ends) != month ||
                business.toString().isEmpty()) {
                continue;
            }
            entries << YearEndEntry({NullToEmpty(first), NullToEmpty(last)}, business.toString());
        }
    }
    db.CommitTrans();
    return entries;
}

QStringList YearEndMergeHeader() {
    QStringList header;
    for (const MergeColumn& column : kColumns) {
        header << QLatin1String(column.header);
    }
    return header << QStringLiteral("BusinessName");
}

void WriteYearEndMerge(const QString& path, const QStringList& entries, const MergeOptions& options,
                       const MergeProgress& progress) {
    MergeWriter writer(path, options);
    writer.Write(YearEndMergeHeader());
    dao::Database db = OpenToRead();
    ClientRowSet rows(db, {QStringLiteral("Personal"), QStringLiteral("Administration")});
    ReadInShortTransactions(db, entries.size(), progress, [&](qsizetype i) {
        const YearEndClient entry = YearEndOfEntry(entries.at(i));
        if (!rows.Seek(entry.client)) {
            return;
        }
        QStringList values;
        for (const MergeColumn& column : kColumns) {
            values << rows.Text(QLatin1String(column.table), QLatin1String(column.field));
        }
        writer.Write(values << entry.business);
    });
}

}  // namespace quillon
