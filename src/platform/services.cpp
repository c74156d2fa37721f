#include "platform/services.h"

namespace quillon {

namespace {
Services& installed() {
    static Services services;
    return services;
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
    return installed().messages->MsgBox(prompt, style,
                                        title.isEmpty() ? QStringLiteral("Quillon") : title);
}

void Beep() {
    installed().messages->Beep();
}

QDate Today() {
    return installed().clock->Today();
}

QDateTime Now() {
    return installed().clock->Now();
}

}  // namespace quillon
