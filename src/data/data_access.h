#pragma once
// Reading fields that may be Null, finding a row from the text of a list entry,
// and the one message with which every routine reports a failure.

#include "platform/dao.h"

#include <QString>
#include <QVariant>

#include <exception>

namespace quillon {

// A field's text, or the empty string when it is Null.
QString NullToEmpty(const QVariant& value);
QString NullToEmpty(const dao::Field& field);
// A 16-bit integer field, or 0 when it is Null.
qint16 NullToZero(const QVariant& value);
qint16 NullToZero(const dao::Field& field);
// A Yes/No field, or false when it is Null.
bool NullToFalse(const QVariant& value);
bool NullToFalse(const dao::Field& field);

// Positions `recordset` (index `Name`) on the client a list entry shows:
// last name, ", ", first names. Each ", " is tried in turn as the split, so a
// last name holding ", " is still found. When no split matches, the user is
// told and the recordset stands on its first row. Returns whether it was found.
bool SeekClientByListText(const QString& text, dao::Recordset& recordset);

// The same for a dividend entry: company, ", ", stock; `fid` is the third key.
bool SeekDividendByListText(const QString& text, bool fid, dao::Recordset& recordset);

// The number and text of a failure, from the database layer or elsewhere.
// The number the old runtime gave an index outside an array's bounds.
constexpr int kErrSubscriptOutOfRange = 9;

struct ErrorDetails {
    int number = 0;
    QString description;
};
ErrorDetails DetailsOf(const std::exception& error);

// The text of the failure message: module, procedure, error number and text.
QString ErrorReportText(const QString& module, const QString& procedure,
                        const ErrorDetails& details);

// Shows the failure message with an exclamation mark under the current
// client's name. The caller then abandons its routine.
void ReportError(const QString& module, const QString& procedure, const std::exception& error);
// The same for a failure noted earlier, told once nothing is held any more.
void ReportError(const QString& module, const QString& procedure, const ErrorDetails& details);

// The spouse list has always set its module name off with extra blanks.
inline const QString kSpouseListModule = QStringLiteral("   frmSpouseList");

}  // namespace quillon
