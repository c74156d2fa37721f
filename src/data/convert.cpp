#include "data/convert.h"

#include <QLocale>

#include <cmath>

namespace quillon {

namespace {

QString RightAlign(const QString& text, qsizetype width) {
    if (text.isEmpty()) {
        return QString();
    }
    return text.rightJustified(width, QLatin1Char(' '), true);
}

bool IsBlank(QChar c) {
    return c == QLatin1Char(' ') || c == QLatin1Char('\t') || c == QLatin1Char('\n') ||
           c == QLatin1Char('\r');
}

bool IsDigit(QChar c) {
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

bool IsExponentMark(QChar c) {
    const QChar lower = c.toLower();
    return lower == QLatin1Char('e') || lower == QLatin1Char('d');
}

bool IsSign(QChar c) {
    return c == QLatin1Char('+') || c == QLatin1Char('-');
}

// The leading number of `text` in the C locale's form, blanks dropped. It may
// end in an exponent mark or sign with no digits yet, which callers trim.
class NumberScanner {
public:
    QString Scan(const QString& text) {
        for (QChar c : text) {
            if (IsBlank(c)) {
                continue;
            }
            if (!Take(c)) {
                break;
            }
        }
        return Finished();
    }

private:
    bool Take(QChar c) {
        if (IsSign(c) && (number_.isEmpty() || (inExponent_ && !exponentDigits_ &&
                                                number_.back() == QLatin1Char('e')))) {
            number_ += c;
        } else if (IsDigit(c)) {
            number_ += c;
            (inExponent_ ? exponentDigits_ : mantissaDigits_) = true;
        } else if (c == QLatin1Char('.') && !point_ && !inExponent_) {
            point_ = true;
            number_ += c;
        } else if (IsExponentMark(c) && mantissaDigits_ && !inExponent_) {
            inExponent_ = true;
            exponentAt_ = number_.size();
            number_ += QLatin1Char('e');
        } else {
            return false;
        }
        return true;
    }

    QString Finished() {
        if (!mantissaDigits_) {
            return QString();
        }
        if (inExponent_ && !exponentDigits_) {
            number_.truncate(exponentAt_);
        }
        return number_;
    }

    QString number_;
    bool mantissaDigits_ = false;
    bool point_ = false;
    bool inExponent_ = false;
    bool exponentDigits_ = false;
    qsizetype exponentAt_ = 0;
};

}  // namespace

QString RightAlign8(const QString& text) {
    return RightAlign(text, 8);
}

QString RightAlign9(const QString& text) {
    return RightAlign(text, 9);
}

QString FormatAmount(double value) {
    const double rounded = std::round(value);
    if (!std::isfinite(rounded) || rounded == 0.0) {
        return QString();
    }
    const QString digits = QString::number(std::fabs(rounded), 'f', 0);
    return rounded < 0 ? QLatin1Char('(') + digits + QLatin1Char(')') : digits;
}

QString LeadingNumber(const QString& text) {
    return NumberScanner().Scan(text);
}

double Val(const QString& text) {
    const QString number = LeadingNumber(text);
    if (number.isEmpty()) {
        return 0.0;
    }
    bool ok = false;
    const double value = QLocale::c().toDouble(number, &ok);
    return ok ? value : 0.0;
}

}  // namespace quillon
