#pragma once
// What the columns of the pension contributions section mean, and how the
// boxes that are clicked rather than typed go round.

#include "sections/help_screen_gui.h"

namespace quillon {

class frmHelpContribs : public HelpScreen {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmHelpContribs";
    explicit frmHelpContribs(QWidget* parent = nullptr);
};

}  // namespace quillon
