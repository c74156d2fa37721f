#include "data/client_rows.h"

#include "data/client_data.h"
#include "data/data_access.h"
#include "platform/files.h"
#include "shell/variables.h"

#include <exception>

namespace quillon {

namespace {

const QString kCommon = QStringLiteral("Common");

dao::Recordset SeekCommon(dao::Database& db, const QString& name) {
    dao::Recordset row = db.OpenRecordset(kCommon, dao::dbOpenTable);
    row.SetIndex(QStringLiteral("Name"));
    row.Seek(QStringLiteral("="), {name});
    return row;
}

// Runs `work` and reports what it throws once its database is closed: the
// locals of the try block are gone before the handler runs.
bool Reported(const Routine& routine, const std::function<bool()>& work) {
    try {
        return work();
    } catch (const std::exception& error) {
        ReportError(routine.module, routine.procedure, error);
        return false;
    }
}

void EditRow(dao::Recordset& row, const RowChange& change) {
    row.Edit();
    change(row);
    row.Update();
}

}  // namespace

dao::Database OpenClientDatabase() {
    return dao::OpenDatabase(PathOnDisk(ClientDatabasePath()));
}

dao::Database OpenOfficeDatabase() {
    return dao::OpenDatabase(PathOnDisk(OfficeDatabasePath()));
}

bool ReadClientRow(const Routine& routine, const QString& table, const ClientName& client,
                   const RowReader& read, const CommonAlongside& common) {
    return Reported(routine, [&] {
        dao::Database db = OpenClientDatabase();
        dao::Recordset row = db.OpenRecordset(table, dao::dbOpenTable);
        const bool found = SeekClientRecord(row, client.first, client.last);
        if (found) {
            read(row);
        }
        if (!common.name.isEmpty()) {
            if (dao::Recordset shared = SeekCommon(db, common.name); !shared.NoMatch()) {
                common.read(shared);
            }
        }
        return found;
    });
}

bool ChangeClientRow(const Routine& routine, const QString& table, const ClientName& client,
                     const RowChange& change) {
    return Reported(routine, [&] {
        dao::Database db = OpenClientDatabase();
        dao::Recordset row = db.OpenRecordset(table, dao::dbOpenTable);
        if (!SeekClientRecord(row, client.first, client.last)) {
            return false;
        }
        EditRow(row, change);
        return true;
    });
}

bool ReadCommonRow(const Routine& routine, const QString& name, const RowReader& read) {
    return Reported(routine, [&] {
        dao::Database db = OpenClientDatabase();
        dao::Recordset row = SeekCommon(db, name);
        if (row.NoMatch()) {
            return false;
        }
        read(row);
        return true;
    });
}

bool ChangeCommonRow(const Routine& routine, const QString& name, const RowChange& change) {
    return Reported(routine, [&] {
        dao::Database db = OpenClientDatabase();
        dao::Recordset row = SeekCommon(db, name);
        if (row.NoMatch()) {
            return false;
        }
        EditRow(row, change);
        return true;
    });
}

}  // namespace quillon
