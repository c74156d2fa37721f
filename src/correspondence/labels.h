#pragma once
// Address labels on sheets of two columns by seven rows, printed on the plain
// printer in millimetres. A label is a list of its non-empty lines; a short
// label drops towards the middle of its cell by 2 mm a missing line.

#include <QStringList>

#include <functional>

namespace quillon {

constexpr int kLabelRows = 7;
constexpr int kLabelColumns = 2;
constexpr int kMostLabelCopies = 14;

// Where the next label goes, and how a label of this kind sits in its cell.
class LabelSheet {
public:
    // `top` is the first line's distance from the cell's top for a full label
    // of `fullLines` lines; `row` and `column` count from 0.
    LabelSheet(double top, int fullLines, int row = 0, int column = 0);
    // Moves on to the next cell when the column is used up, starting a new
    // page after the last row, and prints `lines` there.
    void Print(const QStringList& lines);

private:
    double top_;
    int fullLines_;
    int row_;
    int column_;
};

// The lines of a client's label: the name, then the personal address (choice
// 0) or the first business's name, four address lines and postcode (choice 1).
// `field` gives a field of the client's row of "Personal" or "Business 1".
using LabelField = std::function<QString(const char* table, const char* field)>;
QStringList ClientLabelLines(const LabelField& field, qint16 address);

// "HM Revenue & Customs", then the office's name, address and postcode.
QStringList OfficeLabelLines(const std::function<QString(const char* field)>& field);

// Called with each entry's number from 1 before its labels are printed.
using LabelProgress = std::function<void(int)>;

// Prints `copies` labels of each client of `entries` (last name, ", ", first
// names) onto `sheet`; an entry that is no client is passed over. Throws the
// database's error.
void PrintClientLabelsOf(const QStringList& entries, int copies, qint16 address, LabelSheet& sheet,
                         const LabelProgress& progress = {});
// The same for tax offices of entries name, " (", number, ")".
void PrintOfficeLabelsOf(const QStringList& entries, int copies, LabelSheet& sheet,
                         const LabelProgress& progress = {});

// Sets the printer's millimetres and the labels' font.
void PrepareLabelPrinter();

// A client label sheet, or an office one, from the given cell.
LabelSheet ClientLabelSheet(int row = 0, int column = 0);
LabelSheet OfficeLabelSheet(int row = 0, int column = 0);

}  // namespace quillon
