#pragma once
// What the screens that filter clients into a list of their own (indicators,
// diary, year end) do with the whole list: a merge data file of every entry,
// one address label each from the top left of a sheet, or the list printed.

#include <QStringList>

class QListWidget;

namespace quillon {

// Every entry of `list`, in its order.
QStringList AllEntries(const QListWidget& list);

// Entries read last name, ", ", first names.
void MergeFile(const QListWidget& list);
void PrintClientLabels(const QListWidget& list);
// The entries under `title`, one a line, on the plain printer.
void PrintList(const QListWidget& list, const QString& title);

}  // namespace quillon
