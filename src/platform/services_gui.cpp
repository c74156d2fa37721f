#include "platform/services_gui.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QPrinterInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

#include <array>
#include <utility>

namespace quillon {

namespace {

using Buttons = QList<QMessageBox::StandardButton>;

// The buttons of each style, in the order the default-button bits count them.
Buttons ButtonsOf(int style) {
    switch (style & kMsgBoxButtonsMask) {
        case vbOKCancel:
            return {QMessageBox::Ok, QMessageBox::Cancel};
        case vbAbortRetryIgnore:
            return {QMessageBox::Abort, QMessageBox::Retry, QMessageBox::Ignore};
        case vbYesNoCancel:
            return {QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel};
        case vbYesNo:
            return {QMessageBox::Yes, QMessageBox::No};
        case vbRetryCancel:
            return {QMessageBox::Retry, QMessageBox::Cancel};
        default:
            return {QMessageBox::Ok};
    }
}

QMessageBox::Icon IconOf(int style) {
    switch (style & kMsgBoxIconMask) {
        case vbCritical:
            return QMessageBox::Critical;
        case vbQuestion:
            return QMessageBox::Question;
        case vbExclamation:
            return QMessageBox::Warning;
        case vbInformation:
            return QMessageBox::Information;
        default:
            return QMessageBox::NoIcon;
    }
}

constexpr std::array<std::pair<QMessageBox::StandardButton, int>, 7> kAnswers{{
    {QMessageBox::Ok, vbOK},
    {QMessageBox::Cancel, vbCancel},
    {QMessageBox::Abort, vbAbort},
    {QMessageBox::Retry, vbRetry},
    {QMessageBox::Ignore, vbIgnore},
    {QMessageBox::Yes, vbYes},
    {QMessageBox::No, vbNo},
}};

QMessageBox::StandardButton ButtonOf(int answer) {
    for (const auto& [button, value] : kAnswers) {
        if (value == answer) {
            return button;
        }
    }
    return QMessageBox::Ok;
}

int AnswerOf(QMessageBox::StandardButton button, int style) {
    for (const auto& [candidate, value] : kAnswers) {
        if (candidate == button) {
            return value;
        }
    }
    return EscapeAnswer(style);
}

// Dialogs sit over the window the user is working in.
QWidget* DialogParent() {
    return QApplication::activeWindow();
}

// Buttons, icon, default button and the button Escape presses.
void ConfigureMessageBox(QMessageBox& box, int style) {
    const Buttons buttons = ButtonsOf(style);
    for (QMessageBox::StandardButton button : buttons) {
        box.addButton(button);
    }
    box.setIcon(IconOf(style));
    // A default beyond the buttons there are falls back to the first.
    const qsizetype defaultIndex = (style & kMsgBoxDefaultMask) / vbDefaultButton2;
    box.setDefaultButton(buttons.value(defaultIndex, buttons.first()));
    box.setEscapeButton(box.button(ButtonOf(EscapeAnswer(style))));
}

}  // namespace

int DesktopMessages::MsgBox(const QString& prompt, int style, const QString& title) {
    QMessageBox box(DialogParent());
    box.setWindowTitle(title);
    box.setTextFormat(Qt::PlainText);  // prompts hold names, never markup
    box.setText(prompt);
    box.setWindowModality(Qt::ApplicationModal);
    ConfigureMessageBox(box, style);
    box.exec();
    return AnswerOf(box.standardButton(box.clickedButton()), style);
}

void DesktopMessages::Beep() {
    QApplication::beep();
}

QString DesktopFileDialogs::OpenFileName(const QString& title, const QString& folder,
                                         const QString& filter) {
    return QDir::toNativeSeparators(
        QFileDialog::getOpenFileName(DialogParent(), title, folder, filter));
}

QString DesktopFileDialogs::SaveFileName(const QString& title, const QString& suggestedPath,
                                         const QString& filter) {
    return QDir::toNativeSeparators(
        QFileDialog::getSaveFileName(DialogParent(), title, suggestedPath, filter));
}

QString DesktopFileDialogs::FolderName(const QString& title, const QString& folder) {
    return QDir::toNativeSeparators(
        QFileDialog::getExistingDirectory(DialogParent(), title, folder));
}

void DesktopClipboard::Clear() {
    QApplication::clipboard()->clear();
}

void DesktopClipboard::SetText(const QString& text) {
    QApplication::clipboard()->setText(text);
}

QString DesktopClipboard::Text() const {
    return QApplication::clipboard()->text();
}

QDate DesktopClock::Today() const {
    return QDate::currentDate();
}

QDateTime DesktopClock::Now() const {
    return QDateTime::currentDateTime();
}

QStringList DesktopPrinters::PrinterNames() const {
    QStringList names = QPrinterInfo::availablePrinterNames();
    names.removeAll(QString::fromLatin1(kPdfPrinterName));
    names.append(QString::fromLatin1(kPdfPrinterName));
    return names;
}

QString DesktopPrinters::DefaultPrinterName() const {
    const QString name = QPrinterInfo::defaultPrinterName();
    return name.isEmpty() ? QString::fromLatin1(kPdfPrinterName) : name;
}

bool DesktopPrograms::StartProgram(const QString& program, const QStringList& arguments) {
    return QProcess::startDetached(program, arguments);
}

bool DesktopPrograms::OpenDocument(const QString& path) {
    return QDesktopServices::openUrl(QUrl::fromLocalFile(QDir::fromNativeSeparators(path)));
}

QString DesktopPrograms::FindProgram(const QString& name) const {
    return QDir::toNativeSeparators(QStandardPaths::findExecutable(name));
}

void InstallDesktopServices() {
    static DesktopMessages messages;
    static DesktopFileDialogs fileDialogs;
    static DesktopClipboard clipboard;
    static DesktopClock clock;
    static DesktopPrinters printers;
    static DesktopPrograms programs;
    InstallServices({&messages, &fileDialogs, &clipboard, &clock, &printers, &programs});
}

}  // namespace quillon
