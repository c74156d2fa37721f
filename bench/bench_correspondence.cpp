// The correspondence on 10,000 synthetic clients: the merge data file of every
// client, and labels for 1,000 clients printed to a PDF file. Run with
//   bench_correspondence --benchmark_repetitions=9 --benchmark_report_aggregates_only=true

#include "correspondence/labels.h"
#include "correspondence/list_entries.h"
#include "correspondence/merge_file.h"
#include "reports/print_backend.h"
#include "reports/printer_object.h"

#include <QTemporaryDir>

#include "synthetic_slot.h"

#include "bench_main.h"
#include "pdf_printing.h"

#include <benchmark/benchmark.h>

using namespace quillon;

namespace {

void BM_MergeFileOfEveryClient(benchmark::State& state) {
    bench::TheSyntheticSlot();
    const QStringList entries = ClientEntries();
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("MERGE.TXT"));
    const MergeOptions options{QStringLiteral("\""), QStringLiteral(","), 0};
    for (auto _ : state) {
        WriteClientMerge(path, entries, ClientMergeLayout::HandedList, options);
    }
    state.counters["clients"] = double(entries.size());
}
BENCHMARK(BM_MergeFileOfEveryClient)->Unit(benchmark::kMillisecond);

void BM_LabelsOfAThousandClientsToPdf(benchmark::State& state) {
    bench::TheSyntheticSlot();
    const QStringList entries = ClientEntries().mid(0, 1000);
    const bench::PdfPrinting pdf(QStringLiteral("labels.pdf"));
    for (auto _ : state) {
        PrepareLabelPrinter();
        LabelSheet sheet = ClientLabelSheet();
        PrintClientLabelsOf(entries, 1, 0, sheet);
        Printer.EndDoc();
    }
}
BENCHMARK(BM_LabelsOfAThousandClientsToPdf)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    return bench::RunBenchmarks(argc, argv);
}
