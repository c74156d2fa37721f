#pragma once
// The personal section: the client's name as printed, title, date of birth,
// address, telephones, sex, marital status, spouse and up to four children.
// The spouse can be picked from the other clients, which writes the link into
// the partner's row as well (frmSpouseList).

#include "sections/section_screen_gui.h"

class QPushButton;

namespace quillon {

class frmPersonal : public SectionScreen {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmPersonal";

    explicit frmPersonal(QWidget* parent = nullptr);

    QPushButton* cm3Spouse = nullptr;
    // Opens the client's indicators (frmIPersonal).
    QPushButton* cm3Indicators = nullptr;

    void cm3Spouse_Click();
};

}  // namespace quillon
