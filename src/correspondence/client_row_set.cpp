#include "correspondence/client_row_set.h"

#include "data/data_access.h"

namespace quillon {

ClientRowSet::ClientRowSet(dao::Database& db, const QStringList& tables) {
    for (const QString& table : QStringList{QStringLiteral("Clients")} + tables) {
        rows_.push_back(db.OpenRecordset(table, dao::dbOpenTable));
        rows_.back().SetIndex(QStringLiteral("Name"));
    }
}

bool ClientRowSet::Seek(const ClientName& client) {
    for (dao::Recordset& row : rows_) {
        row.Seek(QStringLiteral("="), {client.last, client.first});
    }
    return !rows_.front().NoMatch();
}

const dao::Recordset* ClientRowSet::Row(const QString& table) const {
    for (const dao::Recordset& row : rows_) {
        if (row.Name().compare(table, Qt::CaseInsensitive) == 0) {
            return &row;
        }
    }
    return nullptr;
}

bool ClientRowSet::Found(const QString& table) const {
    const dao::Recordset* row = Row(table);
    return row && !row->NoMatch();
}

QVariant ClientRowSet::Value(const QString& table, const QString& field) const {
    return Found(table) ? Row(table)->Fields(field).Value() : QVariant();
}

QString ClientRowSet::Text(const QString& table, const QString& field) const {
    return NullToEmpty(Value(table, field));
}

void ReadInShortTransactions(dao::Database& db, qsizetype count,
                             const std::function<void(int)>& progress,
                             const std::function<void(qsizetype)>& read) {
    constexpr qsizetype kClientsPerRead = 200;
    for (qsizetype i = 0; i < count; ++i) {
        if (i % kClientsPerRead == 0) {
            if (i > 0) {
                db.CommitTrans();
            }
            db.BeginTrans();
        }
        if (progress) {
            progress(int(i) + 1);
        }
        read(i);
    }
    if (count > 0) {
        db.CommitTrans();
    }
}

}  // namespace quillon
