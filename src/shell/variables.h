#pragma once
// The application state shared by every form and module. The program has one
// thread, so nothing guards these.

#include <QString>

#include <array>

namespace quillon {

constexpr int kDatabaseSlots = 16;

// DatabaseSlots: title and folder of each, element 0 unused.
inline std::array<QString, kDatabaseSlots + 1> DatabaseTitle;
inline std::array<QString, kDatabaseSlots + 1> DatabaseFolder;
inline qint16 SelectedFile = 1;

// The current client; every section screen, report and letter works on it.
inline QString CurrentFirst;
inline QString CurrentLast;

// The file of the client database of the selected slot.
QString ClientDatabasePath();

}  // namespace quillon
