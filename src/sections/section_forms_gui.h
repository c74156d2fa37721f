#pragma once
// The section screens in the form registry, by their names.

namespace quillon {

void RegisterSectionForms();

}  // namespace quillon
