#pragma once
// The desktop's own services, for the running program.

#include "platform/services.h"

namespace quillon {

// Installs the real message boxes, dialogs, clipboard, clock, printer list and
// program starter. The services live until the process ends.
void InstallDesktopServices();

}  // namespace quillon
