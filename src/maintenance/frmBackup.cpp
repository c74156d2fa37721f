#include "maintenance/frmBackup.h"

#include "maintenance/database_backup.h"
#include "platform/services.h"
#include "platform/widgets_gui.h"
#include "shell/forms_gui.h"
#include "shell/variables.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <exception>

namespace quillon {

namespace {

const QString kNotSaved = QStringLiteral("The client database backup file was not saved");

// clang-format off
const QString kSaved = QStringLiteral("A backup copy of your client database has been saved in the following file:");
const char* const kNote = "This only makes a backup of your Quillon data. It does not make a backup of Tax Return information. Use the Backup facility in the Tax Return modules to do this";
// clang-format on

bool SameFile(const QString& a, const QString& b) {
    const QFileInfo first(a);
    const QFileInfo second(b);
    return a == b || (first.exists() && first.canonicalFilePath() == second.canonicalFilePath());
}

}  // namespace

frmBackup::frmBackup(QWidget* parent) : QDialog(parent) {
    setObjectName(QString::fromLatin1(kFormName));
    setWindowTitle(tr("Backup"));
    lblSource = Named<QLabel>(QStringLiteral("lblSource"), ClientDatabasePath(), this);
    cmdSave = Named<QPushButton>(QStringLiteral("cmdSave"), tr("&Save"), this);
    cmdCancel = Named<QPushButton>(QStringLiteral("cmdCancel"), tr("&Cancel"), this);
    auto* note = new QLabel(QString::fromLatin1(kNote), this);
    note->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(
        tr("Click on the 'Save' button to save a backup copy of your client database file:"),
        this));
    layout->addWidget(lblSource);
    layout->addWidget(new QLabel(tr("NOTE"), this));
    layout->addWidget(note);
    AddButtonRow(layout, {cmdSave, cmdCancel});
    cmdSave->setDefault(true);
    connect(cmdSave, &QPushButton::clicked, this, &frmBackup::cmdSave_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmBackup::cmdCancel_Click);
}

// The file chosen for the copy, offered as the database's name and today's
// date in its folder; empty when the user cancels.
QString frmBackup::cdgSave(const QString& source) const {
    const QString proposed =
        source.left(source.size() - 4) + Today().toString(QStringLiteral("-yyyy-MM-dd"));
    QString path = SaveFileName(QStringLiteral("Backup client database"), proposed,
                                DialogFilter(QStringLiteral("Quillon databases|*.mdb")));
    if (!path.isEmpty() && QFileInfo(path).suffix().isEmpty()) {
        path += QStringLiteral(".mdb");
    }
    return path;
}

void frmBackup::cmdSave_Click() {
    const QString source = ClientDatabasePath();
    const QString path = cdgSave(source);
    if (path.isEmpty()) {
        MsgBox(kNotSaved, vbInformation, windowTitle());
    } else if (!SameFile(path, source)) {
        if (QFileInfo::exists(path) &&
            MsgBox(QStringLiteral("The file:") + QStringLiteral("\n\n") + path +
                       QStringLiteral("\n\n") +
                       QStringLiteral("already exits. Do you wish to replace it?"),
                   vbYesNo | vbQuestion, windowTitle()) != vbYes) {
            MsgBox(kNotSaved, vbInformation, windowTitle());
        } else {
            bool saved = true;
            try {
                WaitPointer wait;
                BackupDatabaseFile(source, path);
            } catch (const std::exception&) {
                saved = false;
            }
            MsgBox(saved ? kSaved + QStringLiteral("\n\n") + path : kNotSaved, vbInformation,
                   windowTitle());
        }
    }
    Finish();
}

void frmBackup::cmdCancel_Click() {
    MsgBox(kNotSaved, vbInformation, windowTitle());
    Finish();
}

// However it ends, the main window is what the user sees next.
void frmBackup::Finish() {
    accept();
    UnloadForm(QString::fromLatin1(kFormName));
    QCoreApplication::processEvents();
    if (QWidget* main = LoadForm(QStringLiteral("frmQuillon"))) {
        main->show();
    }
}

}  // namespace quillon
