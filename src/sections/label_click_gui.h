#pragma once
// Labels that act at a click of the mouse: a caption that cycles through its
// values, a "Details" that opens more lines.

#include <functional>

class QLabel;

namespace quillon {

// Runs `click` when the left button is pressed and released on `label`.
void ConnectClick(QLabel* label, std::function<void()> click);

}  // namespace quillon
