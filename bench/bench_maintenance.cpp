// Database maintenance on 10,000 synthetic clients: a backup, a compact, an
// import of 1,000 clients into an empty database, and the transfer of 1,000
// first-version clients. Run with
//   bench_maintenance --benchmark_repetitions=3 --benchmark_report_aggregates_only=true

#include "clients/client_lifecycle.h"
#include "data/delivered_databases.h"
#include "maintenance/client_import.h"
#include "maintenance/database_backup.h"
#include "maintenance/database_upkeep.h"
#include "maintenance/version1_transfer.h"
#include "platform/files.h"
#include "shell/variables.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "synthetic_slot.h"

#include "bench_main.h"

#include <benchmark/benchmark.h>

using namespace quillon;

namespace {

void BM_Backup(benchmark::State& state) {
    bench::TheSyntheticSlot();
    QTemporaryDir dir;
    for (auto _ : state) {
        BackupDatabaseFile(ClientDatabasePath(), dir.filePath(QStringLiteral("copy.mdb")));
    }
}
BENCHMARK(BM_Backup)->Unit(benchmark::kMillisecond);

void BM_Compact(benchmark::State& state) {
    bench::TheSyntheticSlot();
    for (auto _ : state) {
        CompactClientDatabase(ClientDatabasePath());
    }
}
BENCHMARK(BM_Compact)->Unit(benchmark::kMillisecond)->Iterations(1)->Repetitions(3);

// 1,000 clients from the synthetic database into a new, empty one.
void BM_ImportThousandClients(benchmark::State& state) {
    bench::TheSyntheticSlot();
    QTemporaryDir dir;
    const QString target = dir.filePath(QStringLiteral("QUILL020.MDB"));
    dao::Database source = dao::OpenDatabase(ClientDatabasePath(), false, true);
    QStringList entries;
    {
        dao::Recordset clients = source.OpenRecordset(QStringLiteral("Clients"));
        clients.SetIndex(QStringLiteral("Name"));
        for (clients.MoveFirst(); !clients.IsEOF() && entries.size() < 1000; clients.MoveNext()) {
            entries << clients.Fields(QStringLiteral("Last Name")).Value().toString() +
                           QStringLiteral(", ") +
                           clients.Fields(QStringLiteral("First Names")).Value().toString();
        }
    }
    for (auto _ : state) {
        state.PauseTiming();
        QFile::remove(target);
        MakeClientDatabase(target);
        state.ResumeTiming();
        ClientTables tables;
        tables.Open(target);
        for (const QString& entry : entries) {
            if (const auto client = ReadSourceClient(source, entry)) {
                AddImportedClient(tables, *client);
            }
        }
        tables.Close();
    }
}
BENCHMARK(BM_ImportThousandClients)->Unit(benchmark::kMillisecond)->Iterations(1)->Repetitions(3);

void BM_TransferThousandVersion1Clients(benchmark::State& state) {
    QTemporaryDir dir;
    const QString old = dir.filePath(QStringLiteral("QUILLON"));
    QDir().mkpath(old);
    MakeVersion1Database(QDir(old).filePath(QStringLiteral("QUILL001.MDB")), 1000);
    for (const char* name :
         {"ASSETS.TXT", "ACCOUNTS.TXT", "EVENTS.TXT", "BENEFITS.TXT", "PERSONAL.TXT"}) {
        QFile file(QDir(old).filePath(QLatin1String(name)));
        file.open(QIODevice::WriteOnly);
        file.write("A description\r\n");
    }
    const QString target = dir.filePath(QStringLiteral("TEMPDST.MDB"));
    for (auto _ : state) {
        state.PauseTiming();
        QFile::remove(target);
        MakeClientDatabase(target);
        state.ResumeTiming();
        TransferClients(QDir(old).filePath(QStringLiteral("QUILL001.MDB")), target, old, {});
    }
}
BENCHMARK(BM_TransferThousandVersion1Clients)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->Repetitions(3);

}  // namespace

int main(int argc, char** argv) {
    return bench::RunBenchmarks(argc, argv);
}
