#include "sections/diary_print.h"

#include "platform/services.h"
#include "platform/wait_pointer.h"
#include "reports/printer_object.h"
#include "reports/vsprint.h"
#include "reports/vsprinter_control.h"

namespace quillon {

namespace {

// Page millimetres.
constexpr double kTitleY = 20;
constexpr double kFirstLineY = 30;
constexpr double kLastLineY = 265;
constexpr double kFooterY = 275;
constexpr double kListLeft = 20;

constexpr double kTableTop = 40;
constexpr double kRowHeight = 8;
constexpr double kTableLeft = 10;
constexpr double kTableRight = 200;
constexpr double kTextInset = 1.5;
// The left edge of each column: date, standard event, date, client event.
constexpr double kColumns[] = {10, 26, 105, 121};

void PrintCentred(const QString& text) {
    Printer.setCurrentX((Printer.ScaleWidth() - Printer.TextWidth(text)) / 2.0);
    Printer.Print(text);
}

void PrintAt(double x, double y, const QString& text) {
    Printer.setCurrentX(x);
    Printer.setCurrentY(y);
    Printer.Print(text);
}

void PrintListHeading(const QString& heading) {
    Printer.FontBold = true;
    Printer.setCurrentY(kTitleY);
    PrintCentred(heading);
    Printer.FontBold = false;
    Printer.setCurrentY(kFirstLineY);
}

void PrintFooter(int page) {
    Printer.setCurrentY(kFooterY);
    PrintCentred(QStringLiteral("Page ") + QString::number(page));
}

bool SendPages() {
    QString device = Printer.DeviceName();
    if (device.isEmpty() && CurrentServices().printers) {
        device = CurrentServices().printers->DefaultPrinterName();
    }
    if (!Printer.EndDoc()) {
        ReportPrinterFailure(device, vsErrPrinter, Printer.LastError);
        return false;
    }
    return true;
}

void PrintTableRow(double y, const std::array<QString, 4>& texts) {
    for (size_t c = 0; c < texts.size(); ++c) {
        PrintAt(kColumns[c] + kTextInset, y + kTextInset, texts[c]);
    }
    Printer.Line(kTableLeft, y + kRowHeight, kTableRight, y + kRowHeight);
}

}  // namespace

bool PrintDiaryList(const QStringList& clients, const QString& title) {
    const WaitPointer busy;
    Printer.setScaleMode(vbMillimeters);
    Printer.FontName = QStringLiteral("Times New Roman");
    Printer.FontSize = 12;
    const QString heading = title + QStringLiteral(" (") + QString::number(clients.size()) +
                            QStringLiteral(" clients)");
    int page = 1;
    PrintListHeading(heading);
    for (const QString& client : clients) {
        if (Printer.CurrentY() >= kLastLineY) {
            PrintFooter(page++);
            Printer.NewPage();
            PrintListHeading(heading);
        }
        Printer.setCurrentX(kListLeft);
        Printer.Print(client);
    }
    PrintFooter(page);
    return SendPages();
}

bool PrintClientDiary(const ClientDiary& diary) {
    const WaitPointer busy;
    Printer.setScaleMode(vbMillimeters);
    Printer.FontName = QStringLiteral("Times New Roman");
    Printer.FontBold = false;
    Printer.FontSize = 12;
    Printer.setCurrentY(kTitleY);
    PrintCentred(diary.client);
    PrintCentred(diary.taxYear + QStringLiteral(" Tax Processing Diary"));
    Printer.FontSize = 11;
    const double headTop = kTableTop - kRowHeight;
    Printer.Line(kTableLeft, headTop, kTableRight, headTop);
    Printer.FontBold = true;
    PrintTableRow(headTop, {QStringLiteral("Date"), QStringLiteral("Standard Events"),
                            QStringLiteral("Date"), QStringLiteral("Client Events")});
    Printer.FontBold = false;
    for (int i = 0; i < kDiaryEvents; ++i) {
        const DiaryLine& line = diary.lines[size_t(i)];
        PrintTableRow(kTableTop + i * kRowHeight,
                      {line.standardDate, line.standardEvent, line.clientDate, line.clientEvent});
    }
    return SendPages();
}

}  // namespace quillon
