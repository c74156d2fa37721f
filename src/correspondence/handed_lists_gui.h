#pragma once
// What the screens that filter clients into a list of their own (indicators,
// diary, year end) do with the whole list: a merge data file of every entry,
// or one address label each from the top left of a sheet.

class QListWidget;

namespace quillon {

// Entries read last name, ", ", first names.
void MergeFile(const QListWidget& list);
void PrintClientLabels(const QListWidget& list);

}  // namespace quillon
