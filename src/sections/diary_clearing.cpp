#include "sections/diary_clearing.h"

#include "platform/dao.h"

#include <QElapsedTimer>

namespace quillon {

namespace {

// A transaction ends after this long, so that the lock is never held for more
// than a moment and progress is shown several times a second; the commits'
// disk syncs are then a small part of the work.
constexpr qint64 kTransactionMs = 100;

void ClearRow(dao::Recordset& row) {
    row.Edit();
    for (int i = 1; i <= kDiaryEvents; ++i) {
        row.Fields(QStringLiteral("Standard Date %1").arg(i)).SetValue(QStringLiteral(""));
        row.Fields(QStringLiteral("Client Date %1").arg(i)).SetValue(QStringLiteral(""));
        row.Fields(QStringLiteral("Client Event %1").arg(i)).SetValue(QStringLiteral(""));
    }
    row.Update();
}

// Every client of the table, in name order. The rows are then found by name:
// a walk that writes as it goes would read its rows afresh at every step.
QList<QVariantList> ClientKeys(dao::Database& db, const QString& table) {
    dao::Recordset rows = db.OpenRecordset(table, dao::dbOpenTable, dao::dbReadOnly);
    rows.SetIndex(QStringLiteral("Name"));
    const dao::Field first = rows.Fields(QStringLiteral("First Names"));
    const dao::Field last = rows.Fields(QStringLiteral("Last Name"));
    QList<QVariantList> keys;
    for (rows.MoveFirst(); !rows.IsEOF(); rows.MoveNext()) {
        keys.append({last.Value(), first.Value()});
    }
    return keys;
}

}  // namespace

int ClearDiaryPage(const QString& path, int page, const ClearProgress& progress) {
    const QString table = QStringLiteral("Diary %1").arg(page);
    dao::Database db = dao::OpenDatabase(path);
    const QList<QVariantList> keys = ClientKeys(db, table);
    dao::Recordset rows = db.OpenRecordset(table);
    rows.SetIndex(QStringLiteral("Name"));
    int cleared = 0;
    QElapsedTimer clock;
    try {
        for (qsizetype next = 0; next < keys.size();) {
            db.BeginTrans();
            clock.start();
            for (; next < keys.size() && clock.elapsed() < kTransactionMs; ++next) {
                // A row that another workstation has deleted meanwhile is passed by.
                rows.Seek(QStringLiteral("="), keys.at(next));
                if (!rows.NoMatch()) {
                    ClearRow(rows);
                    ++cleared;
                }
            }
            db.CommitTrans();
            if (progress) {
                progress(cleared);
            }
        }
    } catch (const dao::DaoError&) {
        db.Rollback();
        throw;
    }
    rows.Close();
    db.Close();
    return cleared;
}

}  // namespace quillon
