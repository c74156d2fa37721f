// The client list and the client lifecycle on a client database of 10,000
// clients: loading the list, and creating, renaming and deleting a client
// across its 22 tables as the dialogs do. Run with
//   bench_clients --benchmark_repetitions=9 --benchmark_report_aggregates_only=true
// and read the medians.

#include "clients/client_lifecycle.h"
#include "clients/frmClients.h"
#include "shell/variables.h"

#include <QLabel>

#include "synthetic_slot.h"

#include "bench_main.h"

#include <benchmark/benchmark.h>

using namespace quillon;

namespace {

void fixture() {
    bench::TheSyntheticSlot();
}

ClientName benchClient(int n) {
    return {QStringLiteral("Bench %1").arg(n), QStringLiteral("Lifecycle")};
}

void addClient(const ClientName& name) {
    ClientTables tables;
    tables.Open(ClientDatabasePath());
    AddClientRows(tables, name);
    tables.Close();
}

void BM_ClientListLoad(benchmark::State& state) {
    fixture();
    for (auto _ : state) {
        frmClients list;
        benchmark::DoNotOptimize(list.pnlCount->text());
    }
}
BENCHMARK(BM_ClientListLoad)->Unit(benchmark::kMillisecond);

void BM_ClientListLoadOfAHundredThousand(benchmark::State& state) {
    bench::TheLargeSyntheticSlot();
    for (auto _ : state) {
        frmClients list;
        benchmark::DoNotOptimize(list.pnlCount->text());
    }
    bench::TheSyntheticSlot();
}
BENCHMARK(BM_ClientListLoadOfAHundredThousand)->Unit(benchmark::kMillisecond);

void BM_NewClient(benchmark::State& state) {
    fixture();
    int n = 0;
    for (auto _ : state) {
        addClient(benchClient(++n));
    }
    // The clients go again, so that every run starts from the same database.
    for (int i = 1; i <= n; ++i) {
        ClientTables tables;
        tables.Open(ClientDatabasePath());
        DeleteClientRows(tables, benchClient(i));
        tables.Close();
    }
}
BENCHMARK(BM_NewClient)->Unit(benchmark::kMillisecond);

void BM_RenameClient(benchmark::State& state) {
    fixture();
    const ClientName names[2] = {benchClient(-1), benchClient(-2)};
    addClient(names[0]);
    int from = 0;
    for (auto _ : state) {
        ClientTables tables;
        tables.Open(ClientDatabasePath());
        benchmark::DoNotOptimize(RenameClientRows(tables, names[from], names[1 - from]));
        tables.Close();
        from = 1 - from;
    }
    ClientTables tables;
    tables.Open(ClientDatabasePath());
    DeleteClientRows(tables, names[from]);
    tables.Close();
}
BENCHMARK(BM_RenameClient)->Unit(benchmark::kMillisecond);

void BM_DeleteClient(benchmark::State& state) {
    fixture();
    int n = 0;
    for (auto _ : state) {
        state.PauseTiming();
        addClient(benchClient(++n));
        state.ResumeTiming();
        ClientTables tables;
        tables.Open(ClientDatabasePath());
        benchmark::DoNotOptimize(DeleteClientRows(tables, benchClient(n)));
        tables.Close();
    }
}
BENCHMARK(BM_DeleteClient)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    return bench::RunBenchmarks(argc, argv);
}
