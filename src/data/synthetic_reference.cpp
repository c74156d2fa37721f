// MakeSyntheticOfficeDatabase and MakeSyntheticDividendDatabase (declared in
// delivered_databases.h): reference files of any size whose offices and
// companies are plainly made up, for tests and benchmarks.

#include "data/database_schema.h"
#include "data/delivered_databases.h"
#include "data/table_inserter.h"

#include <QStringList>

namespace quillon {

namespace {

// Invented place names, one for most letters, so that the letter buttons
// find something under most of them.
const QStringList kPlaces{
    QStringLiteral("Ashcombe"),   QStringLiteral("Brindlow"),    QStringLiteral("Cresford"),
    QStringLiteral("Dunmarsh"),   QStringLiteral("Elmbury"),     QStringLiteral("Farrowdale"),
    QStringLiteral("Glenhithe"),  QStringLiteral("Holtwick"),    QStringLiteral("Ivelton"),
    QStringLiteral("Kestermoor"), QStringLiteral("Langsett"),    QStringLiteral("Mockton"),
    QStringLiteral("Northwold"),  QStringLiteral("Oakhanger"),   QStringLiteral("Pelling"),
    QStringLiteral("Ravensby"),   QStringLiteral("Sampleford"),  QStringLiteral("Testbury"),
    QStringLiteral("Upwater"),    QStringLiteral("Westerleigh"),
};

const QStringList kStocks{QStringLiteral("Ordinary 10p"), QStringLiteral("Ordinary 25p"),
                          QStringLiteral("Ordinary 5p"), QStringLiteral("Preference 50p")};

QString Padded(int n, int digits) {
    return QStringLiteral("%1").arg(n, digits, 10, QLatin1Char('0'));
}

void WriteOffice(TableInserter& offices, int n) {
    const QString& place = kPlaces[n % kPlaces.size()];
    // Telephone numbers set aside for fiction, so none can reach a real line.
    const QString line = QStringLiteral("01632 960") + Padded(n % 1000, 3);
    offices.Set(QStringLiteral("Number"), Padded(n, 3))
        .Set(QStringLiteral("Name"), place + QStringLiteral(" Sample Office ") + Padded(n, 4))
        .Set(QStringLiteral("Address 1"), QStringLiteral("Sample data - not a real office"))
        .Set(QStringLiteral("Address 2"), QStringLiteral("%1 Example Street").arg(n % 200 + 1))
        .Set(QStringLiteral("Address 3"), place)
        .Set(QStringLiteral("Address 4"), QStringLiteral("Testshire"))
        .Set(QStringLiteral("Postcode"), QStringLiteral("ZZ%1 %2ZZ").arg(n % 99 + 1).arg(n % 10))
        .Set(QStringLiteral("Telephone"), line)
        .Set(QStringLiteral("Fax"), line)
        .Set(QStringLiteral("Office No"), QStringLiteral("SYN") + Padded(n, 4))
        .Set(QStringLiteral("Email"), QStringLiteral("office%1@example.com").arg(n))
        .Insert();
}

// Two payments in the tax year 2014-15, of made-up sizes.
void WriteShare(TableInserter& shares, int n) {
    const QString& place = kPlaces[n % kPlaces.size()];
    shares.Set(QStringLiteral("Company"), place + QStringLiteral(" Sample Company ") + Padded(n, 4))
        .Set(QStringLiteral("Stock"), kStocks[n % kStocks.size()])
        .SetBool(QStringLiteral("FID"), n % 10 == 9)
        .Set(QStringLiteral("Issued"), 1);
    for (int payment = 1; payment <= 2; ++payment) {
        const int month = payment == 1 ? 6 + n % 3 : 1 + n % 3;
        shares.Set(QStringLiteral("Number %1").arg(payment), QString::number(100 * (n % 50 + 1)))
            .Set(QStringLiteral("Date %1").arg(payment),
                 Padded(n % 28 + 1, 2) + QLatin1Char('/') + Padded(month, 2) +
                     (payment == 1 ? QStringLiteral("/14") : QStringLiteral("/15")))
            .Set(QStringLiteral("Dividend %1").arg(payment),
                 QStringLiteral("%1.%2").arg(n % 40 + 1).arg(Padded(n % 100, 2)));
    }
    shares.Insert();
}

}  // namespace

void MakeSyntheticOfficeDatabase(const QString& path, int count) {
    const std::vector<dao::TableDef> tables = OfficeDatabaseTables();
    MakeReferenceDatabase(path, tables, [&](const BulkWriteSession& session) {
        TableInserter offices(session, *FindTable(tables, QStringLiteral("Tax Offices")));
        for (int n = 0; n < qMin(count, 1000); ++n) {
            WriteOffice(offices, n);
        }
    });
}

void MakeSyntheticDividendDatabase(const QString& path, int count) {
    const std::vector<dao::TableDef> tables = DividendDatabaseTables();
    MakeReferenceDatabase(path, tables, [&](const BulkWriteSession& session) {
        TableInserter shares(session, *FindTable(tables, QStringLiteral("Dividends")));
        for (int n = 0; n < count; ++n) {
            WriteShare(shares, n);
        }
    });
}

}  // namespace quillon
