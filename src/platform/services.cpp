#include "platform/services.h"

#include <QStringList>
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

QString DialogFilter(const QString& pairs) {
    const QStringList parts = pairs.split(QLatin1Char('|'));
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString patterns =
            QString(parts.at(i + 1)).replace(QLatin1Char(';'), QLatin1Char(' '));
        const bool named = parts.at(i).contains(QLatin1Char('('));
        filters << (named ? parts.at(i)
                          : parts.at(i) + QStringLiteral(" (") + patterns + QLatin1Char(')'));
    }
    return filters.join(QStringLiteral(";;"));
}

int MsgBox(const QString& prompt, int style, const QString& title) {
    return Require(installed().messages, "message")
        .MsgBox(prompt, style, title.isEmpty() ? QStringLiteral("Quillon") : title);
}

void Beep() {
    Require(installed().messages, "message").Beep();
}

QString OpenFileName(const QString& title, const QString& folder, const QString& filter) {
    return Require(installed().fileDialogs, "file dialog").OpenFileName(title, folder, filter);
}

QString SaveFileName(const QString& title, const QString& suggestedPath, const QString& filter) {
    return Require(installed().fileDialogs, "file dialog")
        .SaveFileName(title, suggestedPath, filter);
}

QDate Today() {
    return Require(installed().clock, "clock").Today();
}

QDateTime Now() {
    return Require(installed().clock, "clock").Now();
}

}  // namespace quillon
