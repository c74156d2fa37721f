#include "data/currency.h"

#include "data/convert.h"
#include "data/validate.h"

#include <algorithm>

namespace quillon {

namespace {

constexpr int kScaleDigits = 4;
// Digits that an amount in units may have and still fit in 64 bits.
constexpr qsizetype kUnitDigits = 18;
// A money box holds this many characters unless the last closes a bracket.
constexpr qsizetype kMoneyBoxWidth = 8;

struct Decimal {
    bool negative = false;
    QString digits;    // the figures without the point, leading zeros dropped
    int exponent = 0;  // the value is digits times ten to this
};

Decimal ReadDecimal(const QString& number) {
    Decimal decimal;
    qsizetype at = 0;
    if (at < number.size() && (number[at] == QLatin1Char('-') || number[at] == QLatin1Char('+'))) {
        decimal.negative = number[at++] == QLatin1Char('-');
    }
    for (; at < number.size() && number[at] != QLatin1Char('e'); ++at) {
        if (number[at] == QLatin1Char('.')) {
            decimal.exponent = -static_cast<int>(number.size() - at - 1);
        } else if (!decimal.digits.isEmpty() || number[at] != QLatin1Char('0')) {
            decimal.digits += number[at];
        }
    }
    if (decimal.exponent < 0) {
        // The point was counted from the end; the exponent's part follows it.
        decimal.exponent += static_cast<int>(number.size() - at);
    }
    if (at < number.size()) {
        // An exponent far beyond any amount only has to stay far beyond it.
        const QString power = number.mid(at + 1);
        decimal.exponent += std::clamp(power.toLongLong(), -1000LL, 1000LL);
    }
    return decimal;
}

}  // namespace

// Read from the figures as typed, never through a binary fraction, so that
// 1.00005 is 10000.5 units and rounds to 10001 as it should.
Currency Currency::FromText(const QString& text) {
    const Decimal decimal = ReadDecimal(LeadingNumber(text));
    const int shift = decimal.exponent + kScaleDigits;
    QString units = decimal.digits;
    bool roundUp = false;
    if (shift >= 0) {
        units += QString(std::min(shift, 100), QLatin1Char('0'));
    } else {
        const qsizetype kept = units.size() + shift;
        roundUp = kept >= 0 && kept < units.size() && units[kept] >= QLatin1Char('5');
        units.truncate(std::max<qsizetype>(0, kept));
    }
    if (units.size() > kUnitDigits) {
        return Currency();  // beyond any amount a box can hold
    }
    const std::int64_t magnitude = units.toLongLong() + (roundUp ? 1 : 0);
    return Currency(decimal.negative ? -magnitude : magnitude);
}

QString MoneyText(Currency value) {
    const std::int64_t pounds = value.RoundedPounds();
    if (pounds == 0)
        return QString();
    if (pounds < 0)
        return RightAlign9(QStringLiteral("(%1)").arg(-pounds));
    return RightAlign8(QString::number(pounds));
}

QString MoneyTotalText(Currency value) {
    if (value < Currency::FromPounds(-9999999) || value > Currency::FromPounds(99999999))
        return QStringLiteral("********");
    return MoneyText(value);
}

void MoneyKeyFilter(const QString& text, int& key) {
    const bool closing = key == ')' || (!text.isEmpty() && text.back() == QLatin1Char(')'));
    if (text.size() >= kMoneyBoxWidth && !closing && key != kKeyBackspace) {
        key = 0;  // the box is full: refused without a beep
        return;
    }
    AmountKeyFilter(key);
}

}  // namespace quillon
