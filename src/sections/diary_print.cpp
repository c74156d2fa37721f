#include "sections/diary_print.h"

#include "platform/wait_pointer.h"
#include "reports/printer_object.h"

namespace quillon {

namespace {

// Page millimetres.
constexpr double kTitleY = 20;
constexpr double kTableTop = 40;
constexpr double kRowHeight = 8;
constexpr double kTableLeft = 10;
constexpr double kTableRight = 200;
constexpr double kTextInset = 1.5;
// The left edge of each column: date, standard event, date, client event.
constexpr double kColumns[] = {10, 26, 105, 121};

void PrintAt(double x, double y, const QString& text) {
    Printer.setCurrentX(x);
    Printer.setCurrentY(y);
    Printer.Print(text);
}

void PrintTableRow(double y, const std::array<QString, 4>& texts) {
    for (size_t c = 0; c < texts.size(); ++c) {
        PrintAt(kColumns[c] + kTextInset, y + kTextInset, texts[c]);
    }
    Printer.Line(kTableLeft, y + kRowHeight, kTableRight, y + kRowHeight);
}

}  // namespace

bool PrintDiaryList(const QStringList& clients, const QString& title) {
    return PrintListReport(clients,
                           title + QStringLiteral(" (") + QString::number(clients.size()) +
                               QStringLiteral(" clients)"),
                           1, true);
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
    return SendPrinterPages();
}

}  // namespace quillon
