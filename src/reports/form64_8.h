#pragma once
// The agent authorisation form: what the client database knows of a client,
// the entries of the form, the two pages drawn through the report routines,
// and the name its PDF file is offered under.

#include "data/client_rows.h"

#include <QHash>
#include <QSet>
#include <QString>

#include <array>
#include <optional>

namespace quillon {

// Client types of the form; partnership and trust come only from its ticks.
enum Form64ClientType : qint16 {
    ctCompany = 0,
    ctIndividual = 1,
    ctPartnership = 2,
    ctTrust = 3,
};

// What the form's screen gathers from the client database.
struct Form64Client {
    QString name;
    std::array<QString, 4> address;
    QString postcode;
    QString telephone;
    QString reference;
    QString businessName;
    QString nino;  // blanks removed
    QString utr;   // blanks removed
    bool selfEmployed = false;
    qint16 clientType = ctIndividual;
};

// Reads the client from its personal, administration, business and employment
// rows. A missing row or table is told by the table's label, any other failure
// by the error report; both give nothing.
std::optional<Form64Client> ReadForm64Client(const ClientName& client);

// What stands on the form: each box's trimmed text and each ticked box, by the
// name of its control.
struct Form64Entries {
    QHash<QString, QString> texts;
    QSet<QString> ticked;
    qint16 clientType = ctIndividual;

    QString Text(const QString& control) const { return texts.value(control); }
    bool Ticked(const QString& control) const { return ticked.contains(control); }
};

// Opens the report "Form 64-8" and draws both pages; false when the report
// could not be opened (the user has been told).
bool PrintForm64(const Form64Entries& entries);

// The file name offered for the form's PDF, ".pdf" included: by the settings
// either "64-8 " and the client's name or the fixed name, with every character
// a file name can't hold made "_".
QString Form64PdfName(const QString& clientName);

}  // namespace quillon
