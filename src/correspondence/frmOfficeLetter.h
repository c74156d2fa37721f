#pragma once
// A letter heading to a tax office: to an office chosen from the list of
// offices, or about a client to the client's own office.

#include "correspondence/letter_screen_gui.h"

class QRadioButton;

namespace quillon {

class frmOfficeLetter : public LetterScreen {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmOfficeLetter";
    explicit frmOfficeLetter(QWidget* parent = nullptr);

    QListWidget* lstReceiver = nullptr;
    QRadioButton* op3Clients = nullptr;
    QRadioButton* op3Offices = nullptr;
    LetterButtons& cm3OSeek = seekButtons;

    void BuildClientList();
    void BuildOfficeList();
    void lstReceiver_Click();

protected:
    void ListClicked() override { lstReceiver_Click(); }
};

}  // namespace quillon
