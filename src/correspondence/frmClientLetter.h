#pragma once
// A letter heading to a client, at the personal address or that of the first
// business.

#include "correspondence/letter_screen_gui.h"

namespace quillon {

class frmClientLetter : public LetterScreen {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmClientLetter";
    explicit frmClientLetter(QWidget* parent = nullptr);

    QListWidget* lstClients = nullptr;
    LetterButtons& cm3Seek = seekButtons;

    void BuildClientList();
    void lstClients_Click();

protected:
    void ListClicked() override { lstClients_Click(); }
};

}  // namespace quillon
