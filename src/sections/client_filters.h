#pragma once
// The query side of the diary and the indicator screens: a filter box beside a
// field cycles through "", "Y" and "N", and the list holds every client of the
// table for whom all the boxes that are set agree with the client's row.

#include "data/client_rows.h"

#include <QString>
#include <QStringList>
#include <QVariant>

#include <vector>

namespace quillon {

// The caption a filter box takes at a click: "" to "Y", "Y" to "N", anything
// else to "".
QString NextFilter(const QString& caption);

// How a field answers a filter of "Y" or "N".
enum class FilterRule {
    // A diary date: "Y" wants some text, "N" wants none, Null or "" alike.
    Dated,
    // An indicator: "Y" wants True, "N" wants False; Null answers neither.
    Ticked,
};
bool PassesFilter(FilterRule rule, const QString& filter, const QVariant& value);

// A filter box that is set, and the field it looks at.
struct FieldFilter {
    QString field;
    QString filter;
};

// The clients of `table`, in name order, as last name, ", ", first names,
// whose row passes every one of `filters`; every client when there are none.
// Throws the database's error.
QStringList FilteredClients(const QString& table, const std::vector<FieldFilter>& filters,
                            FilterRule rule);

}  // namespace quillon
