// Steps of a user through the section screens, on a client database of 10,000
// clients: Next on the personal section (the save of the row left, one field
// changed, the move through the table's name order and the read of the next
// row); a turn of the page on the employment section (the page left saved,
// the next page's table read); Next on the assets section, which also reads
// the shared descriptions and shows the net total. Run with
//   bench_sections --benchmark_repetitions=9 --benchmark_report_aggregates_only=true
// and read the median.

#include "platform/dao.h"
#include "sections/frmAssets.h"
#include "sections/frmEmployment.h"
#include "sections/frmPersonal.h"
#include "shell/variables.h"

#include <QLineEdit>
#include <QPushButton>

#include "synthetic_slot.h"

#include "bench_main.h"
#include "client_steps.h"

#include <benchmark/benchmark.h>

using namespace quillon;

namespace {

void fixture() {
    bench::TheSyntheticSlot();
}

void BM_PersonalNext(benchmark::State& state) {
    fixture();
    bench::StandOnFirstClient();
    frmPersonal personal;
    personal.Form_Activate();
    bench::StepThroughClients(state, personal, QStringLiteral("txtCalled"));
}
BENCHMARK(BM_PersonalNext)->Unit(benchmark::kMillisecond);

void BM_EmploymentPageTurn(benchmark::State& state) {
    fixture();
    bench::StandOnFirstClient();
    frmEmployment employment;
    employment.Form_Activate();
    int step = 0;
    for (auto _ : state) {
        employment.Box(QStringLiteral("txtEYear(1)"))->setText(QString::number(++step % 1000));
        employment.ChangePage(1);
    }
}
BENCHMARK(BM_EmploymentPageTurn)->Unit(benchmark::kMillisecond);

void BM_AssetsNext(benchmark::State& state) {
    fixture();
    bench::StandOnFirstClient();
    frmAssets assets;
    assets.Form_Activate();
    bench::StepThroughClients(state, assets, QStringLiteral("txtANote(2)"));
}
BENCHMARK(BM_AssetsNext)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    return bench::RunBenchmarks(argc, argv);
}
