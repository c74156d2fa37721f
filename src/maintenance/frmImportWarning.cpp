#include "maintenance/frmImportWarning.h"

#include "maintenance/maintenance_state.h"
#include "platform/services.h"
#include "shell/forms_gui.h"
#include "shell/variables.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace quillon {

namespace {

const char* const kSourceFile = "QUILL020.MDB";

// clang-format off
const UpkeepTexts kImportTexts{
    "frmImportWarning",
    "Import client data",
    "Use the Import operation to import client data from another Quillon client database file.",
    "Before proceeding with the Import operation, you should make a backup copy of your current client database.",
    "Postpone the Import operation and make a backup of your client database now.",
    "Import",
    "Import client data from another Quillon client database file now.",
    "Cancel the Import operation and continue using Quillon.",
    "frmImport",
    "",
    "Import clients",
    nullptr,
};
// clang-format on

}  // namespace

frmImportWarning::frmImportWarning(QWidget* parent) : UpkeepConfirm(kImportTexts, parent) {}

QString frmImportWarning::cdgImport() const {
    return OpenFileName(QStringLiteral("Select a database"), DatabaseFolder.at(SelectedFile),
                        DialogFilter(QStringLiteral("Quillon databases|Quill020.mdb")));
}

void frmImportWarning::Continue() {
    ImportSourcePath.clear();
    const QString path = cdgImport();
    if (path.isEmpty()) {
        return;
    }
    if (QFileInfo(path).fileName().toUpper() != QLatin1String(kSourceFile)) {
        MsgBox(
            QStringLiteral("You must select a Quillon database file ") + QLatin1String(kSourceFile),
            vbExclamation, windowTitle());
        return;
    }
    if (!UnloadAllForms()) {
        return;
    }
    QCoreApplication::processEvents();
    // The clients go in while nobody else is at work on the file.
    if (InUseByAnother(ClientDatabasePath())) {
        MsgBox(InUseText(), vbExclamation, QStringLiteral("Import clients"));
        return;
    }
    ImportSourcePath = path;
    CloseThenShow("frmImport");
}

}  // namespace quillon
