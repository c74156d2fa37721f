// A long report through the drawing routines into a PDF file: 100 pages of 60
// lines, each line one text or, as a full diary report lays them out, four.
// One agent authorisation form, both pages filled, into a PDF file. The client
// records of 100 synthetic clients with every section, through the plain
// printer into the PDF printer's file. The diary progress sheet of 5,000
// listed clients into a PDF file.

#include "correspondence/list_entries.h"
#include "data/client_rows.h"
#include "platform/services.h"
#include "reports/client_records.h"
#include "reports/diary_report.h"
#include "reports/form64_8.h"
#include "reports/print_backend.h"
#include "reports/vsprint.h"
#include "shell/variables.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QTemporaryDir>

#include "bench_main.h"
#include "pdf_printing.h"
#include "synthetic_slot.h"

#include <benchmark/benchmark.h>

using namespace quillon;

namespace {

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
    const bench::PdfPrinting pdf(QStringLiteral("report.pdf"));
    for (auto _ : state) {
        DrawReport(100, 60, diaryRows);
        VSConvertToPDF(pdf.FilePath());
    }
}
BENCHMARK(BM_HundredPagesToPdf)
    ->ArgName("diaryRows")
    ->Arg(0)
    ->Arg(1)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(5)
    ->Iterations(1);

// A form with every box filled and every tick set.
Form64Entries FilledForm() {
    Form64Entries entries;
    for (const char* box :
         {"txtClientName",      "txtBusinessName",   "txtAgentName",      "txtClientAddress1",
          "txtClientAddress2",  "txtClientAddress3", "txtClientAddress4", "txtClientPostcode",
          "txtClientTelephone", "txtAgentAddress1",  "txtAgentAddress2",  "txtAgentAddress3",
          "txtAgentAddress4",   "txtAgentPostcode",  "txtAgentTelephone", "txtAgentCodes",
          "txtClientReference", "txtJointClaimant",  "txtPAYEReference",  "txtVATRegistration"}) {
        entries.texts.insert(QLatin1String(box), QStringLiteral("Filled text"));
    }
    for (const char* box : {"txtClientNINO", "txtTaxCreditNINO", "txtJointClaimantNINO"}) {
        entries.texts.insert(QLatin1String(box), QStringLiteral("AB123456C"));
    }
    for (const char* box : {"txtClientUTR", "txtCompanyRegistration", "txtCompanyUTR"}) {
        entries.texts.insert(QLatin1String(box), QStringLiteral("1234567890"));
    }
    for (const char* tick :
         {"chkSelfEmployed", "chkUTRNotIssued", "chkStatementsToAgent", "chkTaxCredits",
          "chkCorporationTax", "chkPAYE", "chkVAT", "chkVATNotRegistered"}) {
        entries.ticked.insert(QLatin1String(tick));
    }
    return entries;
}

void BM_Form64ToPdf(benchmark::State& state) {
    const bench::PdfPrinting pdf(QStringLiteral("form.pdf"));
    const Form64Entries entries = FilledForm();
    ReportDestination = rdPdfFile;
    VSPrinter = kPdfPrinterName;
    for (auto _ : state) {
        PrintForm64(entries);
        VSConvertToPDF(pdf.FilePath());
    }
}
BENCHMARK(BM_Form64ToPdf)->Unit(benchmark::kMillisecond)->Repetitions(5)->Iterations(5);

void BM_ClientRecordsOfAHundredClientsToPdf(benchmark::State& state) {
    bench::TheSyntheticSlot();
    const QStringList entries = ClientEntries().mid(0, 100);
    const bench::PdfPrinting pdf(QStringLiteral("records.pdf"));
    ErrorDetails failure;
    for (auto _ : state) {
        if (!PrintClientRecords(entries, AllRecordSections(), failure)) {
            state.SkipWithError(qPrintable(failure.description));
        }
    }
}
BENCHMARK(BM_ClientRecordsOfAHundredClientsToPdf)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(5)
    ->Iterations(1);

class FixedDay : public ClockService {
public:
    QDate Today() const override { return {2013, 6, 15}; }
    QDateTime Now() const override { return QDateTime(Today(), QTime(9, 0)); }
};

// The first 5,000 clients of the synthetic database, as the diary's list
// hands them over, with the six marked events of the delivered descriptions
// and the NI number beside each name.
DiaryReport FiveThousandListed() {
    DiaryReport report;
    report.entries = ClientEntries().mid(0, 5000);
    report.reference = drNINumber;
    report.sheet.title = QStringLiteral("Returns in progress");
    ReadCommonRow({QStringLiteral("bench"), QStringLiteral("events")}, QStringLiteral("Diary 1"),
                  [&report](const dao::Recordset& row) {
                      report.sheet.taxYear = NullToEmpty(row.Fields(QStringLiteral("Tax Year")));
                      for (int i = 1; i <= 20; ++i) {
                          report.sheet.events
                              << NullToEmpty(row.Fields(QStringLiteral("Text %1").arg(i)));
                      }
                  });
    return report;
}

void BM_DiaryReportOfFiveThousandToPdf(benchmark::State& state) {
    bench::TheSyntheticSlot();
    const DiaryReport report = FiveThousandListed();
    bench::PdfPrinting pdf(QStringLiteral("diary.pdf"));
    FixedDay clock;
    pdf.UseClock(&clock);
    ReportDestination = rdPdfFile;
    VSPrinter = kPdfPrinterName;
    ErrorDetails failure;
    for (auto _ : state) {
        // The window's events run at each client, as the screen lets them.
        const auto progress = [](int) {
            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        };
        if (PrintDiaryReport(report, failure, progress) != DiaryReportOutcome::Drawn) {
            state.SkipWithError(qPrintable(failure.description));
        }
        VSConvertToPDF(pdf.FilePath());
    }
    state.counters["pages"] = VSDocumentControl().PageCount();
}
BENCHMARK(BM_DiaryReportOfFiveThousandToPdf)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(5)
    ->Iterations(1);

}  // namespace

int main(int argc, char** argv) {
    return bench::RunBenchmarks(argc, argv);
}
