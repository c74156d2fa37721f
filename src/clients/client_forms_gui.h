#pragma once
// The client list and its dialogs, as the form registry knows them.

#include "shell/forms_gui.h"

#include <span>

namespace quillon {

std::span<const FormRow> ClientForms();

}  // namespace quillon
