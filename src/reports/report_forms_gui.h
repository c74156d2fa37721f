#pragma once
// The report screens, as the form registry knows them.

#include "shell/forms_gui.h"

#include <span>

namespace quillon {

std::span<const FormRow> ReportForms();

}  // namespace quillon
