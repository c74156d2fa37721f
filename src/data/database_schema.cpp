#include "data/database_schema.h"

namespace quillon {

namespace {

using dao::FieldDef;
using dao::TableDef;

constexpr int kNameWidth = 30;

// Builds one table definition; field families are written as a prefix and a
// count, so that `Texts("Address", 6, 40)` gives `Address 1` to `Address 6`.
class TableBuilder {
public:
    explicit TableBuilder(const QString& name) { table_.name = name; }

    TableBuilder& Text(const QString& name, int width) {
        table_.fields.push_back({name, dao::dbText, width});
        return *this;
    }
    TableBuilder& Integer(const QString& name) {
        table_.fields.push_back({name, dao::dbInteger, 0});
        return *this;
    }
    TableBuilder& YesNo(const QString& name) {
        table_.fields.push_back({name, dao::dbBoolean, 0});
        return *this;
    }
    // `prefix first` to `prefix last`, each followed by " suffix" when one is given.
    TableBuilder& Texts(const QString& prefix, int first, int last, int width,
                        const QString& suffix = {}) {
        for (int n = first; n <= last; ++n) {
            Text(FamilyName(prefix, n, suffix), width);
        }
        return *this;
    }
    TableBuilder& Texts(const QString& prefix, int count, int width) {
        return Texts(prefix, 1, count, width);
    }
    TableBuilder& YesNos(const QString& prefix, int count) {
        for (int n = 1; n <= count; ++n) {
            YesNo(FamilyName(prefix, n, {}));
        }
        return *this;
    }
    TableBuilder& Index(const QString& name, const QStringList& fields, bool unique = false) {
        table_.indexes.push_back({name, fields, unique});
        return *this;
    }

    TableDef Build() const { return table_; }

private:
    static QString FamilyName(const QString& prefix, int n, const QString& suffix) {
        QString name = prefix + QLatin1Char(' ') + QString::number(n);
        if (!suffix.isEmpty()) {
            name += QLatin1Char(' ') + suffix;
        }
        return name;
    }

