#pragma once
// The list of client businesses whose accounting year ends in a month, across
// the four business tables, and the merge data file made from it.

#include "correspondence/merge_file.h"
#include "data/client_rows.h"

#include <QString>
#include <QStringList>

namespace quillon {

constexpr int kBusinessTables = 4;

// An entry of the list: last name, ", ", first names, " (", business name, ")".
QString YearEndEntry(const ClientName& client, const QString& business);
struct YearEndClient {
    ClientName client;
    QString business;
};
// The client and business of an entry: the names are cut at the first ", ",
// the business at the first " (" after it, without its closing bracket.
YearEndClient YearEndOfEntry(const QString& entry);

// Every business of `Business 1` to `Business 4`, table by table and in name
// order within each, that has a name and whose `Year end month` is `month`
// as a number. Throws the database's error.
QStringList YearEndEntries(int month);

QStringList YearEndMergeHeader();
// Writes the merge data file of `entries` to `path`: the client's personal
// details and references, then the business name. An entry whose client is
// gone writes no line. Throws the database's or the file's error, leaving the
// file as far as it was written.
void WriteYearEndMerge(const QString& path, const QStringList& entries, const MergeOptions& options,
                       const MergeProgress& progress = {});

}  // namespace quillon
