#include "shell/lifecycle.h"

#include <QCoreApplication>

namespace quillon {

namespace {
std::function<void()>& endHandler() {
    static std::function<void()> handler;
    return handler;
}
}  // namespace

void EndProgram() {
    if (endHandler()) {
        endHandler()();
        return;
    }
    QCoreApplication::exit(0);
}

void SetEndProgramHandler(std::function<void()> handler) {
    endHandler() = std::move(handler);
}

}  // namespace quillon
