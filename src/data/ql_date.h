#pragma once
// Dates held as text, day/month/year with "/" between: "dd/mm/yy" in general,
// "dd/mm/yyyy" for dates of birth. These routines read such texts without
// regard to the regional settings of the machine.

#include <QDate>
#include <QString>

namespace quillon {

// Two-digit years below this are 20yy, the others 19yy, in the date-part
// routines. Fixed, whatever today's date.
constexpr int kCenturyPivot = 17;

// The program's own test of whether a text is a date, the same in every
// locale. It accepts day/month/year separated by "/" only (the date boxes let
// no other separator through), with a day and month of one or two digits and
// a year of two or four digits, making a real calendar date. A two-digit year
// 00-29 is 2000-2029 and 30-99 is 1930-1999; a four-digit year stands as
// written, from 100 to 9999. Blanks, signs and any other character refuse.
bool IsPlatformDate(const QString& text);
// The date IsPlatformDate reads in `text`; a null date when it refuses it.
QDate PlatformDate(const QString& text);

// A date of birth typed with a two-digit year becomes "dd/mm/19yy"; any other
// text comes back unchanged.
QString ExpandBirthYear(const QString& text);

// The parts of a date read by the places of its "/" separators. Texts of
// another layout give day 1, month 1, year 1900.
int DayOfDate(const QString& text);
int MonthOfDate(const QString& text);
int YearOfDate(const QString& text);

// "January" to "December" for 1 to 12; otherwise empty.
QString MonthName(int month);

// "1 February 2003": day, month name and year from the three routines above.
QString LongDate(const QString& text);

// The number of interval boundaries from the date in `text1` to that in
// `text2`, negative when the second is earlier. Intervals: "d" and "y" days,
// "w" whole weeks, "ww" calendar weeks (from Sunday), "m" months,
// "q" quarters, "yyyy" years. Throws dao::DaoError 5 for another interval, and
// 13 when a text's parts make no calendar date.
qint64 DaysBetween(const QString& interval, const QString& text1, const QString& text2);

// First and last day of the tax year `taxYear`: "06/04/14" and "05/04/15" for 2015.
QString TaxYearStart(int taxYear);
QString TaxYearEnd(int taxYear);

// Whether the date in `text` falls within the tax year `taxYear`, both boundary
// days counting as inside. A text that makes no calendar date is outside.
bool DateWithinTaxYear(const QString& text, int taxYear);
// Beeps and tells the user that a dividend date is outside the chosen tax year.
void DateOutsideTaxYear();

}  // namespace quillon
