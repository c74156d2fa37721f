#include "data/ql_date.h"

#include "platform/dao.h"
#include "platform/services.h"

#include <QStringList>

#include <array>
#include <optional>

namespace quillon {

namespace {

constexpr int kPlatformCenturyPivot = 30;
constexpr int kFallbackDay = 1;
constexpr int kFallbackMonth = 1;
constexpr int kFallbackYear = 1900;

bool IsDigits(QStringView text, qsizetype minLength, qsizetype maxLength) {
    if (text.size() < minLength || text.size() > maxLength) {
        return false;
    }
    for (QChar c : text) {
        if (c < QLatin1Char('0') || c > QLatin1Char('9')) {
            return false;
        }
    }
    return true;
}

int DigitsOr(QStringView text, int fallback) {
    return IsDigits(text, 1, 4) ? text.toInt() : fallback;
}

// Places (from 0) of the first "/", at the second or third character, and of
// the next "/" behind it, in a text of 6 to 10 characters.
struct Separators {
    qsizetype first;
    qsizetype second;
    qsizetype monthWidth() const { return second - first - 1; }
};

std::optional<Separators> FindSeparators(const QString& text) {
    if (text.size() < 6 || text.size() > 10) {
        return std::nullopt;
    }
    const qsizetype first = text.indexOf(QLatin1Char('/'));
    if (first != 1 && first != 2) {
        return std::nullopt;
    }
    const qsizetype second = text.indexOf(QLatin1Char('/'), first + 1);
    if (second < 0) {
        return std::nullopt;
    }
    return Separators{first, second};
}

QString TwoDigits(int value) {
    return QStringLiteral("%1").arg(value % 100, 2, 10, QLatin1Char('0'));
}

QDate DateOfParts(const QString& text) {
    const QDate date(YearOfDate(text), MonthOfDate(text), DayOfDate(text));
    if (!date.isValid()) {
        throw dao::DaoError(13, QStringLiteral("Type mismatch"));
    }
    return date;
}

qint64 MonthIndex(const QDate& date) {
    return qint64(date.year()) * 12 + date.month() - 1;
}

// Julian day 0 is a Monday; counting from the day before makes weeks start on Sunday.
qint64 SundayWeekIndex(const QDate& date) {
    return (date.toJulianDay() + 1) / 7;
}

}  // namespace

QDate PlatformDate(const QString& text) {
    const QStringList parts = text.split(QLatin1Char('/'));
    if (parts.size() != 3 || !IsDigits(parts[0], 1, 2) || !IsDigits(parts[1], 1, 2)) {
        return {};
    }
    const QString& yearText = parts[2];
    int year = yearText.toInt();
    if (IsDigits(yearText, 2, 2)) {
        year += year < kPlatformCenturyPivot ? 2000 : 1900;
    } else if (!IsDigits(yearText, 4, 4) || year < 100) {
        return {};
    }
    const QDate date(year, parts[1].toInt(), parts[0].toInt());
    return date.isValid() ? date : QDate();
}

bool IsPlatformDate(const QString& text) {
    return PlatformDate(text).isValid();
}

QString ExpandBirthYear(const QString& text) {
    const QDate date = PlatformDate(text);
    const QStringList parts = text.split(QLatin1Char('/'));
    if (!date.isValid() || parts.size() != 3 || parts[2].size() != 2) {
        return text;
    }
    return QStringLiteral("%1/%2/19%3")
        .arg(TwoDigits(date.day()), TwoDigits(date.month()), TwoDigits(parts[2].toInt()));
}

int DayOfDate(const QString& text) {
    const auto separators = FindSeparators(text);
    if (!separators) {
        return kFallbackDay;
    }
    return DigitsOr(QStringView(text).left(separators->first), kFallbackDay);
}

int MonthOfDate(const QString& text) {
    const auto separators = FindSeparators(text);
    if (!separators || separators->monthWidth() < 1 || separators->monthWidth() > 2) {
        return kFallbackMonth;
    }
    return DigitsOr(QStringView(text).mid(separators->first + 1, separators->monthWidth()),
                    kFallbackMonth);
}

int YearOfDate(const QString& text) {
    const auto separators = FindSeparators(text);
    if (!separators || separators->monthWidth() < 1 || separators->monthWidth() > 2) {
        return kFallbackYear;
    }
    const QStringView yearText = QStringView(text).mid(separators->second + 1);
    if (IsDigits(yearText, 4, 4)) {
        return yearText.toInt();
    }
    if (!IsDigits(yearText, 2, 2)) {
        return kFallbackYear;
    }
    const int twoDigits = yearText.toInt();
    return twoDigits < kCenturyPivot ? 2000 + twoDigits : 1900 + twoDigits;
}

QString MonthName(int month) {
    static const std::array<const char*, 12> kNames{
        "January", "February", "March",     "April",   "May",      "June",
        "July",    "August",   "September", "October", "November", "December"};
    if (month < 1 || month > 12) {
        return QString();
    }
    return QString::fromLatin1(kNames[month - 1]);
}

QString LongDate(const QString& text) {
    return QStringLiteral("%1 %2 %3")
        .arg(DayOfDate(text))
        .arg(MonthName(MonthOfDate(text)))
        .arg(YearOfDate(text));
}

qint64 DaysBetween(const QString& interval, const QString& text1, const QString& text2) {
    const QDate from = DateOfParts(text1);
    const QDate to = DateOfParts(text2);
    if (interval == QLatin1String("d") || interval == QLatin1String("y")) {
        return from.daysTo(to);
    }
    if (interval == QLatin1String("w")) {
        return from.daysTo(to) / 7;
    }
    if (interval == QLatin1String("ww")) {
        return SundayWeekIndex(to) - SundayWeekIndex(from);
    }
    if (interval == QLatin1String("m")) {
        return MonthIndex(to) - MonthIndex(from);
    }
    if (interval == QLatin1String("q")) {
        return MonthIndex(to) / 3 - MonthIndex(from) / 3;
    }
    if (interval == QLatin1String("yyyy")) {
        return to.year() - from.year();
    }
    throw dao::DaoError(5, QStringLiteral("Invalid procedure call or argument"));
}

QString TaxYearStart(int taxYear) {
    return QStringLiteral("06/04/") + TwoDigits(taxYear - 1);
}

QString TaxYearEnd(int taxYear) {
    return QStringLiteral("05/04/") + TwoDigits(taxYear);
}

bool DateWithinTaxYear(const QString& text, int taxYear) {
    try {
        return DaysBetween(QStringLiteral("d"), TaxYearStart(taxYear), text) >= 0 &&
               DaysBetween(QStringLiteral("d"), text, TaxYearEnd(taxYear)) >= 0;
    } catch (const dao::DaoError&) {
        return false;
    }
}

void DateOutsideTaxYear() {
    Beep();
    MsgBox(QStringLiteral("Date must be within the tax year"), vbExclamation,
           QStringLiteral("Dividends"));
}

}  // namespace quillon
