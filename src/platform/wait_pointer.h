#pragma once
// The hourglass for as long as a WaitPointer lives; nothing without a window
// system (a tool, a benchmark) has a pointer to change.

#include <QCursor>
#include <QGuiApplication>

namespace quillon {

class WaitPointer {
public:
    WaitPointer() {
        if (qGuiApp != nullptr) {
            QGuiApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
        }
    }
    ~WaitPointer() {
        if (qGuiApp != nullptr) {
            QGuiApplication::restoreOverrideCursor();
        }
    }
    WaitPointer(const WaitPointer&) = delete;
    WaitPointer& operator=(const WaitPointer&) = delete;
};

}  // namespace quillon
