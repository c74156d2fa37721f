#include "correspondence/list_entries.h"

#include "data/data_access.h"

namespace quillon {

namespace {
const QString kSeparator = QStringLiteral(", ");
constexpr int kNumberTail = 6;  // " (", three digits, ")"
}  // namespace

ClientName ClientOfEntry(const QString& entry) {
    const qsizetype split = entry.indexOf(kSeparator);
    if (split < 0) {
        return {QString(), entry};
    }
    return {entry.mid(split + kSeparator.size()), entry.left(split)};
}

QString OfficeEntry(const QString& name, const QString& number) {
    return name + QStringLiteral(" (") + number + QLatin1Char(')');
}

OfficeKey OfficeOfEntry(const QString& entry) {
    if (entry.size() < kNumberTail) {
        return {entry, QString()};
    }
    return {entry.left(entry.size() - kNumberTail), entry.mid(entry.size() - 4, 3)};
}

QStringList ClientEntries(const QString& table) {
    dao::Database db = OpenClientDatabase();
    dao::Recordset rows = db.OpenRecordset(table, dao::dbOpenTable);
    rows.SetIndex(QStringLiteral("Name"));
    QStringList entries;
    for (rows.MoveFirst(); !rows.IsEOF(); rows.MoveNext()) {
        entries << NullToEmpty(rows.Fields(QStringLiteral("Last Name"))) + kSeparator +
                       NullToEmpty(rows.Fields(QStringLiteral("First Names")));
    }
    return entries;
}

QStringList OfficeEntries() {
    dao::Database db = OpenOfficeDatabase();
    dao::Recordset offices = db.OpenRecordset(QStringLiteral("Tax Offices"), dao::dbOpenTable);
    offices.SetIndex(QStringLiteral("Office Name"));
    QStringList entries;
    for (offices.MoveFirst(); !offices.IsEOF(); offices.MoveNext()) {
        entries << OfficeEntry(NullToEmpty(offices.Fields(QStringLiteral("Name"))),
                               NullToEmpty(offices.Fields(QStringLiteral("Number"))));
    }
    return entries;
}

}  // namespace quillon
