// MakeSyntheticClientDatabase (declared in delivered_databases.h): client
// databases of any size whose names and contents are plainly made up, for tests
// and benchmarks.

#include "data/currency.h"
#include "data/database_schema.h"
#include "data/delivered_databases.h"
#include "data/table_inserter.h"

#include <QFile>
#include <QHash>
#include <QStringList>

#include <cstdint>
#include <memory>
#include <random>

namespace quillon {

namespace {

const QStringList kFirstNames{
    QStringLiteral("Oliver"),  QStringLiteral("Amelia"), QStringLiteral("Harry"),
    QStringLiteral("Isla"),    QStringLiteral("George"), QStringLiteral("Ava"),
    QStringLiteral("Jack"),    QStringLiteral("Emily"),  QStringLiteral("Thomas"),
    QStringLiteral("Sophie"),  QStringLiteral("James"),  QStringLiteral("Grace"),
    QStringLiteral("William"), QStringLiteral("Lily"),   QStringLiteral("Charles"),
    QStringLiteral("Ruth"),    QStringLiteral("David"),  QStringLiteral("Margaret"),
};

const QStringList kSurnames{
    QStringLiteral("Ashworth"),  QStringLiteral("Brennan"),   QStringLiteral("Carver"),
    QStringLiteral("Dalton"),    QStringLiteral("Ellison"),   QStringLiteral("Fairbairn"),
    QStringLiteral("Gough"),     QStringLiteral("Hartley"),   QStringLiteral("Ingram"),
    QStringLiteral("Jessop"),    QStringLiteral("Kershaw"),   QStringLiteral("Lomax"),
    QStringLiteral("Marsden"),   QStringLiteral("Nuttall"),   QStringLiteral("Ormerod"),
    QStringLiteral("Pickles"),   QStringLiteral("Quarmby"),   QStringLiteral("Rothwell"),
    QStringLiteral("Sutcliffe"), QStringLiteral("Thwaite"),   QStringLiteral("Ullathorne"),
    QStringLiteral("Varley"),    QStringLiteral("Whitworth"), QStringLiteral("Yates"),
};

const QStringList kStreets{QStringLiteral("Test Street"), QStringLiteral("Example Road"),
                           QStringLiteral("Specimen Lane"), QStringLiteral("Dummy Avenue"),
                           QStringLiteral("Placeholder Close")};
const QStringList kTowns{QStringLiteral("Testbury"), QStringLiteral("Examplefield"),
                         QStringLiteral("Mockton"), QStringLiteral("Sampleford")};
const QStringList kOccupations{
    QStringLiteral("Engineer"),      QStringLiteral("Teacher"),          QStringLiteral("Nurse"),
    QStringLiteral("Sales manager"), QStringLiteral("Company director"), QStringLiteral("Driver")};
const QStringList kTrades{QStringLiteral("Plumber"),     QStringLiteral("Electrician"),
                          QStringLiteral("Hairdresser"), QStringLiteral("Consultant"),
                          QStringLiteral("Shopkeeper"),  QStringLiteral("Landlord")};
const QStringList kProviders{QStringLiteral("Synthetic Life"), QStringLiteral("Example Pensions"),
                             QStringLiteral("Mock Assurance")};
const QStringList kStaff{QStringLiteral("Partner One"), QStringLiteral("Partner Two"),
                         QStringLiteral("Manager One"), QStringLiteral("Assistant One"),
                         QStringLiteral("Assistant Two")};
const QStringList kTitlesMale{QStringLiteral("Mr"), QStringLiteral("Dr")};
const QStringList kTitlesFemale{QStringLiteral("Mrs"), QStringLiteral("Ms"), QStringLiteral("Miss"),
                                QStringLiteral("Dr")};
const QStringList kContributionTypes{QStringLiteral("PPC"), QStringLiteral("RAP"),
                                     QStringLiteral("FSAVC")};

// The tax year that diary page 1 starts in; pages 2 to 4 follow on.
constexpr int kFirstDiaryYear = 2012;

// mt19937's sequence is fixed by the language standard, unlike its
// distributions, so the same seed gives the same file everywhere.
class Random {
public:
    explicit Random(std::uint32_t seed) : engine_(seed) {}
    int Below(int n) { return int(engine_() % std::uint32_t(n)); }
    int Between(int low, int high) { return low + Below(high - low + 1); }
    bool Chance(int percent) { return Below(100) < percent; }
    const QString& Pick(const QStringList& list) { return list[Below(int(list.size()))]; }

private:
    std::mt19937 engine_;
};

QString TwoDigits(int n) {
    return QStringLiteral("%1").arg(n, 2, 10, QLatin1Char('0'));
}

// An amount of whole pounds as a money box shows it.
QString Money(int pounds) {
    return MoneyText(Currency::FromPounds(pounds));
}

QString ShortDate(int day, int month, int year) {
    return TwoDigits(day) + QLatin1Char('/') + TwoDigits(month) + QLatin1Char('/') +
           TwoDigits(year % 100);
}

class SyntheticClientWriter {
public:
    explicit SyntheticClientWriter(const BulkWriteSession& session) : random_(20150405) {
        const std::vector<dao::TableDef> tables = ClientDatabaseTables();
        for (const QString& name : ClientTableNames()) {
            inserters_.push_back(
                std::make_unique<TableInserter>(session, *FindTable(tables, name)));
            byName_.insert(name, inserters_.back().get());
        }
    }

