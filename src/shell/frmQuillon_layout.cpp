// The main window's menus, toolbar and status bar.
#include "platform/widgets_gui.h"
#include "shell/artwork_gui.h"
#include "shell/flow_layout_gui.h"
#include "shell/frmQuillon.h"

#include <QAction>
#include <QBoxLayout>
#include <QFrame>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolButton>

namespace quillon {

namespace {
const QColor kSectionColour(0x2f, 0x5f, 0x9e);
const QColor kReferenceColour(0x2e, 0x7d, 0x32);
const QColor kLetterColour(0x6a, 0x3d, 0x9a);
const QColor kMergeColour(0x00, 0x83, 0x8f);
const QColor kLabelColour(0xc5, 0x6a, 0x00);
const QColor kReportColour(0x55, 0x5f, 0x6b);
}  // namespace

QAction* frmQuillon::addItem(QMenu* menu, const char* name, const QString& caption) {
    QAction* item = menu->addAction(caption);
    item->setObjectName(QString::fromLatin1(name));
    commands_.insert(item->objectName(), item);
    return item;
}

QMenu* frmQuillon::addSubmenu(QMenu* menu, const char* name, const QString& caption) {
    QMenu* submenu = menu ? menu->addMenu(caption) : menuBar()->addMenu(caption);
    submenu->setObjectName(QString::fromLatin1(name));
    submenu->menuAction()->setObjectName(QString::fromLatin1(name));
    commands_.insert(submenu->objectName(), submenu->menuAction());
    return submenu;
}

void frmQuillon::makeFileMenu(QMenu* menu) {
    for (int n = 1; n < static_cast<int>(mnuAltFile.size()); ++n) {
        mnuAltFile[n] = menu->addAction(QString());
        mnuAltFile[n]->setObjectName(QStringLiteral("mnuAltFile(%1)").arg(n));
        mnuAltFile[n]->setCheckable(true);
        mnuAltFile[n]->setVisible(false);
    }
    menu->addSeparator();
    addItem(menu, "mnuManager", QStringLiteral("&Manager..."));
    addItem(menu, "mnuImport", QStringLiteral("&Import..."));
    addItem(menu, "mnuTransfer", QStringLiteral("&Transfer database..."))->setVisible(false);
    addItem(menu, "mnuCompact", QStringLiteral("&Compact..."));
    addItem(menu, "mnuRepair", QStringLiteral("&Repair..."));
    addItem(menu, "mnuBackup", QStringLiteral("&Backup..."));
    menu->addSeparator();
    addItem(menu, "mnuExit", QStringLiteral("E&xit"));
}

void frmQuillon::makeDataMenu(QMenu* menu) {
    addItem(menu, "mnuClients", QStringLiteral("&Clients"));
    menu->addSeparator();
    addItem(menu, "mnuPersonal", QStringLiteral("&1 Personal"));
    addItem(menu, "mnuEmployment", QStringLiteral("&2 Employment"));
    addItem(menu, "mnuBusiness", QStringLiteral("&3 Business"));
    addItem(menu, "mnuAssets", QStringLiteral("&4 Assets"));
    addItem(menu, "mnuContributions", QStringLiteral("&5 Pension Contributions"));
    addItem(menu, "mnuAdministration", QStringLiteral("&6 Administration"));
    addItem(menu, "mnuUser", QStringLiteral("&7 User Defined"));
    addItem(menu, "mnuDiary", QStringLiteral("&8 Diary"));
    menu->addSeparator();
    addItem(menu, "mnuOffices", QStringLiteral("Tax &Offices"));
    mnuDividends = addSubmenu(menu, "mnuDividends", QStringLiteral("&Dividends"));
    for (const char* name : {"mnuDiv1", "mnuDiv2", "mnuDiv3", "mnuDiv4"}) {
        addItem(mnuDividends, name, QString());
    }
}

void frmQuillon::makeToolsMenu(QMenu* menu) {
    QMenu* labels = addSubmenu(menu, "mnuLabels", QStringLiteral("La&bels"));
    addItem(labels, "mnuLabelsClients", QStringLiteral("&Clients"));
    addItem(labels, "mnuLabelsOffices", QStringLiteral("Tax &Offices"));
    QMenu* letter = addSubmenu(menu, "mnuLetter", QStringLiteral("Le&tter"));
    addItem(letter, "mnuLetterClient", QStringLiteral("&Client"));
    addItem(letter, "mnuLetterOffice", QStringLiteral("Tax &Office"));
    QMenu* merge = addSubmenu(menu, "mnuMerge", QStringLiteral("&Merge"));
    addItem(merge, "mnuMergeClients", QStringLiteral("&Clients"));
    addItem(merge, "mnuMergeOffices", QStringLiteral("Tax &Offices"));
    QMenu* print = addSubmenu(menu, "mnuPrint", QStringLiteral("&Print"));
    addItem(print, "mnuPrintClientRecords", QStringLiteral("&Client Records"));
    addItem(print, "mnuForm64_8", QStringLiteral("Form 64-8"));
}

void frmQuillon::makeMenus() {
    mnuFile = addSubmenu(nullptr, "mnuFile", QStringLiteral("&File"));
    makeFileMenu(mnuFile);
    mnuView = addSubmenu(nullptr, "mnuView", QStringLiteral("&View"));
    for (auto [name, caption] :
         {std::pair{"mnuToolbar", "&Toolbar"}, std::pair{"mnuStatusBar", "&Status bar"},
          std::pair{"mnuTooltips", "Toolti&ps"}}) {
        addItem(mnuView, name, QString::fromLatin1(caption))->setCheckable(true);
    }
    makeDataMenu(addSubmenu(nullptr, "mnuData", QStringLiteral("&Data")));
    makeToolsMenu(addSubmenu(nullptr, "mnuTools", QStringLiteral("&Tools")));
    QMenu* settings = addSubmenu(nullptr, "mnuSettings", QStringLiteral("&Settings"));
    addItem(settings, "mnuSettingsReports", QStringLiteral("&Reports"));
    QMenu* help = addSubmenu(nullptr, "mnuHelp", QStringLiteral("&Help"));
    addItem(help, "mnuHelpContents", QStringLiteral("&Contents"));
    addItem(help, "mnuHelpSearch", QStringLiteral("&Search For Help On..."));
    help->addSeparator();
    addItem(help, "mnuHelpAbout", QStringLiteral("&About Quillon"));
}

QAction* frmQuillon::addButton(const char* name, const QString& caption, const QString& mark,
                               const QColor& colour, const QString& tip) {
    auto* command =
        Named<QAction>(QString::fromLatin1(name), ButtonPicture(mark, colour), caption, this);
    command->setToolTip(tip);
    auto* button = Named<QToolButton>(command->objectName(), pnlToolBar);
    button->setDefaultAction(command);
    button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    button->setIconSize(QSize(24, 24));
    button->setAutoRaise(true);
    pnlToolBar->layout()->addWidget(button);
    commands_.insert(command->objectName(), command);
    return command;
}

void frmQuillon::addGap() {
    auto* gap = new QWidget(pnlToolBar);
    gap->setFixedSize(10, 1);
    pnlToolBar->layout()->addWidget(gap);
}

void frmQuillon::makeToolbar() {
    // A panel whose buttons wrap onto a second row in a narrow window.
    auto* panel = new QFrame(centralWidget());
    panel->setFrameShape(QFrame::StyledPanel);
    pnlToolBar = panel;
    pnlToolBar->setObjectName(QStringLiteral("pnlToolBar"));
    auto* rows = new FlowLayout(pnlToolBar, 2);
    rows->setContentsMargins(4, 2, 4, 2);
    static_cast<QBoxLayout*>(centralWidget()->layout())->insertWidget(0, pnlToolBar);

    addButton("cm3Clients", QStringLiteral("Clients"), QStringLiteral("C"), kSectionColour,
              QStringLiteral("Choose the current client"));
    addButton("cm3Personal", QStringLiteral("Personal"), QStringLiteral("1"), kSectionColour,
              QStringLiteral("Personal details"));
    addButton("cm3Employment", QStringLiteral("Employment"), QStringLiteral("2"), kSectionColour,
              QStringLiteral("Employments"));
    addButton("cm3Business", QStringLiteral("Business"), QStringLiteral("3"), kSectionColour,
              QStringLiteral("Businesses"));
    addButton("cm3Assets", QStringLiteral("Assets"), QStringLiteral("4"), kSectionColour,
              QStringLiteral("Assets"));
    addButton("cm3Contributions", QStringLiteral("Pension Contribs."), QStringLiteral("5"),
              kSectionColour, QStringLiteral("Pension contributions"));
    addButton("cm3Administration", QStringLiteral("Administration"), QStringLiteral("6"),
              kSectionColour, QStringLiteral("Administration"));
    addButton("cm3User", QString(), QStringLiteral("7"), kSectionColour,
              QStringLiteral("User-defined section"));
    addButton("cm3Diary", QStringLiteral("Diary"), QStringLiteral("8"), kSectionColour,
              QStringLiteral("Diary of tax-processing events"));
    addGap();
    addButton("cm3Offices", QStringLiteral("Tax Offices"), QStringLiteral("TO"), kReferenceColour,
              QStringLiteral("Directory of tax offices"));
    addButton("cm3Dividends", QStringLiteral("Dividends"), QStringLiteral("D"), kReferenceColour,
              QStringLiteral("Share dividends of the tax year"));
    addGap();
    addButton("cm3ClientLetter", QStringLiteral("Client Letter"), QStringLiteral("CL"),
              kLetterColour, QStringLiteral("Letter to the current client"));
    addButton("cm3OfficeLetter", QStringLiteral("Tax Office Letter"), QStringLiteral("OL"),
              kLetterColour, QStringLiteral("Letter to a tax office"));
    addButton("cm3ClientMerge", QStringLiteral("Client Merge"), QStringLiteral("CM"), kMergeColour,
              QStringLiteral("Mail-merge data of clients"));
    addButton("cm3OfficeMerge", QStringLiteral("Tax Office Merge"), QStringLiteral("OM"),
              kMergeColour, QStringLiteral("Mail-merge data of tax offices"));
    addButton("cm3ClientLabels", QStringLiteral("Client Labels"), QStringLiteral("CB"),
              kLabelColour, QStringLiteral("Address labels of clients"));
    addButton("cm3OfficeLabels", QStringLiteral("Tax Office Labels"), QStringLiteral("OB"),
              kLabelColour, QStringLiteral("Address labels of tax offices"));
    addGap();
    addButton("cm3ClientRecord", QStringLiteral("Client Records"), QStringLiteral("R"),
              kReportColour, QStringLiteral("Print client records"));
    addButton("cm3Form64_8", QStringLiteral("Client Form 64-8"), QStringLiteral("64"),
              kReportColour, QStringLiteral("Agent authorisation Form 64-8"));
}

void frmQuillon::makeStatusBar() {
    sbStatusBar = Named<QStatusBar>(QStringLiteral("sbStatusBar"), this);
    setStatusBar(sbStatusBar);
    pnlProgress = Named<QLabel>(QStringLiteral("pnlProgress"), sbStatusBar);
    sbStatusBar->addWidget(pnlProgress, 1);
    pnlVersion = Named<QLabel>(QStringLiteral("pnlVersion"), sbStatusBar);
    sbStatusBar->addPermanentWidget(pnlVersion);
}

}  // namespace quillon
