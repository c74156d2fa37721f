#pragma once
// Picks the client's tax office from the tax offices file. The choice puts the
// office's number in the administration section's number box, which shows the
// office at once; the number reaches the client's row when the section saves.

#include "platform/letter_buttons_gui.h"

#include <QDialog>

class QListWidget;
class QPushButton;

namespace quillon {

class frmSelectOffice : public QDialog {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmSelectOffice";

    explicit frmSelectOffice(QWidget* parent = nullptr);

    QListWidget* lstOffices = nullptr;
    // cm3Seek(0) to cm3Seek(25): "A" to "Z".
    LetterButtons cm3Seek{};
    QPushButton* cm3OK = nullptr;
    QPushButton* cm3Cancel = nullptr;

    void cm3Seek_Click(int index);
    void lstOffices_Click();
    void cm3OK_Click();

private:
    void Form_Load();
};

}  // namespace quillon
