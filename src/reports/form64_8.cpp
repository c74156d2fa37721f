#include "reports/form64_8.h"

#include "data/data_access.h"
#include "platform/services.h"
#include "reports/form64_8_pages.h"
#include "reports/report_state.h"
#include "reports/vsprint.h"

#include <exception>

namespace quillon {

namespace {

const QString kFormTitle = QStringLiteral("Form 64-8");

// The tables a client is read from, in order, with the label a missing one is
// told by.
struct ClientTable {
    QString table;
    QString label;
};

const ClientTable kClientTables[] = {
    {QStringLiteral("Personal"), QStringLiteral("Personal table")},
    {QStringLiteral("Administration"), QStringLiteral("Adminstration Table")},
    {QStringLiteral("Business 1"), QStringLiteral("Business 1 Table")},
    {QStringLiteral("Business 2"), QStringLiteral("Business 2 Table")},
    {QStringLiteral("Business 3"), QStringLiteral("Business 3 Table")},
    {QStringLiteral("Business 4"), QStringLiteral("Business 4 Table")},
    {QStringLiteral("Employment 1"), QStringLiteral("Employment 1 Table")},
    {QStringLiteral("Employment 2"), QStringLiteral("Employment 2 Table")},
    {QStringLiteral("Employment 3"), QStringLiteral("Employment 3 Table")},
    {QStringLiteral("Employment 4"), QStringLiteral("Employment 4 Table")},
};

QString Field(const dao::Recordset& row, const char* name) {
    return NullToEmpty(row.Fields(QLatin1String(name)));
}

QString WithoutBlanks(QString text) {
    return text.remove(QLatin1Char(' '));
}

void TakePersonal(const dao::Recordset& row, Form64Client& client) {
    client.name = Field(row, "Full Name").trimmed();
    if (client.name.isEmpty()) {
        client.name =
            (Field(row, "First Names") + QLatin1Char(' ') + Field(row, "Last Name")).trimmed();
    }
    for (int line = 0; line < 4; ++line) {
        client.address[line] = NullToEmpty(row.Fields(QStringLiteral("Address %1").arg(line + 1)));
    }
    client.postcode = Field(row, "Address 6");
    client.telephone = Field(row, "Home Telephone");
}

void TakeAdministration(const dao::Recordset& row, Form64Client& client) {
    client.reference = Field(row, "Client Reference");
    client.nino = WithoutBlanks(Field(row, "NI Number"));
    client.utr = WithoutBlanks(Field(row, "Tax Reference"));
}

// Business rows: the main business names the form, else the first named one;
// a limited company makes the client a company.
struct BusinessNames {
    QString main;
    QString firstNamed;
};

void TakeBusiness(const dao::Recordset& row, Form64Client& client, BusinessNames& names) {
    const QString name = Field(row, "Business Name");
    if (names.main.isEmpty() && NullToFalse(row.Fields(QStringLiteral("Main Business")))) {
        names.main = name;
    }
    if (names.firstNamed.isEmpty()) {
        names.firstNamed = name;
    }
    const qint16 type = NullToZero(row.Fields(QStringLiteral("Type")));
    client.selfEmployed = client.selfEmployed || type == 1;
    if (type == 3) {
        client.clientType = ctCompany;
    }
}

// Why a read gave nothing: a table's label, or an error to report.
struct ReadFailure {
    QString missingTable;
    ErrorDetails error;
};

std::optional<Form64Client> ReadRows(const ClientName& name, ReadFailure& failure) {
    dao::Database db = OpenClientDatabase();
    Form64Client client;
    BusinessNames names;
    for (const ClientTable& table : kClientTables) {
        try {
            dao::Recordset row = db.OpenRecordset(table.table, dao::dbOpenTable);
            row.SetIndex(QStringLiteral("Name"));
            row.Seek(QStringLiteral("="), {name.last, name.first});
            if (row.NoMatch()) {
                failure.missingTable = table.label;
                return std::nullopt;
            }
            if (table.table == QLatin1String("Personal")) {
                TakePersonal(row, client);
            } else if (table.table == QLatin1String("Administration")) {
                TakeAdministration(row, client);
            } else if (table.table.startsWith(QLatin1String("Business"))) {
                TakeBusiness(row, client, names);
            }
        } catch (const dao::DaoError&) {
            failure.missingTable = table.label;
            return std::nullopt;
        }
    }
    client.businessName = names.main.isEmpty() ? names.firstNamed : names.main;
    return client;
}

QString CleanFileName(const QString& name) {
    static const QString kRefused = QStringLiteral("\\/:*?\"<>");
    QString clean;
    for (const QChar c : name) {
        const bool printable = c.unicode() >= 20 && c.unicode() <= 125;
        clean += printable && !kRefused.contains(c) ? c : QLatin1Char('_');
    }
    return clean;
}

}  // namespace

std::optional<Form64Client> ReadForm64Client(const ClientName& client) {
    ReadFailure failure;
    std::optional<Form64Client> read;
    try {
        read = ReadRows(client, failure);
    } catch (const std::exception& error) {
        failure.error = DetailsOf(error);
    }
    // The database is closed by now: only then is the user told.
    if (!failure.missingTable.isEmpty()) {
        MsgBox(QStringLiteral("Client record not found"), vbExclamation, failure.missingTable);
    } else if (!read) {
        MsgBox(ErrorReportText(QStringLiteral("frmForm64_8"), QStringLiteral("lstClients_Click"),
                               failure.error),
               vbExclamation, kFormTitle);
    }
    return read;
}

bool PrintForm64(const Form64Entries& entries) {
    if (!VSOpenReport(kFormTitle)) {
        return false;
    }
    ReportPageNumber = 1;
    DrawForm64Page1(entries);
    ReportPageNumber = 2;
    VSNextSheet();
    DrawForm64Page2();
    VSEndDocument();
    return true;
}

QString Form64PdfName(const QString& clientName) {
    QString name = VSPDFFileOption == 0 ? QStringLiteral("64-8 ") + clientName : VSPDFFileName;
    if (name.isEmpty()) {
        name = QStringLiteral("Quillon");
    }
    return CleanFileName(name) + QStringLiteral(".pdf");
}

}  // namespace quillon
