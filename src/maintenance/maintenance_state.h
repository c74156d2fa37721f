#pragma once
// What the maintenance screens hand on to each other.

#include <QString>

namespace quillon {

// The client database the import reads from.
inline QString ImportSourcePath;

}  // namespace quillon