    void Write(int number) {
        first_ = QStringLiteral("%1 %2").arg(random_.Pick(kFirstNames)).arg(number);
        last_ = random_.Pick(kSurnames);
        WritePersonal();
        WriteEmployment(Row(QStringLiteral("Employment 1")), 60);
        WriteEmployment(Row(QStringLiteral("Employment 2")), 15);
        WriteBusiness(Row(QStringLiteral("Business 1")), 30);
        WriteAssets();
        WriteContributions();
        WriteAdministration(number);
        WriteUser();
        for (int page = 1; page <= 4; ++page) {
            WriteDiary(page);
        }
        for (const auto& row : inserters_) {
            row->Set(QStringLiteral("First Names"), first_)
                .Set(QStringLiteral("Last Name"), last_)
                .Insert();
        }
    }

private:
    TableInserter& Row(const QString& table) { return *byName_.value(table); }

    QString Telephone() {
        // Numbers set aside for fiction, so none can reach a real line.
        return QStringLiteral("01632 960%1").arg(random_.Below(1000), 3, 10, QLatin1Char('0'));
    }
    QString Postcode() {
        return QStringLiteral("ZZ%1 %2ZZ").arg(random_.Between(1, 99)).arg(random_.Below(10));
    }
    // Each draw is its own statement: the order in which a call's arguments
    // are evaluated is unspecified, and the file must not depend on it.
    QString LongDate() {
        const int day = random_.Between(1, 28);
        const int month = random_.Between(1, 12);
        const int year = random_.Between(1930, 1995);
        return QStringLiteral("%1/%2/%3").arg(TwoDigits(day), TwoDigits(month)).arg(year);
    }
    QString DateInTaxYear(int startYear) {
        const int day = random_.Between(1, 28);
        const int month = random_.Between(1, 12);
        return ShortDate(day, month, month >= 4 ? startYear : startYear + 1);
    }
    void SetAddress(TableInserter& row, int lines) {
        row.Set(QStringLiteral("Address 1"),
                QStringLiteral("%1 %2").arg(random_.Between(1, 250)).arg(random_.Pick(kStreets)));
        row.Set(QStringLiteral("Address 2"), random_.Pick(kTowns));
        if (lines > 2) {
            row.Set(QStringLiteral("Address 3"), QStringLiteral("Testshire"));
        }
    }
    void SetIndicators(TableInserter& row, int first, int percent) {
        for (int n = first; n <= 10; ++n) {
            row.SetBool(QStringLiteral("Indicator %1").arg(n), random_.Chance(percent));
        }
    }
    void SetTaxYears(TableInserter& row, int years) {
        for (int n = 1; n <= years; ++n) {
            row.Set(QStringLiteral("Tax Year %1").arg(n),
                    QStringLiteral("%1-%2")
                        .arg(kFirstDiaryYear + n - 1)
                        .arg(TwoDigits((kFirstDiaryYear + n) % 100)));
            row.Set(QStringLiteral("NRE %1").arg(n), QString::number(random_.Between(5000, 90000)));
        }
    }

