#pragma once
// Puts one of the key filter routines (DateKeyFilter, AmountKeyFilter, ...) in
// front of a text box: each typed character goes through the routine, which
// may refuse it with a beep or type another character in its place.

#include <functional>

class QLineEdit;

namespace quillon {

using KeyRoutine = std::function<void(int& key)>;

void InstallKeyRoutine(QLineEdit* box, KeyRoutine routine);

}  // namespace quillon
