#include "sections/client_filters.h"

#include "data/data_access.h"
#include "platform/files.h"
#include "shell/variables.h"

namespace quillon {

namespace {
const QString kYes = QStringLiteral("Y");
const QString kNo = QStringLiteral("N");
}  // namespace

QString NextFilter(const QString& caption) {
    if (caption.isEmpty()) {
        return kYes;
    }
    return caption == kYes ? kNo : QString();
}

bool PassesFilter(FilterRule rule, const QString& filter, const QVariant& value) {
    if (rule == FilterRule::Ticked) {
        return !value.isNull() &&
               ((filter == kYes && value.toBool()) || (filter == kNo && !value.toBool()));
    }
    const bool empty = value.isNull() || value.toString().isEmpty();
    return (filter == kNo && empty) || (filter == kYes && !empty);
}

QStringList FilteredClients(const QString& table, const std::vector<FieldFilter>& filters,
                            FilterRule rule) {
    // Opened to read only, in one read transaction for the whole walk: the
    // list is one moment's view of the table, the file's shared lock is taken
    // once rather than at each read, and no other workstation's write waits.
    dao::Database db = dao::OpenDatabase(PathOnDisk(ClientDatabasePath()), false, true);
    db.BeginTrans();
    dao::Recordset rows = db.OpenRecordset(table, dao::dbOpenTable, dao::dbReadOnly);
    rows.SetIndex(QStringLiteral("Name"));
    const dao::Field first = rows.Fields(QStringLiteral("First Names"));
    const dao::Field last = rows.Fields(QStringLiteral("Last Name"));
    std::vector<dao::Field> fields;
    fields.reserve(filters.size());
    for (const FieldFilter& filter : filters) {
        fields.push_back(rows.Fields(filter.field));
    }
    QStringList entries;
    for (rows.MoveFirst(); !rows.IsEOF(); rows.MoveNext()) {
        bool passes = true;
        for (size_t i = 0; i < filters.size() && passes; ++i) {
            passes = PassesFilter(rule, filters[i].filter, fields[i].Value());
        }
        if (passes) {
            entries << NullToEmpty(last) + QStringLiteral(", ") + NullToEmpty(first);
        }
    }
    rows.Close();
    db.CommitTrans();
    return entries;
}

}  // namespace quillon
