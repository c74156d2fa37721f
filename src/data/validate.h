#pragma once
// Key filters and date checks for the screens' boxes. A filter takes the
// character code of a key press; when the key is refused it beeps and sets the
// code to 0, so that nothing is typed.

#include <QString>

namespace quillon {

constexpr int kKeyBackspace = 8;

// Digits, "/" and backspace; "." becomes "/", so that dates can be typed on
// the number pad.
void DateKeyFilter(int& key);
// Digits and backspace.
void DigitKeyFilter(int& key);
// Digits, ".", "(", ")", "-" and backspace.
void AmountKeyFilter(int& key);
// Letters A to Z and a to z, digits and backspace.
void AlphaNumericKeyFilter(int& key);

// A box's text as a "dd/mm/yy" date, day and month of one or two digits; an
// empty box is valid.
bool ValidDate(const QString& text);
// As ValidDate, for a date of birth, where the year may also have four digits.
bool ValidBirthDate(const QString& text);

// Beep and the message for a refused date; the caller puts the focus back.
void InvalidDate();
void InvalidBirthDate();

}  // namespace quillon