    void WritePersonal() {
        TableInserter& row = Row(QStringLiteral("Personal"));
        const int sex = random_.Below(2);
        const QString called = first_.section(QLatin1Char(' '), 0, 0);
        row.Set(QStringLiteral("Full Name"), called + QLatin1Char(' ') + last_)
            .Set(QStringLiteral("Title"), random_.Pick(sex == 0 ? kTitlesMale : kTitlesFemale))
            .Set(QStringLiteral("Called"), called)
            .Set(QStringLiteral("Date of Birth"), LongDate())
            .Set(QStringLiteral("Home Telephone"), Telephone())
            .Set(QStringLiteral("Sex"), sex)
            .Set(QStringLiteral("Marital Status"), random_.Below(5))
            .SetBool(QStringLiteral("Blind"), random_.Chance(2));
        SetAddress(row, 3);
        row.Set(QStringLiteral("Address 4"), Postcode());
        if (random_.Chance(50)) {
            row.Set(
                QStringLiteral("Mobile"),
                QStringLiteral("07700 900%1").arg(random_.Below(1000), 3, 10, QLatin1Char('0')));
        }
        if (random_.Chance(30)) {
            row.Set(QStringLiteral("Child 1 Name"),
                    random_.Pick(kFirstNames) + QLatin1Char(' ') + last_)
                .Set(QStringLiteral("Child 1 DOB"), DateInTaxYear(random_.Between(1995, 2012)));
        }
        SetIndicators(row, 2, 20);
    }

    void WriteEmployment(TableInserter& row, int percent) {
        if (!random_.Chance(percent)) {
            return;
        }
        row.Set(QStringLiteral("Occupation"), random_.Pick(kOccupations))
            .Set(QStringLiteral("Employer"),
                 QStringLiteral("%1 Example Ltd").arg(random_.Pick(kSurnames)))
            .Set(QStringLiteral("Postcode"), Postcode())
            .Set(QStringLiteral("PAYE Reference"),
                 QStringLiteral("999/S%1").arg(random_.Below(100000), 5, 10, QLatin1Char('0')))
            .Set(QStringLiteral("Start Date"), DateInTaxYear(random_.Between(1990, 2014)))
            .SetBool(QStringLiteral("Director"), random_.Chance(10))
            .SetBool(QStringLiteral("Close"), false)
            .SetBool(QStringLiteral("Main Employment"), true);
        SetAddress(row, 2);
        SetTaxYears(row, 2);
        SetIndicators(row, 1, 15);
        if (random_.Chance(20)) {
            row.Set(QStringLiteral("Email"), QStringLiteral("payroll@example.com"));
        }
    }

    void WriteBusiness(TableInserter& row, int percent) {
        if (!random_.Chance(percent)) {
            return;
        }
        const bool april = random_.Chance(50);
        row.Set(QStringLiteral("Description"), random_.Pick(kTrades))
            .Set(QStringLiteral("Business Name"), last_ + QStringLiteral(" Trading"))
            .Set(QStringLiteral("Postcode"), Postcode())
            .Set(QStringLiteral("Commencement"), DateInTaxYear(random_.Between(1990, 2014)))
            .Set(QStringLiteral("Year end day"),
                 april ? QStringLiteral("05") : QStringLiteral("31"))
            .Set(QStringLiteral("Year end month"),
                 april ? QStringLiteral("04") : QStringLiteral("03"))
            .Set(QStringLiteral("Telephone"), Telephone())
            .Set(QStringLiteral("Type"), random_.Below(3))
            .SetBool(QStringLiteral("Main Business"), true);
        SetAddress(row, 2);
        SetTaxYears(row, 3);
        SetIndicators(row, 1, 30);
        if (random_.Chance(30)) {
            // A partner and their share, fields that only an import carries.
            row.Set(QStringLiteral("Partner 1 First"), random_.Pick(kFirstNames))
                .Set(QStringLiteral("Partner 1 Last"), last_)
                .Set(QStringLiteral("Partner 1 Share"), QStringLiteral("50%"));
        }
    }

    void WriteAssets() {
        if (!random_.Chance(50)) {
            return;
        }
        TableInserter& row = Row(QStringLiteral("Assets"));
        for (int line : {1, 5, 9}) {
            row.Set(QStringLiteral("Date %1").arg(line), DateInTaxYear(2014))
                .Set(QStringLiteral("Value %1").arg(line), Money(random_.Between(100, 500000)));
        }
        row.Set(QStringLiteral("Date 20"), DateInTaxYear(2014));
        if (random_.Chance(20)) {
            WriteAssetDetail(row);
        }
    }

    // Asset line 16 with its own description and two lines of detail.
    void WriteAssetDetail(TableInserter& assets) {
        assets.Set(QStringLiteral("Asset 16"), QStringLiteral("Synthetic holdings"))
            .Set(QStringLiteral("Value 16"), Money(random_.Between(1000, 90000)));
        TableInserter& detail = Row(QStringLiteral("Asset 16"));
        for (int line = 1; line <= 2; ++line) {
            detail.Set(QStringLiteral("Asset %1").arg(line), QStringLiteral("Holding %1").arg(line))
                .Set(QStringLiteral("Date %1").arg(line), DateInTaxYear(2014))
                .Set(QStringLiteral("Value %1").arg(line), Money(random_.Between(500, 45000)));
        }
    }

