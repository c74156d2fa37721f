#pragma once
// Letter headings: the address block, the date and the salutation that the
// user copies to the clipboard and pastes at the top of a standard letter.
// Lines end in CR LF.

#include "data/client_rows.h"

#include <QDate>
#include <QString>
#include <QVariant>

#include <functional>
#include <optional>

namespace quillon {

// A field of a row; Null where the row lacks it.
using RowField = std::function<QVariant(const QString& field)>;

// To a client: name, the personal address (choice 0) or the first business's
// (choice 1), the date, "Dear " and the called name.
QString ClientHeading(const RowField& personal, const RowField& business, qint16 address,
                      const QDate& today);
// To a tax office: "HM Revenue & Customs", its name and address, the date,
// "Dear Sir/Madam,".
QString OfficeHeading(const RowField& office, const QDate& today);
// About a client to its tax office: the inspector, the office's heading when
// the office is known, and a subject line with the client's name and tax
// reference. `office` is empty when the client has no office.
QString ClientOfficeHeading(const RowField& administration, const std::optional<RowField>& office,
                            const QDate& today);

// The headings of a client or an office read from the databases, or nothing
// when the client or office is not there; a client not found is told under
// `title`. Throws what the database throws.
std::optional<QString> ReadClientHeading(const ClientName& client, qint16 address);
std::optional<QString> ReadOfficeHeading(const QString& name, const QString& number);
std::optional<QString> ReadClientOfficeHeading(const ClientName& client);

}  // namespace quillon
