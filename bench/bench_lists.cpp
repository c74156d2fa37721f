// The query screens of the client record on a client database of 10,000
// clients: the diary's and an indicator screen's filtered lists, the year-end
// list over the four business tables, and clearing a diary page for every
// client. Run with
//   bench_lists --benchmark_repetitions=9 --benchmark_report_aggregates_only=true
// and read the median.

#include "platform/dao.h"
#include "sections/diary_clearing.h"
#include "sections/filter_label_gui.h"
#include "sections/frmDiary.h"
#include "sections/frmIPersonal.h"
#include "sections/frmYearEnd.h"
#include "sections/section_state.h"
#include "shell/variables.h"

#include <QCoreApplication>
#include <QListWidget>

#include "synthetic_slot.h"

#include "bench_main.h"
#include "client_steps.h"

#include <benchmark/benchmark.h>

using namespace quillon;

namespace {

// The list of the clients who have received their records (event 3 dated)
// and whose accounts are not yet prepared (event 7 not dated), on page 1.
void BM_DiaryList(benchmark::State& state) {
    bench::StandOnFirstClient();
    DiaryPage = 1;
    frmDiary diary;
    diary.Form_Activate();
    diary.cm3DList_Click();
    diary.lblDFilter_Click(3);
    diary.lblDFilter_Click(7);
    diary.lblDFilter_Click(7);
    for (auto _ : state) {
        diary.UpdateList();
    }
    state.counters["listed"] = diary.lstClients->count();
}
BENCHMARK(BM_DiaryList)->Unit(benchmark::kMillisecond);

// Clients with the second indicator ticked and the third not.
void BM_IndicatorList(benchmark::State& state) {
    bench::StandOnFirstClient();
    frmIPersonal indicators;
    indicators.Form_Activate();
    indicators.lblFilter_Click(2);
    indicators.lblFilter_Click(3);
    indicators.lblFilter_Click(3);
    for (auto _ : state) {
        indicators.UpdateList();
    }
    state.counters["listed"] = indicators.lstClients->count();
}
BENCHMARK(BM_IndicatorList)->Unit(benchmark::kMillisecond);

void BM_YearEndList(benchmark::State& state) {
    bench::StandOnFirstClient();
    frmYearEnd yearEnd;
    yearEnd.lblFilter_Click(3);
    for (auto _ : state) {
        yearEnd.UpdateList();
    }
    state.counters["listed"] = yearEnd.lstClients->count();
}
BENCHMARK(BM_YearEndList)->Unit(benchmark::kMillisecond);

// Every row of page 4 cleared, with the window's events let through after
// each transaction as the screen does. A page cleared once is cleared again
// with the same writes.
void BM_ClearAll(benchmark::State& state) {
    bench::StandOnFirstClient();
    int rows = 0;
    for (auto _ : state) {
        rows = ClearDiaryPage(ClientDatabasePath(), 4, [](int) {
            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        });
    }
    state.counters["rows"] = rows;
}
BENCHMARK(BM_ClearAll)->Unit(benchmark::kMillisecond)->Iterations(1);

}  // namespace

int main(int argc, char** argv) {
    return bench::RunBenchmarks(argc, argv);
}