    void WriteContributions() {
        if (!random_.Chance(25)) {
            return;
        }
        Row(QStringLiteral("Contributions"))
            .Set(QStringLiteral("Provider 1"), random_.Pick(kProviders))
            .Set(QStringLiteral("Contract 1"),
                 QStringLiteral("PP%1").arg(random_.Below(1000000), 6, 10, QLatin1Char('0')))
            .Set(QStringLiteral("Type 1"), random_.Pick(kContributionTypes))
            .Set(QStringLiteral("SR 1"),
                 random_.Chance(50) ? QStringLiteral("S") : QStringLiteral("R"))
            .Set(QStringLiteral("NG 1"),
                 random_.Chance(50) ? QStringLiteral("N") : QStringLiteral("G"))
            .Set(QStringLiteral("Date 1"), DateInTaxYear(2014))
            .Set(QStringLiteral("Amount 1"), QString::number(random_.Between(100, 40000)));
    }

    void WriteAdministration(int number) {
        TableInserter& row = Row(QStringLiteral("Administration"));
        // QQ is never issued as a National Insurance prefix.
        row.Set(QStringLiteral("Client Reference"), QStringLiteral("SYN%1").arg(number))
            .Set(QStringLiteral("NI Number"),
                 QStringLiteral("QQ %1 C").arg(random_.Below(1000000), 6, 10, QLatin1Char('0')))
            .Set(QStringLiteral("Tax Reference"),
                 QStringLiteral("99999 %1").arg(number, 5, 10, QLatin1Char('0')))
            .Set(QStringLiteral("File Identifier"), last_ + QStringLiteral(", ") + first_)
            .Set(QStringLiteral("Partner"), kStaff[random_.Below(2)])
            .Set(QStringLiteral("Manager"), kStaff[2])
            .Set(QStringLiteral("Assistant"), kStaff[3 + random_.Below(2)]);
        if (random_.Chance(70)) {
            // One of the sample offices of the delivered tax offices database.
            const int office = random_.Below(3);
            row.Set(QStringLiteral("Office Number"), QString::number(991 + office))
                .Set(QStringLiteral("Office Name"),
                     QStringLiteral("Sample Tax Office %1").arg(QLatin1Char(char('A' + office))));
        }
    }

    void WriteUser() {
        if (random_.Chance(30)) {
            Row(QStringLiteral("User"))
                .Set(QStringLiteral("Left 1"),
                     random_.Pick(kFirstNames) + QStringLiteral(" (referral)"))
                .Set(QStringLiteral("Left 2"), DateInTaxYear(2010))
                .Set(QStringLiteral("Right 1"), QStringLiteral("Synthetic note"));
        }
    }

    // Earlier years are mostly done, the latest barely begun; a date that was
    // cleared stays as an empty text rather than Null.
    void WriteDiary(int page) {
        TableInserter& row = Row(QStringLiteral("Diary %1").arg(page));
        const int year = kFirstDiaryYear + page - 1;
        const int percent = 90 - 25 * (page - 1);
        for (int n = 1; n <= 20; ++n) {
            if (random_.Chance(percent)) {
                row.Set(QStringLiteral("Standard Date %1").arg(n), DateInTaxYear(year + 1));
            } else if (random_.Chance(10)) {
                row.Set(QStringLiteral("Standard Date %1").arg(n), QString());
            }
        }
        if (random_.Chance(20)) {
            row.Set(QStringLiteral("Client Event 1"), QStringLiteral("Synthetic meeting"))
                .Set(QStringLiteral("Client Date 1"), DateInTaxYear(year + 1));
        }
    }

    Random random_;
    std::vector<std::unique_ptr<TableInserter>> inserters_;
    QHash<QString, TableInserter*> byName_;
    QString first_;
    QString last_;
};

}  // namespace

void MakeSyntheticClientDatabase(const QString& path, int count) {
    MakeClientDatabase(path);
    try {
        BulkWriteSession session(path);
        {
            SyntheticClientWriter writer(session);
            for (int number = 1; number <= count; ++number) {
                writer.Write(number);
            }
        }
        session.Commit();
    } catch (...) {
        QFile::remove(path);
        throw;
    }
}

}  // namespace quillon
