#include "shell/frmFolderManager.h"

#include "platform/widgets_gui.h"

#include "shell/configuration.h"
#include "shell/database_check.h"
#include "shell/forms_gui.h"
#include "shell/frmQuillon.h"
#include "shell/variables.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace quillon {

namespace {
constexpr int kNameWidth = 160;
constexpr int kPathWidth = 340;
const QColor kSelectedSlotColour(0, 255, 255);

QLineEdit* slotBox(QWidget* parent, const char* prefix, int n, int width) {
    auto* box =
        Named<QLineEdit>(QStringLiteral("%1(%2)").arg(QString::fromLatin1(prefix)).arg(n), parent);
    box->setMinimumWidth(width);
    return box;
}
}  // namespace

QString CleanedFolder(const QString& typed) {
    QString folder = typed.trimmed();
    while (folder.endsWith(QLatin1Char('\\')) || folder.endsWith(QLatin1Char('/'))) {
        folder.chop(1);
    }
    return folder;
}

frmFolderManager::frmFolderManager(QWidget* parent) : QDialog(parent) {
    setWindowTitle(QStringLiteral("Folder Manager"));
    auto* layout = new QVBoxLayout(this);
    auto* grid = new QGridLayout;
    layout->addLayout(grid);
    grid->addWidget(new QLabel(QStringLiteral("Folder Name"), this), 0, 1);
    grid->addWidget(new QLabel(QStringLiteral("Directory Path"), this), 0, 2);
    for (int n = 1; n <= kDatabaseSlots; ++n) {
        grid->addWidget(new QLabel(QString::number(n), this), n, 0);
        txtName[n] = slotBox(this, "txtName", n, kNameWidth);
        txtPath[n] = slotBox(this, "txtPath", n, kPathWidth);
        grid->addWidget(txtName[n], n, 1);
        grid->addWidget(txtPath[n], n, 2);
    }
    cmdOK = Named<QPushButton>(QStringLiteral("cmdOK"), QStringLiteral("OK"), this);
    cmdOK->setDefault(true);
    cmdCancel = Named<QPushButton>(QStringLiteral("cmdCancel"), QStringLiteral("Cancel"), this);
    AddButtonRow(layout, {cmdOK, cmdCancel});
    connect(cmdOK, &QPushButton::clicked, this, &frmFolderManager::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::close);
    Form_Load();
}

void frmFolderManager::Form_Load() {
    for (int n = 1; n <= kDatabaseSlots; ++n) {
        txtName[n]->setText(DatabaseTitle[n]);
        txtPath[n]->setText(DatabaseFolder[n]);
    }
    if (SelectedFile < 1 || SelectedFile > kDatabaseSlots) {
        return;
    }
    // The selected slot's folder holds the open database: it stays as it is.
    for (QLineEdit* box : {txtName[SelectedFile], txtPath[SelectedFile]}) {
        QPalette palette = box->palette();
        palette.setColor(QPalette::Base, kSelectedSlotColour);
        box->setPalette(palette);
    }
    txtPath[SelectedFile]->setReadOnly(true);
    txtPath[SelectedFile]->setFocusPolicy(Qt::NoFocus);
}

void frmFolderManager::cmdOK_Click() {
    for (int n = 1; n <= kDatabaseSlots; ++n) {
        DatabaseTitle[n] = txtName[n]->text().trimmed();
        DatabaseFolder[n] = CleanedFolder(txtPath[n]->text());
    }
    auto* main = LoadedForm<frmQuillon>();
    if (main) {
        main->BuildFileMenu();
    }
    WriteConfiguration();
    if (main) {
        main->setWindowTitle(DatabaseCaption());
    }
    close();
}

}  // namespace quillon
