#include "platform/services_gui.h"

namespace quillon {

void InstallDesktopServices() {}

}  // namespace quillon
