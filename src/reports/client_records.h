#pragma once
// The client records report: the stored record of each client, section by
// section, as plain typewriter-like pages on the plain printer. Each client
// starts on a page of its own and runs over onto further pages as the printer
// fills them; there are no headers, footers or page numbers.

#include "data/data_access.h"

#include <QString>
#include <QStringList>

#include <functional>

namespace quillon {

// The sections a report holds.
struct RecordSections {
    bool personal = false;
    bool administration = false;
    bool employment = false;
    bool business = false;
    bool assets = false;
    bool contributions = false;
    bool user = false;
    bool diary = false;
};

// The sections ticked in the settings.
RecordSections TickedRecordSections();
// Every section.
RecordSections AllRecordSections();

// The title of the user-defined section of the client database, or
// "User defined" when it has none. Throws the database's error.
QString RecordUserTitle();

// Called with each entry before its client is printed.
using RecordProgress = std::function<void(const QString& entry)>;

// Prints the records of the clients of `entries` (last name, ", ", first
// names) in their order and sends the pages to the printer; an entry that is no
// longer a client is passed over. False, with `failure` filled and nothing
// sent, when the database or the printer failed.
bool PrintClientRecords(const QStringList& entries, const RecordSections& sections,
                        ErrorDetails& failure, const RecordProgress& progress = {});

}  // namespace quillon
