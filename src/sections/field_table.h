#pragma once
// A section screen's boxes as tables: which control shows which field of the
// section's row, under what rule. The screens build, bind and check their boxes
// from these rows (section_screen_gui.h), so a screen is mostly its tables.

#include <initializer_list>
#include <vector>

namespace quillon {

// What a box takes and how it is checked.
enum class FieldRule {
    Text,       // anything
    Date,       // a date as dd/mm/yy, checked on leaving and before a save
    BirthDate,  // a date whose year may have its century, shown with it
    Digits,     // digits only
    Amount,     // the characters of an amount
    Note,       // several lines
    Caption,    // a label whose caption the screen changes, at a click; stored as it reads
};

// One box. `control` is its name; an array element is named "txtAddress(1)".
struct FieldRow {
    const char* control;
    // The field of the section's row; nullptr for a box that isn't bound.
    const char* field;
    FieldRule rule = FieldRule::Text;
    // The caption before it; nullptr puts the box on the line of the one before.
    const char* label = "";
};

// A column of a box array, from row `first` to `last` of a grid: the control
// and field names take the row number ("txtEYear" with "Tax Year %1" gives
// txtEYear(3) on `Tax Year 3`).
struct GridColumn {
    const char* control;
    const char* field;
    FieldRule rule = FieldRule::Text;
    const char* head = "";
};

// Option buttons of one integer field: button i (from 1) is named prefix(i)
// and stores i; the clear button turns all off, which stores 0.
struct OptionField {
    const char* field;
    const char* title;
    const char* prefix;
    std::vector<const char*> captions;
    const char* clearButton;
};

}  // namespace quillon
