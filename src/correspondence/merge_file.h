#pragma once
// Merge data files for a word processor's mail merge: MERGE.TXT in the
// program's folder, a header line of field names and one line a record, in the
// system's single-byte code page with CR LF line ends. Every field stands
// between the quote string (a double quote, or nothing) and the fields are
// joined by the delimiter, written as they stand.

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <functional>

namespace quillon {

// The screen that picks clients writes one field fewer than the list hand-over
// (no WorkTelephone); that difference has always been there.
enum class ClientMergeLayout { HandedList, PickedClients };

struct MergeOptions {
    QString quote;
    QString delimiter;
    qint16 address = 0;  // 0 personal address, 1 that of the first business
};
// From USE QUOTES, FIELD DELIMITER and ADDRESS FOR MERGE.
MergeOptions CurrentMergeOptions();

// One line of the file, line end included.
QByteArray MergeLine(const QStringList& values, const MergeOptions& options);

// A merge data file being written, anew: each record a line. Fails with the
// file error the screens tell.
class MergeWriter {
public:
    MergeWriter(const QString& path, const MergeOptions& options);
    void Write(const QStringList& values);

private:
    [[noreturn]] static void Fail();
    QFile file_;
    MergeOptions options_;
};

QStringList ClientMergeHeader(ClientMergeLayout layout);
QStringList OfficeMergeHeader();

// "31 Mar" from the year end's day and month, or empty when either is Null or
// the month is not 1 to 12.
QString YearEndText(const QVariant& day, const QVariant& month);

// MERGE.TXT in the program's folder; the client screen has always spelt it in
// lower case.
QString MergeFilePath(bool lowerCase = false);

// Called with each entry's number from 1 before it is written.
using MergeProgress = std::function<void(int)>;

// Writes the clients of `entries` (last name, ", ", first names); an entry that
// is no client writes no line. Throws the database's or the file's error,
// leaving the file as far as it was written.
void WriteClientMerge(const QString& path, const QStringList& entries, ClientMergeLayout layout,
                      const MergeOptions& options, const MergeProgress& progress = {});

// The same for tax offices of entries name, " (", number, ")".
void WriteOfficeMerge(const QString& path, const QStringList& entries, const MergeOptions& options,
                      const MergeProgress& progress = {});

}  // namespace quillon
