#include "data/client_data.h"

#include "data/data_access.h"
#include "platform/services.h"
#include "shell/variables.h"

namespace quillon {

namespace {

void stepFrom(dao::Recordset& table, const QString& direction) {
    if (direction == QLatin1String("First")) {
        if (!table.BOF()) {
            table.MoveFirst();
        }
    } else if (direction == QLatin1String("Previous")) {
        if (!table.BOF()) {
            table.MovePrevious();
        }
    } else if (direction == QLatin1String("Next")) {
        if (!table.IsEOF()) {
            table.MoveNext();
        }
    } else if (direction == QLatin1String("Last")) {
        if (!table.IsEOF()) {
            table.MoveLast();
        }
    }
}

}  // namespace

void MoveClientRecord(const QString& tableName, const QString& direction) {
    try {
        dao::Database db = dao::OpenDatabase(ClientDatabasePath());
        dao::Recordset table = db.OpenRecordset(tableName, dao::dbOpenTable);
        table.SetIndex(QStringLiteral("Name"));
        table.Seek(QStringLiteral("="), {CurrentLast, CurrentFirst});
        if (!table.NoMatch()) {
            stepFrom(table, direction);
        }
        if (table.BOF()) {
            table.MoveFirst();
        } else if (table.IsEOF()) {
            table.MoveLast();
        }
        const QString first = NullToEmpty(table.Fields(QStringLiteral("First Names")));
        const QString last = NullToEmpty(table.Fields(QStringLiteral("Last Name")));
        CurrentFirst = first;
        CurrentLast = last;
    } catch (const std::exception& error) {
        ReportError(QStringLiteral("basClientData"), QStringLiteral("MoveClientRecord"), error);
    }
}

bool SeekClientRecord(dao::Recordset& recordset, const QString& first, const QString& last) {
    recordset.SetIndex(QStringLiteral("Name"));
    recordset.Seek(QStringLiteral("="), {last, first});
    if (!recordset.NoMatch()) {
        return true;
    }
    Beep();
    MsgBox(first + QLatin1Char(' ') + last + QStringLiteral(" could not be found."), vbExclamation,
           DatabaseTitle.at(SelectedFile));
    return false;
}

}  // namespace quillon
