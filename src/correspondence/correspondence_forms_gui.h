#pragma once
// The correspondence screens, for the program's table of forms.

#include "shell/forms_gui.h"

#include <span>

namespace quillon {

std::span<const FormRow> CorrespondenceForms();

}  // namespace quillon
