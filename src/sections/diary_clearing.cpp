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

}  // namespace

int ClearDiaryPage(const QString& path, int page, const ClearProgress& progress) {
    dao::Database db = dao::OpenDatabase(path);
    dao::Recordset rows = db.OpenRecordset(QStringLiteral("Diary %1").arg(page));
    int cleared = 0;
    int committed = 0;
    QElapsedTimer clock;
    try {
        rows.MoveFirst();
        while (!rows.IsEOF()) {
            db.BeginTrans();
            clock.start();
            while (!rows.IsEOF() && clock.elapsed() < kTransactionMs) {
                ClearRow(rows);
                ++cleared;
                rows.MoveNext();
            }
            db.CommitTrans();
            committed = cleared;
            if (progress) {
                progress(committed);
            }
        }
    } catch (const dao::DaoError&) {
        db.Rollback();
        throw;
    }
    rows.Close();
    db.Close();
    return committed;
}

}  // namespace quillon
