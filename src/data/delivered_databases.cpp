#include "data/delivered_databases.h"

#include "data/database_schema.h"
#include "data/table_inserter.h"

#include <QFile>
#include <QStringList>

#include <functional>
#include <utility>
#include <vector>

namespace quillon {

namespace {

// The ten indicators of the personal section; the first is always shown as
// "Blind", whatever the row says.
const QStringList kPersonalIndicators{
    QStringLiteral("Blind"),
    QStringLiteral("Self assessment return"),
    QStringLiteral("Married couple's allowance"),
    QStringLiteral("Child benefit"),
    QStringLiteral("Student loan"),
    QStringLiteral("Non-resident"),
    QStringLiteral("Non-domiciled"),
    QStringLiteral("State pension"),
    QStringLiteral("Tax credits claim"),
    QStringLiteral("Gift Aid donations"),
};

// Benefits and expenses of an employment, as reported on a P11D.
const QStringList kEmploymentIndicators{
    QStringLiteral("Company car"),          QStringLiteral("Car fuel benefit"),
    QStringLiteral("Van benefit"),          QStringLiteral("Private medical insurance"),
    QStringLiteral("Living accommodation"), QStringLiteral("Beneficial loan"),
    QStringLiteral("Share options"),        QStringLiteral("Expenses payments"),
    QStringLiteral("P11D received"),        QStringLiteral("P60 received"),
};

const QStringList kBusinessIndicators{
    QStringLiteral("Books and records received"),  QStringLiteral("Accounts prepared"),
    QStringLiteral("Accounts approved by client"), QStringLiteral("VAT registered"),
    QStringLiteral("CIS subcontractor"),           QStringLiteral("Employs staff (PAYE scheme)"),
    QStringLiteral("Capital allowances claimed"),  QStringLiteral("Cash basis"),
    QStringLiteral("Partnership return"),          QStringLiteral("Class 2 NIC paid"),
};

// Asset lines 1 to 15; at most 30 characters each.
const QStringList kAssetLines{
    QStringLiteral("Main residence"),
    QStringLiteral("Other residential property"),
    QStringLiteral("Commercial property"),
    QStringLiteral("Land"),
    QStringLiteral("Quoted shares"),
    QStringLiteral("Unquoted shares"),
    QStringLiteral("Unit and investment trusts"),
    QStringLiteral("Government stocks"),
    QStringLiteral("Bank and building society"),
    QStringLiteral("National Savings"),
    QStringLiteral("ISAs"),
    QStringLiteral("Life policies"),
    QStringLiteral("Pension funds"),
    QStringLiteral("Chattels"),
    QStringLiteral("Business assets"),
};

const QString kUserTitle = QStringLiteral("User Defined");

const QStringList kUserLabels{
    QStringLiteral("Referred by"),       QStringLiteral("Date of engagement"),
    QStringLiteral("Engagement letter"), QStringLiteral("Identity checked"),
    QStringLiteral("Fee basis"),         QStringLiteral("Billing frequency"),
    QStringLiteral("Preferred contact"), QStringLiteral("Previous accountant"),
};

// The working year of a self assessment client. The starred events are the
// columns of the diary progress report.
const QStringList kDiaryEventDescriptions{
    QStringLiteral("*Tax return issued"),
    QStringLiteral("Records requested"),
    QStringLiteral("*Records received"),
    QStringLiteral("Bank statements received"),
    QStringLiteral("P60 received"),
    QStringLiteral("P11D received"),
    QStringLiteral("*Accounts prepared"),
    QStringLiteral("Accounts sent to client"),
    QStringLiteral("*Accounts approved"),
    QStringLiteral("*Return prepared"),
    QStringLiteral("Return sent for signature"),
    QStringLiteral("*Return signed"),
    QStringLiteral("Return filed online"),
    QStringLiteral("Tax calculation sent"),
    QStringLiteral("31 January payment advised"),
    QStringLiteral("31 July payment advised"),
    QStringLiteral("Statement of account checked"),
    QStringLiteral("Payments on account reviewed"),
    QStringLiteral("Tax office queries answered"),
    QStringLiteral("Fee invoiced"),
};

const QStringList kDiaryTaxYears{
    QStringLiteral("2012-13"),
    QStringLiteral("2013-14"),
    QStringLiteral("2014-15"),
    QStringLiteral("2015-16"),
};

struct TaxOffice {
    const char* number;
    const char* name;
    QStringList address;
};

// The first office is HMRC's; the rest are plainly sample rows to browse with.
const std::vector<TaxOffice> kTaxOffices{
    {"902",
     "Accounts Office Cumbernauld",
     {QStringLiteral("HM Revenue and Customs"), QStringLiteral("Accounts Office"),
      QStringLiteral("Cumbernauld")}},
    {"991", "Sample Tax Office A", {QStringLiteral("Sample data - not a real office")}},
    {"992", "Sample Tax Office B", {QStringLiteral("Sample data - not a real office")}},
    {"993", "Sample Tax Office C", {QStringLiteral("Sample data - not a real office")}},
};

// Published shares of the year; payments are left for the practice to enter.
const std::vector<std::pair<const char*, const char*>> kShares{
    {"3i Group PLC", "Ordinary 50p"},
    {"Barclays PLC", "Ordinary 25p"},
    {"BP PLC", "Ordinary $0.25"},
    {"HSBC Holdings PLC", "Ordinary $0.50"},
    {"Lloyds Banking Group PLC", "Ordinary 10p"},
    {"Tesco PLC", "Ordinary 5p"},
};

// Makes the file from `tables`, lets `fill` write its rows in one transaction,
// and removes the file again if anything fails.
void MakeDatabase(const QString& path, const std::vector<dao::TableDef>& tables,
                  const std::function<void(const BulkWriteSession&)>& fill) {
    dao::CreateDatabase(path, tables);
    try {
        BulkWriteSession session(path);
        fill(session);
        session.Commit();
    } catch (...) {
        QFile::remove(path);
        throw;
    }
}

void WriteCommonRow(TableInserter& common, const QString& name, const QStringList& texts) {
    common.Set(QStringLiteral("Name"), name);
    for (int n = 1; n <= texts.size(); ++n) {
        common.Set(QStringLiteral("Text %1").arg(n), texts[n - 1]);
    }
}

// One row a description set, shared by all clients: "Personal", "Employment n",
// "Business n", "Assets", "User" and "Diary n".
void WriteCommonRows(const BulkWriteSession& session, const dao::TableDef& table) {
    TableInserter common(session, table);
    WriteCommonRow(common, QStringLiteral("Personal"), kPersonalIndicators);
    common.Insert();
    for (int page = 1; page <= 4; ++page) {
        WriteCommonRow(common, QStringLiteral("Employment %1").arg(page), kEmploymentIndicators);
        common.Insert();
    }
    for (int page = 1; page <= 4; ++page) {
        WriteCommonRow(common, QStringLiteral("Business %1").arg(page), kBusinessIndicators);
        common.Insert();
    }
    WriteCommonRow(common, QStringLiteral("Assets"), kAssetLines);
    common.Insert();
    WriteCommonRow(common, QStringLiteral("User"), kUserLabels);
    common.Set(QStringLiteral("Title"), kUserTitle).Insert();
    for (int page = 1; page <= 4; ++page) {
        WriteCommonRow(common, QStringLiteral("Diary %1").arg(page), kDiaryEventDescriptions);
        common.Set(QStringLiteral("Tax Year"), kDiaryTaxYears[page - 1]).Insert();
    }
}

// A skeleton client, as a new client is made, with its name in full.
void WriteSampleClient(const BulkWriteSession& session, const std::vector<dao::TableDef>& tables) {
    const QString first = QString::fromLatin1(kSampleClientFirst);
    const QString last = QString::fromLatin1(kSampleClientLast);
    for (const QString& name : ClientTableNames()) {
        TableInserter row(session, *FindTable(tables, name));
        row.Set(QStringLiteral("First Names"), first).Set(QStringLiteral("Last Name"), last);
        if (name == QLatin1String("Administration")) {
            row.Set(QStringLiteral("File Identifier"), last + QStringLiteral(", ") + first);
        } else if (name == QLatin1String("Personal")) {
            row.Set(QStringLiteral("Full Name"), first + QLatin1Char(' ') + last);
        }
        row.Insert();
    }
}

}  // namespace

void MakeClientDatabase(const QString& path) {
    const std::vector<dao::TableDef> tables = ClientDatabaseTables();
    MakeDatabase(path, tables, [&](const BulkWriteSession& session) {
        WriteCommonRows(session, *FindTable(tables, QStringLiteral("Common")));
        WriteSampleClient(session, tables);
    });
}

void MakeReferenceDatabase(const QString& path, const std::vector<dao::TableDef>& tables,
                           const std::function<void(const BulkWriteSession&)>& fill) {
    MakeDatabase(path, tables, [&](const BulkWriteSession& session) {
        fill(session);
        TableInserter(session, *FindTable(tables, QStringLiteral("Version")))
            .Set(QStringLiteral("Version"), kDeliveredReferenceVersion)
            .Insert();
    });
}

void MakeOfficeDatabase(const QString& path) {
    const std::vector<dao::TableDef> tables = OfficeDatabaseTables();
    MakeReferenceDatabase(path, tables, [&](const BulkWriteSession& session) {
        TableInserter offices(session, *FindTable(tables, QStringLiteral("Tax Offices")));
        for (const TaxOffice& office : kTaxOffices) {
            offices.Set(QStringLiteral("Number"), office.number)
                .Set(QStringLiteral("Name"), office.name);
            for (int n = 1; n <= office.address.size(); ++n) {
                offices.Set(QStringLiteral("Address %1").arg(n), office.address[n - 1]);
            }
            offices.Insert();
        }
    });
}

void MakeDividendDatabase(const QString& path) {
    const std::vector<dao::TableDef> tables = DividendDatabaseTables();
    MakeReferenceDatabase(path, tables, [&](const BulkWriteSession& session) {
        TableInserter dividends(session, *FindTable(tables, QStringLiteral("Dividends")));
        for (const auto& [company, stock] : kShares) {
            dividends.Set(QStringLiteral("Company"), company)
                .Set(QStringLiteral("Stock"), stock)
                .SetBool(QStringLiteral("FID"), false)
                .Set(QStringLiteral("Issued"), 1)
                .Insert();
        }
    });
}

}  // namespace quillon
