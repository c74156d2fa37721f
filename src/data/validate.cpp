#include "data/validate.h"

#include "data/ql_date.h"
#include "platform/services.h"

namespace quillon {

namespace {

bool IsDigitKey(int key) {
    return key >= '0' && key <= '9';
}

bool IsLetterKey(int key) {
    return (key >= 'A' && key <= 'Z') || (key >= 'a' && key <= 'z');
}

void AcceptOrRefuse(int& key, bool accepted) {
    if (!accepted) {
        Beep();
        key = 0;
    }
}

// Whether the character at `position`, counted from 1, is "/"; false outside the text.
bool SlashAt(const QString& text, qsizetype position) {
    return position >= 1 && position <= text.size() && text[position - 1] == QLatin1Char('/');
}

// The places of day and month, for the lengths that fix them: 6 is d/m/yy,
// 7 is d/mm/yy or dd/m/yy, `fullLength` is dd/mm/ and a full year.
bool DayAndMonthFit(const QString& text, qsizetype fullLength) {
    const qsizetype length = text.size();
    if (length == 6) {
        return SlashAt(text, 2);
    }
    if (length == 7) {
        return SlashAt(text, 2) != SlashAt(text, 3);
    }
    if (length == fullLength) {
        return !SlashAt(text, 4) && SlashAt(text, 3) && !SlashAt(text, 2);
    }
    return true;
}

bool IsDateOrLeapDay2000(const QString& text) {
    if (IsPlatformDate(text)) {
        return true;
    }
    // A year 00 may be read as 1900, no leap year; 29 February 2000 is meant.
    return text == QLatin1String("29/2/00") || text == QLatin1String("29/02/00");
}

void ShowInvalid(const QString& message) {
    Beep();
    MsgBox(message, vbExclamation, QStringLiteral("Invalid Date"));
}

}  // namespace

void DateKeyFilter(int& key) {
    if (key == '.') {
        key = '/';
    }
    AcceptOrRefuse(key, IsDigitKey(key) || key == '/' || key == kKeyBackspace);
}

void DigitKeyFilter(int& key) {
    AcceptOrRefuse(key, IsDigitKey(key) || key == kKeyBackspace);
}

void AmountKeyFilter(int& key) {
    const bool sign = key == '.' || key == '(' || key == ')' || key == '-';
    AcceptOrRefuse(key, IsDigitKey(key) || sign || key == kKeyBackspace);
}

void AlphaNumericKeyFilter(int& key) {
    AcceptOrRefuse(key, IsLetterKey(key) || IsDigitKey(key) || key == kKeyBackspace);
}

bool ValidDate(const QString& text) {
    const qsizetype length = text.size();
    if (length == 0) {
        return true;
    }
    if (length < 6 || length > 8) {
        return false;
    }
    // Exactly two year digits behind the last "/", and no "/" at either end.
    if (SlashAt(text, length - 1) || !SlashAt(text, length - 2) || SlashAt(text, length - 3) ||
        SlashAt(text, length) || SlashAt(text, 1)) {
        return false;
    }
    return DayAndMonthFit(text, 8) && IsDateOrLeapDay2000(text);
}

bool ValidBirthDate(const QString& text) {
    const qsizetype length = text.size();
    if (length == 0) {
        return true;
    }
    if (length < 6 || length > 10) {
        return false;
    }
    // Two or four year digits behind the last "/", and no "/" at either end.
    const bool twoOrFourYearDigits = SlashAt(text, length - 4) || SlashAt(text, length - 2);
    if (!twoOrFourYearDigits || SlashAt(text, length - 1) || SlashAt(text, length - 3) ||
        SlashAt(text, length) || SlashAt(text, 1)) {
        return false;
    }
    return DayAndMonthFit(text, 10) && IsDateOrLeapDay2000(text);
}

void InvalidDate() {
    ShowInvalid(QStringLiteral("Invalid date - you must enter dates in the format dd/mm/yy"));
}

void InvalidBirthDate() {
    ShowInvalid(QStringLiteral("Invalid date - you must enter dates in the format dd/mm/yyyy"));
}

}  // namespace quillon
