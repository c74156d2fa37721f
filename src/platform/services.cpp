#include "platform/services.h"

#include <QtGlobal>

namespace quillon {

namespace {
Services& installed() {
    static Services services;
    return services;
}

// A routine reached before any services were installed is a fault of the
// program or test set-up; say which service was missing rather than crash.
template <typename Service>
Service& Require(Service* service, const char* name) {
    if (service == nullptr) {
        qFatal("No %s service installed", name);
    }
    return *service;
}
}  // namespace

Services& CurrentServices() {
    return installed();
}

Services InstallServices(const Services& services) {
    Services previous = installed();
    installed() = services;
    return previous;
}

int EscapeAnswer(int style) {
    switch (style & kMsgBoxButtonsMask) {
        case vbOKCancel:
        case vbYesNoCancel:
        case vbRetryCancel:
            return vbCancel;
        case vbAbortRetryIgnore:
            return vbAbort;
        case vbYesNo:
            return vbNo;
        default:
            return vbOK;
    }
}

int MsgBox(const QString& prompt, int style, const QString& title) {
    return Require(installed().messages, "message")
        .MsgBox(prompt, style, title.isEmpty() ? QStringLiteral("Quillon") : title);
}

void Beep() {
    Require(installed().messages, "message").Beep();
}

QDate Today() {
    return Require(installed().clock, "clock").Today();
}

QDateTime Now() {
    return Require(installed().clock, "clock").Now();
}

}  // namespace quillon
