// The database layer against the same work in plain SQLite statements, on a
// client database of 10,000 clients. Run with
//   bench_dao --benchmark_repetitions=9 --benchmark_report_aggregates_only=true
// and read the medians.

#include "data/client_data.h"
#include "data/database_schema.h"
#include "platform/dao.h"
#include "shell/variables.h"

#include <QDir>
#include <QRandomGenerator>

#include "synthetic_slot.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <vector>

using namespace quillon;

namespace {

struct ClientName {
    QString first;
    QString last;
};

struct Fixture {
    QString path = bench::TheSyntheticSlot().DatabasePath();
    std::vector<ClientName> clients = readClientNames();

    std::vector<ClientName> readClientNames() const {
        std::vector<ClientName> names;
        sqlite3* db = nullptr;
        sqlite3_open_v2(path.toUtf8().constData(), &db, SQLITE_OPEN_READONLY, nullptr);
        sqlite3_stmt* stmt = nullptr;
        sqlite3_prepare_v2(db, "SELECT \"First Names\", \"Last Name\" FROM Clients", -1, &stmt,
                           nullptr);
        while (sqlite3_step(stmt) == SQLITE_ROW) {
            names.push_back(
                {QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(stmt, 0))),
                 QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(stmt, 1)))});
        }
        sqlite3_finalize(stmt);
        sqlite3_close(db);
        return names;
    }

    const ClientName& anyClient() const {
        return clients[QRandomGenerator::global()->bounded(int(clients.size()))];
    }
};

Fixture& fixture() {
    static Fixture instance;
    return instance;
}

// Plain SQLite helpers for the comparisons.
sqlite3* rawOpen() {
    sqlite3* db = nullptr;
    sqlite3_open_v2(fixture().path.toUtf8().constData(), &db, SQLITE_OPEN_READWRITE, nullptr);
    sqlite3_busy_timeout(db, 1000);
    return db;
}

sqlite3_stmt* rawPrepare(sqlite3* db, const char* sql) {
    sqlite3_stmt* stmt = nullptr;
    sqlite3_prepare_v2(db, sql, -1, &stmt, nullptr);
    return stmt;
}

void bindText(sqlite3_stmt* stmt, int index, const QString& text) {
    const QByteArray utf8 = text.toUtf8();
    sqlite3_bind_text(stmt, index, utf8.constData(), int(utf8.size()), SQLITE_TRANSIENT);
}

// Seeks `client` in `table` by name, as the program's Seek does; returns the
// rowid found, or 0.
sqlite3_int64 rawSeekClient(sqlite3* db, const char* table, const ClientName& client) {
    const QByteArray sql = QByteArray("SELECT rowid, * FROM \"") + table +
                           "\" WHERE \"Last Name\" = ? AND \"First Names\" = ?";
    sqlite3_stmt* seek = rawPrepare(db, sql.constData());
    bindText(seek, 1, client.last);
    bindText(seek, 2, client.first);
    const sqlite3_int64 rowid =
        sqlite3_step(seek) == SQLITE_ROW ? sqlite3_column_int64(seek, 0) : 0;
    sqlite3_finalize(seek);
    return rowid;
}

void BM_OpenSeekClose(benchmark::State& state) {
    fixture();  // made before the timing starts
    for (auto _ : state) {
        const ClientName& client = fixture().anyClient();
        dao::Database db = dao::OpenDatabase(fixture().path);
        dao::Recordset clients = db.OpenRecordset(QStringLiteral("Clients"));
        clients.SetIndex(QStringLiteral("Name"));
        clients.Seek(QStringLiteral("="), {client.last, client.first});
        benchmark::DoNotOptimize(clients.NoMatch());
        clients.Close();
        db.Close();
    }
}
BENCHMARK(BM_OpenSeekClose)->Unit(benchmark::kMicrosecond);

void BM_OpenSeekClose_Raw(benchmark::State& state) {
    fixture();  // made before the timing starts
    for (auto _ : state) {
        const ClientName& client = fixture().anyClient();
        sqlite3* db = rawOpen();
        benchmark::DoNotOptimize(rawSeekClient(db, "Clients", client));
        sqlite3_close(db);
    }
}
BENCHMARK(BM_OpenSeekClose_Raw)->Unit(benchmark::kMicrosecond);

void BM_MoveClientRecordNext(benchmark::State& state) {
    fixture();  // made before the timing starts
    for (auto _ : state) {
        const ClientName& client = fixture().anyClient();
        CurrentFirst = client.first;
        CurrentLast = client.last;
        MoveClientRecord(QStringLiteral("Personal"), QStringLiteral("Next"));
        benchmark::DoNotOptimize(CurrentLast);
    }
}
BENCHMARK(BM_MoveClientRecordNext)->Unit(benchmark::kMicrosecond);

