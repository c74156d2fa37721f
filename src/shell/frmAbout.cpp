#include "shell/frmAbout.h"

#include "platform/widgets_gui.h"

#include "platform/services.h"
#include "shell/artwork_gui.h"
#include "shell/database_check.h"
#include "shell/variables.h"

#include <QFileInfo>
#include <QFont>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QVBoxLayout>

namespace quillon {

namespace {
const QString kProgramTitle = QStringLiteral("Quillon");

QLabel* addLabel(QWidget* parent, QVBoxLayout* layout, const char* name, const QString& text) {
    auto* label = Named<QLabel>(QString::fromLatin1(name), text, parent);
    layout->addWidget(label);
    return label;
}

#ifdef Q_OS_WIN
// The installed MSINFO32.EXE, as the registry records it.
QString registeredSystemInformation() {
    const QSettings msinfo(
        QStringLiteral("HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Shared Tools\\MSINFO"),
        QSettings::NativeFormat);
    QString path = msinfo.value(QStringLiteral("PATH")).toString();
    if (path.isEmpty()) {
        const QSettings location(
            QStringLiteral("HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Shared Tools Location"),
            QSettings::NativeFormat);
        const QString folder = location.value(QStringLiteral("MSINFO")).toString();
        if (!folder.isEmpty()) {
            path = folder + QStringLiteral("\\MSINFO32.EXE");
        }
    }
    return QFileInfo::exists(path) ? path : QString();
}
#endif

}  // namespace

QString SystemInformationProgram() {
#ifdef Q_OS_WIN
    return registeredSystemInformation();
#else
    static const char* const kCandidates[] = {"hardinfo", "kinfocenter", "gnome-system-monitor"};
    const ProgramService* programs = CurrentServices().programs;
    if (!programs) {
        return {};
    }
    for (const char* candidate : kCandidates) {
        const QString path = programs->FindProgram(QString::fromLatin1(candidate));
        if (!path.isEmpty()) {
            return path;
        }
    }
    return {};
#endif
}

frmAbout::frmAbout(QWidget* parent) : QDialog(parent) {
    setWindowTitle(QStringLiteral("About ") + kProgramTitle);
    setWindowIcon(ProgramIcon());
    auto* layout = new QVBoxLayout(this);
    lblTitle = addLabel(this, layout, "lblTitle", kProgramTitle);
    QFont big = lblTitle->font();
    big.setBold(true);
    big.setPointSizeF(big.pointSizeF() * 1.6);
    lblTitle->setFont(big);
    lblVersion =
        addLabel(this, layout, "lblVersion", QStringLiteral("Version ") + ProgramVersion());
    lblSystem = addLabel(this, layout, "lblSystem", OSName);
    cmdOK = Named<QPushButton>(QStringLiteral("cmdOK"), QStringLiteral("OK"), this);
    cmdOK->setDefault(true);
    cmdSysInfo =
        Named<QPushButton>(QStringLiteral("cmdSysInfo"), QStringLiteral("&System Info..."), this);
    AddButtonRow(layout, {cmdOK, cmdSysInfo});
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::close);
    connect(cmdSysInfo, &QPushButton::clicked, this, &frmAbout::cmdSysInfo_Click);
}

void frmAbout::cmdSysInfo_Click() {
    const QString program = SystemInformationProgram();
    if (program.isEmpty() || !CurrentServices().programs->StartProgram(program, {})) {
        MsgBox(QStringLiteral("System Information Is Unavailable At This Time"), vbOKOnly);
    }
}

}  // namespace quillon
