#pragma once
// Picks the spouse of the current client among the other clients. The choice
// fills the spouse boxes of frmPersonal and writes the current client at once
// into the partner's own spouse fields: a mirrored copy, not a reference, so
// nothing keeps the two rows in step afterwards.

#include "platform/letter_buttons_gui.h"

#include <QDialog>

class QListWidget;
class QPushButton;

namespace quillon {

class frmSpouseList : public QDialog {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmSpouseList";

    explicit frmSpouseList(QWidget* parent = nullptr);

    QListWidget* lstClients = nullptr;
    // cm3Seek(0) to cm3Seek(25): "A" to "Z".
    LetterButtons cm3Seek{};
    QPushButton* cm3OK = nullptr;
    QPushButton* cm3Cancel = nullptr;

    void cm3Seek_Click(int index);
    void lstClients_Click();
    void SelectClient();

    // Messages for rows that another user holds. A lock on the partner's row
    // reaches SelectClient's error report instead; these wait for a caller.
    static void CurrentRecordLocked();
    static void PartnerRecordLocked();
    static void RecordNotAvailable();

private:
    void Form_Load();
    void LinkTo(const QString& first, const QString& last);
};

}  // namespace quillon
