// A long report through the drawing routines into a PDF file: 100 pages of 60
// lines, each line one text or, as a full diary report lays them out, four.

#include "platform/services.h"
#include "reports/print_backend.h"
#include "reports/vsprint.h"
#include "shell/variables.h"

#include <QTemporaryDir>

#include "bench_main.h"

#include <benchmark/benchmark.h>

using namespace quillon;

namespace {

class PdfOnlyPrinters : public PrinterListService {
public:
    QStringList PrinterNames() const override { return {kPdfPrinterName}; }
    QString DefaultPrinterName() const override { return kPdfPrinterName; }
};

void DrawReport(int pages, int lines, bool diaryRows) {
    ReportDestination = rdPdfFile;
    VSPrinter = kPdfPrinterName;
    if (!VSOpenReport(QStringLiteral("Diary Report"))) {
        return;
    }
    VSSetFontName(QStringLiteral("Arial"));
    for (int page = 1; page <= pages; ++page) {
        ReportPageNumber = static_cast<qint16>(page);
        VSNextSheet();
        VSSetFont(9, false, false);
        for (int row = 0; row < lines; ++row) {
            const double y = 30 + 4 * row;
            VSTextAt(26, y, QStringLiteral("Client %1, Forename").arg(page * lines + row));
            if (diaryRows) {
                VSTextAt(6, y, QStringLiteral("AB123456C"));
                VSTextCentred(70, 90, y, QStringLiteral("06/04/15"));
                VSTextCentred(90, 110, y, QStringLiteral("31/01/16"));
            }
        }
    }
    VSEndDocument();
}

void BM_HundredPagesToPdf(benchmark::State& state) {
    const bool diaryRows = state.range(0) != 0;
    PdfOnlyPrinters printers;
    Services services;
    services.printers = &printers;
    const Services previous = InstallServices(services);
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("report.pdf"));
    for (auto _ : state) {
        DrawReport(100, 60, diaryRows);
        VSConvertToPDF(path);
    }
    InstallServices(previous);
}
BENCHMARK(BM_HundredPagesToPdf)
    ->ArgName("diaryRows")
    ->Arg(0)
    ->Arg(1)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(5)
    ->Iterations(1);

}  // namespace

int main(int argc, char** argv) {
    return bench::RunBenchmarks(argc, argv);
}
