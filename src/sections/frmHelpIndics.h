#pragma once
// How the indicators are used: ticks per client, descriptions shared by all
// clients, and the filters that list the clients to whom they apply.

#include "sections/help_screen_gui.h"

namespace quillon {

class frmHelpIndics : public HelpScreen {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmHelpIndics";
    explicit frmHelpIndics(QWidget* parent = nullptr);
};

}  // namespace quillon
