#include "shell/frmQuillon.h"

#include "data/data_access.h"
#include "shell/artwork_gui.h"
#include "shell/configuration.h"
#include "shell/database_check.h"
#include "shell/forms_gui.h"
#include "shell/frmTip.h"
#include "shell/lifecycle.h"
#include "shell/twips.h"
#include "shell/variables.h"

#include <QAction>
#include <QCloseEvent>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QStatusBar>
#include <QVBoxLayout>

#include <exception>

namespace quillon {

frmQuillon::frmQuillon(QWidget* parent) : QMainWindow(parent) {
    setObjectName(QString::fromLatin1(kFormName));
    setWindowTitle(QString::fromLatin1(kInitialCaption));
    setWindowIcon(ProgramIcon());
    mdiArea = new QMdiArea;
    mdiArea->setObjectName(QStringLiteral("mdiArea"));
    mdiArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    mdiArea->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    auto* centre = new QWidget(this);
    auto* column = new QVBoxLayout(centre);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(mdiArea, 1);
    setCentralWidget(centre);
    SetChildArea(mdiArea);
    makeMenus();
    makeToolbar();
    makeStatusBar();
    connectCommands();
    Form_Load();
}

QAction* frmQuillon::Command(const QString& name) const {
    return commands_.value(name);
}

void frmQuillon::restoreWindowPlace() {
    // A maximised window still gets its stored rectangle, to return to when the
    // user restores it.
    move(TwipsToPixels(ApplicationLeft), TwipsToPixels(ApplicationTop));
    resize(TwipsToPixels(ApplicationWidth), TwipsToPixels(ApplicationHeight));
    setWindowState(ApplicationMaximised ? Qt::WindowMaximized : Qt::WindowNoState);
}

void frmQuillon::Form_Load() {
    try {
        restoreWindowPlace();
        LoadForm(QString::fromLatin1(frmTip::kFormName));
        HideTip();
        pnlToolBar->setVisible(ViewToolbar);
        sbStatusBar->setVisible(ViewStatusBar);
        const char* const yearCaptions[] = {"&1 2011-12", "&2 2012-13", "&3 2013-14", "&4 2014-15"};
        for (int i = 0; i < 4; ++i) {
            Command(QStringLiteral("mnuDiv%1").arg(i + 1))
                ->setText(QString::fromLatin1(yearCaptions[i]));
        }
        CheckDatabases();
        BuildFileMenu();
        if (ClientDatabaseFound && VerifyClientDatabase()) {
            setWindowTitle(DatabaseCaption());
            ReadUserTitle();
        }
        ShowUserTitle();
        ActiveSection = 0;
    } catch (const std::exception& error) {
        ReportError(QString::fromLatin1(kFormName), QStringLiteral("Form_Load"), error);
    }
    show();
}

void frmQuillon::ShowUserTitle() {
    Command(QStringLiteral("cm3User"))->setText(UserTitle);
    Command(QStringLiteral("mnuUser"))->setText(QStringLiteral("&7 ") + UserTitle);
}

bool frmQuillon::closeChildWindows() {
    if (!UnloadAllForms()) {
        return false;
    }
    for (QMdiSubWindow* child : mdiArea->subWindowList()) {
        if (child->isVisible() && !child->close()) {
            return false;
        }
    }
    return true;
}

void frmQuillon::storeWindowPlace() {
    ApplicationMaximised = isMaximized();
    // A minimised window keeps the last rectangle it had on the screen.
    if (isMinimized()) {
        return;
    }
    ApplicationTop = PixelsToTwips(pos().y());
    ApplicationLeft = PixelsToTwips(pos().x());
    ApplicationHeight = PixelsToTwips(height());
    ApplicationWidth = PixelsToTwips(width());
}

void frmQuillon::closeEvent(QCloseEvent* event) {
    // A child window that can't be left (a bad date on a section) keeps the
    // program open.
    if (!closeChildWindows()) {
        event->ignore();
        return;
    }
    storeWindowPlace();
    WriteConfiguration();
    event->accept();
    EndProgram();
}

void SetProgressText(const QString& text) {
    if (auto* main = LoadedForm<frmQuillon>()) {
        main->pnlProgress->setText(text);
    }
}

}  // namespace quillon