void BM_MoveClientRecordNext_Raw(benchmark::State& state) {
    fixture();  // made before the timing starts
    for (auto _ : state) {
        const ClientName& client = fixture().anyClient();
        sqlite3* db = rawOpen();
        const sqlite3_int64 rowid = rawSeekClient(db, "Personal", client);
        sqlite3_stmt* next = rawPrepare(
            db,
            "SELECT \"First Names\", \"Last Name\" FROM Personal WHERE (\"Last Name\", "
            "\"First Names\", rowid) > (?, ?, ?) ORDER BY \"Last Name\", \"First Names\", rowid "
            "LIMIT 1");
        bindText(next, 1, client.last);
        bindText(next, 2, client.first);
        sqlite3_bind_int64(next, 3, rowid);
        benchmark::DoNotOptimize(sqlite3_step(next));
        sqlite3_finalize(next);
        sqlite3_close(db);
    }
}
BENCHMARK(BM_MoveClientRecordNext_Raw)->Unit(benchmark::kMicrosecond);

// Adds one client to all 22 tables in one transaction; the rows are removed
// again outside the timing.
void BM_AddClientInTransaction(benchmark::State& state) {
    fixture();  // made before the timing starts
    const QStringList tables = ClientTableNames();
    int serial = 0;
    for (auto _ : state) {
        const QString last = QStringLiteral("Benchmark %1").arg(++serial);
        dao::Database db = dao::OpenDatabase(fixture().path);
        db.BeginTrans();
        for (const QString& table : tables) {
            dao::Recordset rows = db.OpenRecordset(table);
            rows.AddNew();
            rows.Fields(QStringLiteral("First Names")).SetValue(QStringLiteral("Bench"));
            rows.Fields(QStringLiteral("Last Name")).SetValue(last);
            rows.Update();
        }
        db.CommitTrans();
        db.Close();
        state.PauseTiming();
        dao::Database cleanup = dao::OpenDatabase(fixture().path);
        for (const QString& table : tables) {
            cleanup.Execute(
                QStringLiteral("DELETE FROM \"%1\" WHERE \"Last Name\" = '%2'").arg(table, last));
        }
        cleanup.Close();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_AddClientInTransaction)->Unit(benchmark::kMicrosecond);

void BM_AddClientInTransaction_Raw(benchmark::State& state) {
    fixture();  // made before the timing starts
    const QStringList tables = ClientTableNames();
    int serial = 0;
    for (auto _ : state) {
        const QString last = QStringLiteral("Raw Benchmark %1").arg(++serial);
        sqlite3* db = rawOpen();
        sqlite3_exec(db, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
        for (const QString& table : tables) {
            const QByteArray sql =
                QStringLiteral("INSERT INTO \"%1\" (\"First Names\", \"Last Name\") VALUES (?, ?)")
                    .arg(table)
                    .toUtf8();
            sqlite3_stmt* insert = rawPrepare(db, sql.constData());
            bindText(insert, 1, QStringLiteral("Bench"));
            bindText(insert, 2, last);
            sqlite3_step(insert);
            sqlite3_finalize(insert);
        }
        sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr);
        state.PauseTiming();
        for (const QString& table : tables) {
            const QByteArray sql = QStringLiteral("DELETE FROM \"%1\" WHERE \"Last Name\" = '%2'")
                                       .arg(table, last)
                                       .toUtf8();
            sqlite3_exec(db, sql.constData(), nullptr, nullptr, nullptr);
        }
        sqlite3_close(db);
        state.ResumeTiming();
    }
}
BENCHMARK(BM_AddClientInTransaction_Raw)->Unit(benchmark::kMicrosecond);

void BM_WalkClientsInIndexOrder(benchmark::State& state) {
    fixture();  // made before the timing starts
    for (auto _ : state) {
        dao::Database db = dao::OpenDatabase(fixture().path);
        dao::Recordset clients =
            db.OpenRecordset(QStringLiteral("Clients"), dao::dbOpenTable, dao::dbReadOnly);
        clients.SetIndex(QStringLiteral("Name"));
        int count = 0;
        for (clients.MoveFirst(); !clients.IsEOF(); clients.MoveNext()) {
            benchmark::DoNotOptimize(clients.Fields(QStringLiteral("Last Name")).Value());
            benchmark::DoNotOptimize(clients.Fields(QStringLiteral("First Names")).Value());
            ++count;
        }
        if (count != bench::kBenchClients + 1) {  // the sample client too
            state.SkipWithError("walk missed clients");
        }
    }
}
BENCHMARK(BM_WalkClientsInIndexOrder)->Unit(benchmark::kMillisecond);

void BM_WalkClientsInIndexOrder_Raw(benchmark::State& state) {
    fixture();  // made before the timing starts
    for (auto _ : state) {
        sqlite3* db = rawOpen();
        sqlite3_stmt* walk =
            rawPrepare(db,
                       "SELECT \"Last Name\", \"First Names\" FROM Clients ORDER BY \"Last Name\", "
                       "\"First Names\"");
        while (sqlite3_step(walk) == SQLITE_ROW) {
            benchmark::DoNotOptimize(
                QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(walk, 0))));
            benchmark::DoNotOptimize(
                QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(walk, 1))));
        }
        sqlite3_finalize(walk);
        sqlite3_close(db);
    }
}
BENCHMARK(BM_WalkClientsInIndexOrder_Raw)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
