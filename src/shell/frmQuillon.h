#pragma once
// The main window: menus, toolbar and status bar around the area in which the
// other windows open. Its commands reach their forms by name through the form
// registry, so each works as soon as its form is registered.

#include <QHash>
#include <QMainWindow>

#include <array>
#include <functional>

class QAction;
class QColor;
class QLabel;
class QMdiArea;
class QMenu;
class QStatusBar;

namespace quillon {

class frmQuillon : public QMainWindow {
    Q_OBJECT
public:
    static constexpr const char* kFormName = "frmQuillon";
    // The caption the window has before a database has been read.
    static constexpr const char* kInitialCaption = "Quillon";

    explicit frmQuillon(QWidget* parent = nullptr);

    QMdiArea* mdiArea = nullptr;
    QWidget* pnlToolBar = nullptr;  // the toolbar panel
    QStatusBar* sbStatusBar = nullptr;
    QLabel* pnlProgress = nullptr;
    QLabel* pnlVersion = nullptr;
    QMenu* mnuFile = nullptr;
    QMenu* mnuView = nullptr;
    QMenu* mnuDividends = nullptr;
    std::array<QAction*, 17> mnuAltFile{};  // 1 to 16

    // A menu item or toolbar button by its name, or nullptr.
    QAction* Command(const QString& name) const;

    void CheckDatabases();
    void BuildFileMenu();
    // mnuAltFile_Click(index): makes slot `index` the selected one, unless its
    // item is ticked already.
    void mnuAltFile_Click(int index);
    void PlaceSection();
    void PlaceClientList();
    // Shows UserTitle on the user-defined section's button and menu item.
    void ShowUserTitle();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void Form_Load();
    void openDatabaseOfSlot();
    void restoreWindowPlace();
    void storeWindowPlace();
    bool closeChildWindows();

    // Building the window (frmQuillon_layout.cpp).
    void makeMenus();
    void makeFileMenu(QMenu* menu);
    void makeDataMenu(QMenu* menu);
    void makeToolsMenu(QMenu* menu);
    void makeToolbar();
    void makeStatusBar();
    QAction* addItem(QMenu* menu, const char* name, const QString& caption);
    QMenu* addSubmenu(QMenu* menu, const char* name, const QString& caption);
    void addGap();
    QAction* addButton(const char* name, const QString& caption, const QString& mark,
                       const QColor& colour, const QString& tip);

    // The commands (frmQuillon_commands.cpp).
    void connectCommands();
    void openSection(const QString& target);
    void openAtFirstPage(const QString& target);
    void showTarget(const QString& target);
    void cm3Clients_Click();
    void mnuClients_Click();
    void mnuDiv_Click(int year);
    void toggleView(bool& flag, const char* itemName);
    void mnuView_Opening();

    QHash<QString, QAction*> commands_;
    std::array<bool, 17> altFileTicked_{};
};

// Shows a progress text in the main window's status bar, if it is open; an empty
// text clears it.
void SetProgressText(const QString& text);

}  // namespace quillon
