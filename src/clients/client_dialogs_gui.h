#pragma once
// What the client list and its three dialogs share: the screen pointer, the
// key filter of the name boxes, the placing of a dialog over the main window,
// the list's refresh, and the dialog with a first and a last name box.

#include "clients/client_lifecycle.h"

#include <QDialog>
#include <QObject>

class QLabel;
class QLineEdit;
class QPushButton;

namespace quillon {

// The screen pointer as the routines set it: the hourglass while they work,
// the default when they are done. Unlike the pointers that stack, setting it
// twice takes one setting back.
void SetHourglass();
void SetDefaultPointer();
bool HourglassShown();

// Sets the client list's refresh going, a tenth of a second from now, if the
// list is loaded.
void RefreshClientList();

// Places `dialog` centred across the main window, 2000 twips below its top.
void PlaceOverMainWindow(QWidget* dialog);

// The handler of the lifecycle dialogs: tells the failure under `title`, rolls
// back an open transaction, closes the tables and the database, and puts the
// pointer back. The dialog stays open to be pressed again.
void ReportLifecycleFailure(const QString& title, ClientTables& tables,
                            const std::exception& error);

// Closes the tables after a success, and lets the waiting window events run.
void CloseClientTables(ClientTables& tables);

// The keys a name box takes: the characters from blank to "z", with an
// apostrophe stored as a backquote. A last name box refuses the comma too,
// which would split a list's text, and beeps at what it refuses; so does a
// company's box. A tax office's name takes the comma and beeps at the rest.
// Pasted text is cleaned the same way.
class ClientNameFilter : public QObject {
    Q_OBJECT
public:
    enum class Part { First, Last, Office };
    static void Install(QLineEdit* box, Part part);

    // `text` with apostrophes as backquotes and the refused characters left out.
    static QString Cleaned(const QString& text, Part part);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    ClientNameFilter(QLineEdit* box, Part part);
    static bool Refuses(QChar c, Part part);
    void CleanEditedText();
    void Refused();

    QLineEdit* box_;
    Part part_;
};

// A dialog with the two name boxes, OK and Cancel, as new and rename have it.
class ClientNameDialog : public QDialog {
    Q_OBJECT
public:
    static constexpr int kNameLength = 30;

    QLabel* lblFirst = nullptr;
    QLabel* lblLast = nullptr;
    QLineEdit* txtFirst = nullptr;
    QLineEdit* txtLast = nullptr;
    QPushButton* cm3OK = nullptr;
    QPushButton* cm3Cancel = nullptr;

protected:
    ClientNameDialog(const QString& caption, QWidget* parent);
    void showEvent(QShowEvent* event) override;

    ClientName EnteredName() const;
    // Whether OK may be pressed with the names as they stand.
    virtual bool NamesAcceptable() const;
    void UpdateOK();
    virtual void cm3OK_Click() = 0;

private:
    bool placed_ = false;
};

}  // namespace quillon
