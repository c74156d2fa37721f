#pragma once
// The client list: every client of the selected database by name, from which
// the user picks the current client, and the commands to create, rename,
// delete and print.

#include <QWidget>

#include <array>

class QFrame;
class QLabel;
class QListWidget;
class QPushButton;
class QTimer;

namespace quillon {

class frmClients : public QWidget {
    Q_OBJECT
public:
    static constexpr const char* kFormName = "frmClients";
    static constexpr int kWidthTwips = 6765;
    static constexpr int kLetters = 26;

    explicit frmClients(QWidget* parent = nullptr);

    QListWidget* lstClients = nullptr;
    std::array<QPushButton*, kLetters> cm3Seek{};  // A to Z
    QPushButton* cm3Select = nullptr;
    QPushButton* cm3New = nullptr;
    QPushButton* cm3Rename = nullptr;
    QPushButton* cm3Delete = nullptr;
    QPushButton* cm3Print = nullptr;
    QPushButton* cm3Close = nullptr;
    QLabel* pnlCount = nullptr;
    QFrame* pnlStatus = nullptr;
    QTimer* tmrRefresh = nullptr;
    QTimer* tmrUpdate = nullptr;

    // Makes the list's selected entry the current client.
    void SelectClient();
    // Brings the open section screen to the front with the current client.
    void ShowActiveSection();
    // FindInitial(letter): scrolls the list to the first name beginning with
    // `letter`, making it the current client.
    void FindInitial(QChar letter);

    void Form_Activate();
    void tmrRefresh_Timer();
    void tmrUpdate_Timer();
    void lstClients_Click();
    void lstClients_DblClick();
    // cm3Seek_Click(index): the letter A to Z of button `index`.
    void cm3Seek_Click(int index);
    void cm3Select_Click();
    void cm3New_Click();
    void cm3Rename_Click();
    void cm3Delete_Click();
    void cm3Print_Click();
    void cm3Close_Click();

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void buildLayout();
    void connectControls();
    void Form_Load();
    // Keeps the fixed width whenever the window is sized, unless minimised.
    void Form_Resize();
    void fillList(const QStringList& texts);
    void clearList();
    void showCount();
    // Sets the selected entry, firing the list's Click as a selection does.
    void setListIndex(int index);
    QString selectedText() const;

    bool activationHooked_ = false;
};

}  // namespace quillon
