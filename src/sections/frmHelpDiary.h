#pragma once
// How the diary is used: the tax year pages, the shared standard events, the
// list and its filters, and clearing a year.

#include "sections/help_screen_gui.h"

namespace quillon {

class frmHelpDiary : public HelpScreen {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmHelpDiary";
    explicit frmHelpDiary(QWidget* parent = nullptr);
};

}  // namespace quillon
