#pragma once
// The section screens and their dialogs, as the form registry knows them.

#include "shell/forms_gui.h"

#include <span>

namespace quillon {

std::span<const FormRow> SectionForms();

}  // namespace quillon
