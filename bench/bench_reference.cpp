// The reference files: the tax offices screen loading 1,000 offices, "Next"
// on the administration section with each client's office shown, on 10,000
// clients, and the merge of a delivered dividends file of 2,000 shares into
// the user's. Run with
//   bench_reference --benchmark_repetitions=9 --benchmark_report_aggregates_only=true

#include "data/delivered_databases.h"
#include "platform/dao.h"
#include "platform/files.h"
#include "reference/frmOffices.h"
#include "reference/reference_files.h"
#include "sections/frmAdministration.h"
#include "shell/variables.h"

#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>

#include "synthetic_slot.h"

#include "bench_main.h"
#include "client_steps.h"

#include <benchmark/benchmark.h>

using namespace quillon;

namespace {

constexpr int kOffices = 1000;
constexpr int kShares = 2000;
constexpr int kUsersShares = 50;

// The synthetic slot with a tax offices file of 1,000 offices beside it.
void OfficesBesideTheClients() {
    bench::TheSyntheticSlot();
    if (Dir(OfficeDatabasePath()).isEmpty()) {
        MakeSyntheticOfficeDatabase(OfficeDatabasePath(), kOffices);
    }
    TaxOfficesUpdate = false;
}

void BM_OfficeListLoad(benchmark::State& state) {
    OfficesBesideTheClients();
    for (auto _ : state) {
        frmOffices offices;
        benchmark::DoNotOptimize(offices.lstOffices);
    }
}
BENCHMARK(BM_OfficeListLoad)->Unit(benchmark::kMillisecond);

// Most synthetic clients name an office, which is read at each move.
void BM_AdministrationNext(benchmark::State& state) {
    OfficesBesideTheClients();
    bench::StandOnFirstClient();
    frmAdministration administration;
    administration.Form_Activate();
    int steps = 0;
    int shown = 0;
    bench::StepThroughClients(state, administration, QStringLiteral("txtTRef(0)"), [&] {
        ++steps;
        shown += administration.txtTOfficeName->text().isEmpty() ? 0 : 1;
    });
    state.counters["offices shown"] = double(shown) / double(steps);
}
BENCHMARK(BM_AdministrationNext)->Unit(benchmark::kMillisecond);

// The user's file: the delivered one with 50 shares of the user's own.
void MakeUsersFile(const QString& path) {
    MakeDividendDatabase(path);
    dao::Database db = dao::OpenDatabase(path);
    dao::Recordset shares = db.OpenRecordset(QStringLiteral("Dividends"));
    for (int n = 0; n < kUsersShares; ++n) {
        shares.AddNew();
        shares.Fields(QStringLiteral("Company")).SetValue(QStringLiteral("Own Holding %1").arg(n));
        shares.Fields(QStringLiteral("Stock")).SetValue(QStringLiteral("Ordinary"));
        shares.Fields(QStringLiteral("FID")).SetValue(false);
        shares.Fields(QStringLiteral("Number 1")).SetValue(QStringLiteral("100"));
        shares.Update();
    }
}

void BM_DividendMerge(benchmark::State& state) {
    QTemporaryDir dir;
    const QString published = dir.filePath(QStringLiteral("DDIV2015.MDB"));
    const QString users = dir.filePath(QStringLiteral("USERS.MDB"));
    const QString working = dir.filePath(QStringLiteral("DIV2015.MDB"));
    MakeSyntheticDividendDatabase(published, kShares);
    MakeUsersFile(users);
    for (auto _ : state) {
        state.PauseTiming();
        QFile::remove(working);
        QFile::copy(users, working);
        state.ResumeTiming();
        if (MergeDividendFile(published, working) != ReferenceChange::Done) {
            state.SkipWithError("the file was in use");
        }
    }
}
BENCHMARK(BM_DividendMerge)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    return bench::RunBenchmarks(argc, argv);
}
