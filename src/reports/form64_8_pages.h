#pragma once
// The two pages of the agent authorisation form, drawn in page millimetres.

#include "reports/form64_8.h"

namespace quillon {

void DrawForm64Page1(const Form64Entries& entries);
void DrawForm64Page2();

}  // namespace quillon
