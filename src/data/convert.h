#pragma once
// Figures shown in boxes and columns, and figures read back from text.

#include <QString>

namespace quillon {

// `text` right-aligned in 8 or 9 blanks-padded characters; empty for an empty
// text. A longer text keeps its first 8 or 9 characters.
QString RightAlign8(const QString& text);
QString RightAlign9(const QString& text);

// The program's amount format, "########;(########);#": a whole number without
// thousands separators, a negative one in brackets, zero as nothing. The
// value is first rounded to a whole number, halves away from zero, so 0.4
// shows as nothing and -2.5 as "(3)". Infinities and NaN show as nothing.
QString FormatAmount(double value);

// The number at the start of `text`, as typed figures are read: blanks, tabs
// and line breaks are skipped wherever they stand; a sign may lead; digits
// with at most one decimal point and an optional exponent ("1.5E3") follow;
// reading stops at the first character that can't continue the number.
// Text with no leading number gives 0: "12abc" is 12, "(12)" is 0.
double Val(const QString& text);

// The number `Val` reads, as its text: an optional sign, digits with at most
// one point, and an exponent ("e" and a signed integer) when one was typed;
// empty when the text has no leading number.
QString LeadingNumber(const QString& text);

}  // namespace quillon
