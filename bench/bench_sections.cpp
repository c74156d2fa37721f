// A move to the next client on the personal section, on a client database of
// 10,000 clients: the save of the row left (one field changed), the move
// through the table's name order and the read of the next row. Run with
//   bench_sections --benchmark_repetitions=9 --benchmark_report_aggregates_only=true
// and read the median.

#include "platform/dao.h"
#include "sections/frmPersonal.h"
#include "shell/variables.h"

#include <QLineEdit>
#include <QPushButton>

#include "synthetic_slot.h"

#include "bench_main.h"

#include <benchmark/benchmark.h>

using namespace quillon;

namespace {

void fixture() {
    bench::TheSyntheticSlot();
}

void StandOnFirstClient() {
    dao::Database db = dao::OpenDatabase(ClientDatabasePath());
    dao::Recordset personal = db.OpenRecordset(QStringLiteral("Personal"));
    personal.SetIndex(QStringLiteral("Name"));
    personal.MoveFirst();
    CurrentFirst = personal.Fields(QStringLiteral("First Names")).Value().toString();
    CurrentLast = personal.Fields(QStringLiteral("Last Name")).Value().toString();
}

void BM_PersonalNext(benchmark::State& state) {
    fixture();
    StandOnFirstClient();
    frmPersonal personal;
    personal.Form_Activate();
    int step = 0;
    for (auto _ : state) {
        personal.Box(QStringLiteral("txtCalled"))->setText(QStringLiteral("Called %1").arg(++step));
        const QString before = CurrentFirst + CurrentLast;
        personal.cm3Next->click();
        if (CurrentFirst + CurrentLast == before) {
            state.PauseTiming();  // the last client: start again from the first
            personal.cm3First->click();
            state.ResumeTiming();
        }
    }
}
BENCHMARK(BM_PersonalNext)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    return bench::RunBenchmarks(argc, argv);
}