    TableDef table_;
};

// Every client table starts with the ClientName and carries the index `Name`;
// only `Clients` makes that index unique, which is what keeps names unique.
TableBuilder ClientTable(const QString& name) {
    TableBuilder builder(name);
    builder.Text(QStringLiteral("First Names"), kNameWidth)
        .Text(QStringLiteral("Last Name"), kNameWidth)
        .Index(QStringLiteral("Name"), {QStringLiteral("Last Name"), QStringLiteral("First Names")},
               name == QLatin1String("Clients"));
    return builder;
}

TableDef PersonalTable() {
    return ClientTable(QStringLiteral("Personal"))
        .Text(QStringLiteral("Full Name"), 40)
        .Texts(QStringLiteral("Address"), 6, 40)
        .Text(QStringLiteral("Date of Birth"), 10)
        .Text(QStringLiteral("Title"), 10)
        .Text(QStringLiteral("Called"), 35)
        .Text(QStringLiteral("Home Telephone"), 15)
        .Text(QStringLiteral("Work Telephone"), 15)
        .Text(QStringLiteral("Fax"), 15)
        .Text(QStringLiteral("Mobile"), 15)
        .Integer(QStringLiteral("Sex"))
        .Integer(QStringLiteral("Marital Status"))
        .Text(QStringLiteral("Spouse First"), kNameWidth)
        .Text(QStringLiteral("Spouse Last"), kNameWidth)
        .Text(QStringLiteral("Spouse DOB"), 10)
        .Texts(QStringLiteral("Child"), 1, 4, 40, QStringLiteral("Name"))
        .Texts(QStringLiteral("Child"), 1, 4, 8, QStringLiteral("DOB"))
        .YesNo(QStringLiteral("Blind"))
        .YesNos(QStringLiteral("Indicator"), 10)
        .Build();
}

TableDef EmploymentTable(int page) {
    return ClientTable(QStringLiteral("Employment %1").arg(page))
        .Text(QStringLiteral("Occupation"), 60)
        .Text(QStringLiteral("Employer"), 60)
        .Texts(QStringLiteral("Address"), 5, 60)
        .Text(QStringLiteral("Postcode"), 10)
        .Text(QStringLiteral("PAYE Reference"), 17)
        .Text(QStringLiteral("Start Date"), 8)
        .Text(QStringLiteral("Finish Date"), 8)
        .YesNo(QStringLiteral("Director"))
        .YesNo(QStringLiteral("Close"))
        .YesNo(QStringLiteral("Main Employment"))
        .Texts(QStringLiteral("Tax Year"), 8, 7)
        .Texts(QStringLiteral("NRE"), 8, 8)
        .Text(QStringLiteral("Email"), 40)
        .YesNos(QStringLiteral("Indicator"), 10)
        .Build();
}

TableDef BusinessTable(int page) {
    return ClientTable(QStringLiteral("Business %1").arg(page))
        .Text(QStringLiteral("Description"), 60)
        .Text(QStringLiteral("Business Name"), 60)
        .Texts(QStringLiteral("Address"), 5, 60)
        .Text(QStringLiteral("Postcode"), 10)
        .Text(QStringLiteral("Email"), 40)
        .Text(QStringLiteral("Commencement"), 8)
        .Text(QStringLiteral("Cessation"), 8)
        .Text(QStringLiteral("Year end day"), 2)
        .Text(QStringLiteral("Year end month"), 2)
        .Text(QStringLiteral("Telephone"), 15)
        .Text(QStringLiteral("Fax"), 15)
        .Text(QStringLiteral("Mobile"), 15)
        .Integer(QStringLiteral("Type"))
        .YesNo(QStringLiteral("Main Business"))
        .Texts(QStringLiteral("Partner"), 1, 6, kNameWidth, QStringLiteral("First"))
        .Texts(QStringLiteral("Partner"), 1, 6, kNameWidth, QStringLiteral("Last"))
        .Texts(QStringLiteral("Partner"), 1, 6, 10, QStringLiteral("Share"))
        .Text(QStringLiteral("Notes"), 255)
        .Texts(QStringLiteral("Tax Year"), 8, 7)
        .Texts(QStringLiteral("NRE"), 8, 8)
        .YesNos(QStringLiteral("Indicator"), 10)
        .Build();
}

TableDef AssetsTable() {
    return ClientTable(QStringLiteral("Assets"))
        .Texts(QStringLiteral("Asset"), 16, 19, 30)
        .Texts(QStringLiteral("Date"), 19, 8)
        .Texts(QStringLiteral("Value"), 19, 9)
        .Texts(QStringLiteral("Note"), 19, 40)
        .Text(QStringLiteral("Date 20"), 8)
        .Build();
}

// The ten detail lines of asset line `line` (16 to 19).
TableDef AssetDetailTable(int line) {
    return ClientTable(QStringLiteral("Asset %1").arg(line))
        .Texts(QStringLiteral("Asset"), 10, 30)
        .Texts(QStringLiteral("Date"), 10, 8)
        .Texts(QStringLiteral("Value"), 10, 9)
        .Texts(QStringLiteral("Note"), 10, 40)
        .Build();
}

TableDef ContributionsTable() {
    return ClientTable(QStringLiteral("Contributions"))
        .Texts(QStringLiteral("Provider"), kContributionLines, 30)
        .Texts(QStringLiteral("Contract"), kContributionLines, 15)
        .Texts(QStringLiteral("Type"), kContributionLines, 5)  // "PPC", "RAP" or "FSAVC"
        .Texts(QStringLiteral("SR"), kContributionLines, 1)
        .Texts(QStringLiteral("NG"), kContributionLines, 1)
        .Texts(QStringLiteral("Date"), kContributionLines, 8)
        .Texts(QStringLiteral("Amount"), kContributionLines, 8)
        .Build();
}

TableDef AdministrationTable() {
    return ClientTable(QStringLiteral("Administration"))
        .Text(QStringLiteral("Client Reference"), 30)
        .Text(QStringLiteral("NI Number"), 30)
        .Text(QStringLiteral("Tax Reference"), 30)
        .Text(QStringLiteral("File Identifier"), 65)
        .Text(QStringLiteral("Partner"), 40)
        .Text(QStringLiteral("Manager"), 40)
        .Text(QStringLiteral("Assistant"), 40)
        .Text(QStringLiteral("Inspector"), 40)
        .Text(QStringLiteral("Office Number"), 3)
        .Text(QStringLiteral("Office Name"), 30)
        .Text(QStringLiteral("Notes"), 255)
        .Build();
}

TableDef UserTable() {
    return ClientTable(QStringLiteral("User"))
        .Texts(QStringLiteral("Left"), 8, 40)
        .Texts(QStringLiteral("Right"), 8, 40)
        .Text(QStringLiteral("Note Left"), 255)
        .Text(QStringLiteral("Note Right"), 255)
        .Build();
}

TableDef DiaryTable(int page) {
    return ClientTable(QStringLiteral("Diary %1").arg(page))
        .Texts(QStringLiteral("Standard Date"), kDiaryEvents, 8)
        .Texts(QStringLiteral("Client Event"), kDiaryEvents, 40)
        .Texts(QStringLiteral("Client Date"), kDiaryEvents, 8)
        .Build();
}

TableDef CommonTable() {
    return TableBuilder(QStringLiteral("Common"))
        .Text(QStringLiteral("Name"), 20)
        .Text(QStringLiteral("Title"), 20)
        .Text(QStringLiteral("Tax Year"), 7)
        .Texts(QStringLiteral("Text"), 20, 40)
        .Index(QStringLiteral("Name"), {QStringLiteral("Name")}, true)
        .Build();
}

TableDef VersionTable() {
    // A number held as text, such as "2001.0".
    return TableBuilder(QStringLiteral("Version")).Text(QStringLiteral("Version"), 10).Build();
}

}  // namespace

QStringList ClientTableNames() {
    QStringList names{QStringLiteral("Clients"), QStringLiteral("Personal")};
    for (int page = 1; page <= 4; ++page) {
        names << QStringLiteral("Employment %1").arg(page);
    }
    for (int page = 1; page <= 4; ++page) {
        names << QStringLiteral("Business %1").arg(page);
    }
    names << QStringLiteral("Assets");
    for (int line = 16; line <= 19; ++line) {
        names << QStringLiteral("Asset %1").arg(line);
    }
    names << QStringLiteral("Contributions") << QStringLiteral("Administration")
          << QStringLiteral("User");
    for (int page = 1; page <= 4; ++page) {
        names << QStringLiteral("Diary %1").arg(page);
    }
    return names;
}

std::vector<dao::TableDef> ClientDatabaseTables() {
    std::vector<TableDef> tables;
    tables.push_back(ClientTable(QStringLiteral("Clients")).Build());
    tables.push_back(PersonalTable());
    for (int page = 1; page <= 4; ++page) {
        tables.push_back(EmploymentTable(page));
    }
    for (int page = 1; page <= 4; ++page) {
        tables.push_back(BusinessTable(page));
    }
    tables.push_back(AssetsTable());
    for (int line = 16; line <= 19; ++line) {
        tables.push_back(AssetDetailTable(line));
    }
    tables.push_back(ContributionsTable());
    tables.push_back(AdministrationTable());
    tables.push_back(UserTable());
    for (int page = 1; page <= 4; ++page) {
        tables.push_back(DiaryTable(page));
    }
    tables.push_back(CommonTable());
    return tables;
}

std::vector<dao::TableDef> OfficeDatabaseTables() {
    TableDef offices = TableBuilder(QStringLiteral("Tax Offices"))
                           .Text(QStringLiteral("Number"), 3)
                           .Text(QStringLiteral("Name"), 40)
                           .Texts(QStringLiteral("Address"), 5, 40)
                           .Text(QStringLiteral("Postcode"), 10)
                           .Text(QStringLiteral("Telephone"), 20)
                           .Text(QStringLiteral("Fax"), 20)
                           .Text(QStringLiteral("Office No"), 10)
                           .Text(QStringLiteral("Email"), 60)
                           .Index(QStringLiteral("Office Name"),
                                  {QStringLiteral("Name"), QStringLiteral("Number")})
                           .Index(QStringLiteral("District Code"), {QStringLiteral("Number")})
                           .Build();
    return {offices, VersionTable()};
}

std::vector<dao::TableDef> DividendDatabaseTables() {
    // Payments are kept as the screen's text, so that an empty box stays empty.
    TableDef dividends =
        TableBuilder(QStringLiteral("Dividends"))
            .Text(QStringLiteral("Company"), 40)
            .Text(QStringLiteral("Stock"), 40)
            .YesNo(QStringLiteral("FID"))
            .Texts(QStringLiteral("Number"), 4, 12)
            .Texts(QStringLiteral("Date"), 4, 10)
            .Texts(QStringLiteral("Dividend"), 4, 12)
            .Text(QStringLiteral("NewCompanyName"), 40)
            .Text(QStringLiteral("NewStock"), 40)
            .Integer(QStringLiteral("Issued"))
            .Index(QStringLiteral("Name"),
                   {QStringLiteral("Company"), QStringLiteral("Stock"), QStringLiteral("FID")},
                   true)
            .Build();
    return {dividends, VersionTable()};
}

const dao::TableDef* FindTable(const std::vector<dao::TableDef>& tables, const QString& name) {
    for (const TableDef& table : tables) {
        if (table.name == name) {
            return &table;
        }
    }
    return nullptr;
}

const dao::FieldDef* FindField(const dao::TableDef& table, const QString& name) {
    for (const FieldDef& field : table.fields) {
        if (field.name == name) {
            return &field;
        }
    }
    return nullptr;
}

int FieldWidth(const std::vector<dao::TableDef>& tables, const QString& table,
               const QString& field) {
    const dao::TableDef* found = FindTable(tables, table);
    const dao::FieldDef* def = found ? FindField(*found, field) : nullptr;
    return def && def->type == dao::dbText ? def->size : 0;
}

int ClientFieldWidth(const QString& table, const QString& field) {
    static const std::vector<dao::TableDef> tables = ClientDatabaseTables();
    return FieldWidth(tables, table, field);
}

}  // namespace quillon
