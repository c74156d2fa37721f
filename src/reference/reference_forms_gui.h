#pragma once
// The tax offices and dividends screens, for the program's table of forms.

#include "shell/forms_gui.h"

#include <span>

namespace quillon {

std::span<const FormRow> ReferenceForms();

}  // namespace quillon
