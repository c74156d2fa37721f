#pragma once
// The database maintenance screens, for the program's table of forms.

#include "shell/forms_gui.h"

#include <span>

namespace quillon {

std::span<const FormRow> MaintenanceForms();

}  // namespace quillon
