#include "correspondence/letter_headings.h"

#include "correspondence/client_row_set.h"
#include "platform/services.h"

#include <QLocale>

namespace quillon {

namespace {

const QString kCrLf = QStringLiteral("\r\n");
const QString kRevenue = QStringLiteral("HM Revenue & Customs");

QString Filled(const QVariant& value) {
    return value.isNull() ? QString() : value.toString();
}

void AddLine(QString& text, const QVariant& value) {
    const QString line = Filled(value);
    if (!line.isEmpty()) {
        text += kCrLf + line;
    }
}

QString DateLine(const QDate& today) {
    return QLocale(QLocale::English).toString(today, QStringLiteral("d MMMM yyyy"));
}

// The office's name and address after "HM Revenue & Customs", then the date
// and the salutation.
QString OfficeBlock(const RowField& office, const QDate& today) {
    QString text = kRevenue;
    for (const char* field :
         {"Name", "Address 1", "Address 2", "Address 3", "Address 4", "Address 5", "Postcode"}) {
        AddLine(text, office(QLatin1String(field)));
    }
    return text + kCrLf + kCrLf + DateLine(today) + kCrLf + kCrLf +
           QStringLiteral("Dear Sir/Madam,");
}

RowField FieldsOf(const ClientRowSet& rows, const QString& table) {
    return [&rows, table](const QString& field) { return rows.Value(table, field); };
}

RowField FieldsOf(const dao::Recordset& row) {
    return [&row](const QString& field) { return row.Fields(field).Value(); };
}

std::optional<QString> NotFound(const QString& title) {
    MsgBox(QStringLiteral("Client record not found"), vbExclamation, title);
    return std::nullopt;
}

}  // namespace

QString ClientHeading(const RowField& personal, const RowField& business, qint16 address,
                      const QDate& today) {
    // A client without a title starts with a blank, as headings always have.
    QString text = Filled(personal(QStringLiteral("Title"))) + QLatin1Char(' ') +
                   Filled(personal(QStringLiteral("First Names"))) + QLatin1Char(' ') +
                   Filled(personal(QStringLiteral("Last Name")));
    for (int line = 1; line <= 6; ++line) {
        const QString field = address == 1 && line == 6 ? QStringLiteral("Postcode")
                                                        : QStringLiteral("Address %1").arg(line);
        AddLine(text, address == 1 ? business(field) : personal(field));
    }
    text += kCrLf + kCrLf + DateLine(today) + kCrLf + kCrLf + QStringLiteral("Dear ");
    const QVariant called = personal(QStringLiteral("Called"));
    if (!called.isNull()) {
        text += called.toString() + QLatin1Char(',');
    }
    return text + kCrLf + kCrLf;
}

QString OfficeHeading(const RowField& office, const QDate& today) {
    return OfficeBlock(office, today) + kCrLf + kCrLf;
}

QString ClientOfficeHeading(const RowField& administration, const std::optional<RowField>& office,
                            const QDate& today) {
    QString text;
    if (office) {
        const QString inspector = Filled(administration(QStringLiteral("Inspector")));
        if (!inspector.isEmpty()) {
            text += inspector + kCrLf;
        }
        text += OfficeBlock(*office, today);
    }
    text += kCrLf + kCrLf + Filled(administration(QStringLiteral("First Names"))) +
            QLatin1Char(' ') + Filled(administration(QStringLiteral("Last Name"))) +
            QStringLiteral("  -  ") + QStringLiteral("Ref: ") +
            Filled(administration(QStringLiteral("Tax Reference"))) + kCrLf + kCrLf;
    // Without an office the heading starts at the subject line.
    while (text.startsWith(QLatin1Char(' ')) || text.startsWith(kCrLf)) {
        text.remove(0, text.startsWith(kCrLf) ? 2 : 1);
    }
    return text;
}

std::optional<QString> ReadClientHeading(const ClientName& client, qint16 address) {
    std::optional<QString> heading;
    {
        dao::Database db = OpenClientDatabase();
        ClientRowSet rows(db, {QStringLiteral("Personal"), QStringLiteral("Business 1")});
        rows.Seek(client);
        if (!rows.Value(QStringLiteral("Personal"), QStringLiteral("Last Name")).isNull()) {
            heading = ClientHeading(FieldsOf(rows, QStringLiteral("Personal")),
                                    FieldsOf(rows, QStringLiteral("Business 1")), address, Today());
        }
    }
    return heading ? heading : NotFound(QStringLiteral("Client Letter"));
}

std::optional<QString> ReadOfficeHeading(const QString& name, const QString& number) {
    dao::Database db = OpenOfficeDatabase();
    dao::Recordset offices = db.OpenRecordset(QStringLiteral("Tax Offices"), dao::dbOpenTable);
    offices.SetIndex(QStringLiteral("Office Name"));
    offices.Seek(QStringLiteral("="), {name, number});
    if (offices.NoMatch()) {
        return std::nullopt;
    }
    return OfficeHeading(FieldsOf(offices), Today());
}

namespace {

// The office numbered `number`, as a three-digit district code.
QString DistrictCode(const QVariant& number) {
    bool isNumber = false;
    const int value = number.toString().trimmed().toInt(&isNumber);
    return isNumber ? QStringLiteral("%1").arg(value, 3, 10, QLatin1Char('0')) : number.toString();
}

QString HeadingFromAdministration(const dao::Recordset& administration) {
    const QVariant number = administration.Fields(QStringLiteral("Office Number")).Value();
    if (number.isNull()) {
        return ClientOfficeHeading(FieldsOf(administration), std::nullopt, Today());
    }
    dao::Database db = OpenOfficeDatabase();
    dao::Recordset offices = db.OpenRecordset(QStringLiteral("Tax Offices"), dao::dbOpenTable);
    offices.SetIndex(QStringLiteral("District Code"));
    offices.Seek(QStringLiteral("="), {DistrictCode(number)});
    std::optional<RowField> office;
    if (!offices.NoMatch()) {
        office = FieldsOf(offices);
    }
    return ClientOfficeHeading(FieldsOf(administration), office, Today());
}

}  // namespace

std::optional<QString> ReadClientOfficeHeading(const ClientName& client) {
    std::optional<QString> heading;
    {
        dao::Database db = OpenClientDatabase();
        dao::Recordset administration =
            db.OpenRecordset(QStringLiteral("Administration"), dao::dbOpenTable);
        administration.SetIndex(QStringLiteral("Name"));
        administration.Seek(QStringLiteral("="), {client.last, client.first});
        if (!administration.NoMatch()) {
            heading = HeadingFromAdministration(administration);
        }
    }
    return heading ? heading : NotFound(QStringLiteral("Tax Office Letter"));
}

}  // namespace quillon
