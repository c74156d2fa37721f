#include "maintenance/version1_transfer.h"

#include "data/database_schema.h"
#include "platform/code_page.h"
#include "platform/dao_schema.h"
#include "platform/files.h"

#include <QDir>
#include <QFile>

#include <optional>

namespace quillon {

namespace {

const QString kFirstNames = QStringLiteral("First Names");
const QString kLastName = QStringLiteral("Last Name");
const QString kListFilter = QStringLiteral("Filter");

// Target field, source field.
using FieldPairs = std::vector<std::pair<QString, QString>>;

FieldPairs Same(std::initializer_list<const char*> names) {
    FieldPairs pairs;
    for (const char* name : names) {
        pairs.emplace_back(QLatin1String(name), QLatin1String(name));
    }
    return pairs;
}

// `to n` for n from `toFirst` from `from m` for m from `fromFirst`, `count` of
// them; the old diary's names had no blank before the number.
FieldPairs Family(const char* to, int toFirst, const char* from, int fromFirst, int count,
                  bool blank = true) {
    FieldPairs pairs;
    const QString gap = blank ? QStringLiteral(" ") : QString();
    for (int i = 0; i < count; ++i) {
        pairs.emplace_back(QStringLiteral("%1 %2").arg(QLatin1String(to)).arg(toFirst + i),
                           QLatin1String(from) + gap + QString::number(fromFirst + i));
    }
    return pairs;
}

FieldPairs Join(std::initializer_list<FieldPairs> parts) {
    FieldPairs all;
    for (const FieldPairs& part : parts) {
        all.insert(all.end(), part.begin(), part.end());
    }
    return all;
}

struct TransferStep {
    QString target;
    QString source;  // empty: the names alone
    FieldPairs fields;
};

// The contributions' first "SR" field bore no number.
FieldPairs SrIntoNg() {
    FieldPairs pairs{{QStringLiteral("NG 1"), QStringLiteral("SR")}};
    for (int n = 1; n <= 19; ++n) {
        pairs.emplace_back(QStringLiteral("NG %1").arg(n + 1), QStringLiteral("SR %1").arg(n));
    }
    return pairs;
}

const std::vector<TransferStep>& TransferMap() {
    static const std::vector<TransferStep> map{
        {"Clients", "Clients", {}},
        {"Personal", "Personal",
         Join({Same({"Address 1", "Address 2", "Address 3", "Address 4", "Address 5", "Address 6",
                     "Date of Birth", "Title", "Called", "Home Telephone", "Work Telephone", "Fax",
                     "Sex", "Marital Status", "Spouse First", "Spouse Last", "Blind"}),
               Family("Indicator", 2, "Detail", 0, 8)})},
        {"Employment 1", "Employment",
         Join({Same({"Occupation", "Employer", "Address 1", "Address 2", "Address 3"}),
               Family("Tax Year", 1, "Tax Year", 1, 8), Family("NRE", 1, "Earnings", 1, 8),
               Family("Indicator", 1, "Benefit", 0, 10)})},
        {"Employment 2", "Employment", Family("Indicator", 1, "Benefit", 10, 10)},
        {"Employment 3", "Employment", Family("Indicator", 1, "Benefit", 20, 4)},
        {"Employment 4", {}, {}},
        {"Business 1", "Business",
         Join({Same({"Description", "Business Name", "Address 1", "Address 2", "Address 3",
                     "Telephone", "Fax", "Mobile", "Type", "Notes"}),
               Family("Tax Year", 1, "Tax Year", 1, 8), Family("NRE", 1, "Earnings", 1, 8),
               Family("Indicator", 1, "Account", 0, 10)})},
        {"Business 2", "Business", Family("Indicator", 1, "Account", 10, 6)},
        {"Business 3", {}, {}},
        {"Business 4", {}, {}},
        {"Asset 16", {}, {}},
        {"Asset 17", {}, {}},
        {"Asset 18", {}, {}},
        {"Asset 19", {}, {}},
        {"Assets", "Assets",
         Join({Family("Asset", 16, "Asset", 15, 4), Family("Date", 1, "Date", 0, 20),
               Family("Value", 1, "Value", 0, 19), Family("Note", 1, "Note", 0, 19)})},
        {"Contributions", "Contributions",
         Join({Family("Provider", 1, "Provider", 0, 20), Family("Contract", 1, "Contract", 0, 20),
               Family("Type", 1, "Type", 0, 20), Family("Date", 1, "Date", 0, 20),
               Family("Amount", 1, "Amount", 0, 20), SrIntoNg()})},
        {"Administration", "Administration",
         Join({Same({"Client Reference", "NI Number", "Tax Reference", "Office Number", "Partner",
                     "Manager", "Inspector", "Notes"}),
               FieldPairs{{QStringLiteral("Assistant"), QStringLiteral("Clerk")}}})},
        {"Diary 1", "Diary",
         Join({Family("Standard Date", 1, "GDate", 0, 20, false),
               Family("Client Event", 1, "CEvent", 0, 20, false),
               Family("Client Date", 1, "CDate", 0, 20, false)})},
        {"Diary 2", {}, {}},
        {"Diary 3", {}, {}},
        {"Diary 4", {}, {}},
        {"User", {}, {}},
    };
    return map;
}

// The description files and the `Common` rows their lines fill, in turn.
struct DescriptionFile {
    const char* file;
    std::vector<std::tuple<const char*, int, int>> rows;  // row, first Text, last Text
};
const DescriptionFile kDescriptionFiles[] = {
    {"ASSETS.TXT", {{"Assets", 1, 15}}},
    {"ACCOUNTS.TXT", {{"Business 1", 1, 10}, {"Business 2", 1, 6}}},
    {"EVENTS.TXT", {{"Diary 1", 1, 20}}},
    {"BENEFITS.TXT", {{"Employment 1", 1, 10}, {"Employment 2", 1, 10}, {"Employment 3", 1, 4}}},
    {"PERSONAL.TXT", {{"Personal", 2, 9}}},
};

void RefillDescriptions(dao::Database& target, const QString& oldFolder) {
    dao::Recordset common = target.OpenRecordset(QStringLiteral("Common"));
    common.SetIndex(QStringLiteral("Name"));
    for (const DescriptionFile& description : kDescriptionFiles) {
        QFile file(PathOnDisk(QDir(oldFolder).filePath(QLatin1String(description.file))));
        if (!file.open(QIODevice::ReadOnly)) {
            throw dao::DaoError(kErrFileNotFound,
                                QStringLiteral("File not found: %1")
                                    .arg(QDir::toNativeSeparators(file.fileName())));
        }
        QStringList lines = FromCodePage(file.readAll()).split(QStringLiteral("\n"));
        for (const auto& [row, first, last] : description.rows) {
            common.Seek(QStringLiteral("="), {QLatin1String(row)});
            if (common.NoMatch()) {
                continue;
            }
            common.Edit();
            for (int n = first; n <= last; ++n) {
                const QString line = lines.isEmpty() ? QString() : lines.takeFirst();
                common.Fields(QStringLiteral("Text %1").arg(n)).SetValue(line.trimmed());
            }
            common.Update();
        }
    }
}

// Copies the clients of one table; false when the user cancelled.
bool CopyTable(dao::Database& from, dao::Database& to, const TransferStep& step,
               const TransferProgress& progress) {
    dao::Recordset target = to.OpenRecordset(step.target);
    const QString sourceName = step.source.isEmpty() ? QStringLiteral("Clients") : step.source;
    dao::Recordset source = from.OpenRecordset(sourceName);
    const int rows = int(source.RecordCount());
    int row = 0;
    for (source.MoveFirst(); !source.IsEOF(); source.MoveNext()) {
        const QVariant first = source.Fields(kFirstNames).Value();
        if (first.toString() == kListFilter) {
            continue;
        }
        if (progress && !progress(step.target, ++row, rows)) {
            return false;
        }
        target.AddNew();
        target.Fields(kFirstNames).SetValue(first);
        target.Fields(kLastName).SetValue(source.Fields(kLastName).Value());
        for (const auto& [to, fromField] : step.fields) {
            target.Fields(to).SetValue(source.Fields(fromField).Value());
        }
        if (step.target == QLatin1String("Administration")) {
            target.Fields(QStringLiteral("File Identifier"))
                .SetValue(source.Fields(kLastName).Value().toString() + QStringLiteral(", ") +
                          first.toString());
        }
        target.Update();
    }
    return true;
}

const dao::FieldDef* TargetField(const QString& table, const QString& field) {
    static const std::vector<dao::TableDef> tables = ClientDatabaseTables();
    const dao::TableDef* def = FindTable(tables, table);
    return def ? FindField(*def, field) : nullptr;
}

}  // namespace

TransferFiles TransferFilesFor(const QString& slot) {
    const QString separator = QDir::separator();
    const QString withSeparator = QDir::toNativeSeparators(slot) + separator;
    const QString old = withSeparator.left(withSeparator.size() - 9) + QStringLiteral("QUILLON");
    const auto in = [&separator](const QString& folder, const char* name) {
        return folder + separator + QLatin1String(name);
    };
    const QString folder = QDir::toNativeSeparators(slot);
    return {old,
            in(old, "QUILL001.MDB"),
            in(folder, "TEMPSRC.MDB"),
            in(folder, "QUILL020.MDB"),
            in(folder, "TEMPDST.MDB"),
            in(folder, "QUILL020.BAK")};
}

std::vector<dao::TableDef> Version1Tables() {
    std::vector<dao::TableDef> tables;
    for (const TransferStep& step : TransferMap()) {
        if (step.source.isEmpty()) {
            continue;
        }
        dao::TableDef* table = nullptr;
        for (dao::TableDef& existing : tables) {
            table = existing.name == step.source ? &existing : table;
        }
        if (table == nullptr) {
            tables.push_back({step.source,
                              {{kFirstNames, dao::dbText, 30}, {kLastName, dao::dbText, 30}},
                              {{QStringLiteral("Name"), {kLastName, kFirstNames}, false}}});
            table = &tables.back();
        }
        for (const auto& [to, from] : step.fields) {
            dao::FieldDef field = *TargetField(step.target, to);
            field.name = from;
            if (!FindField(*table, from)) {
                table->fields.push_back(field);
            }
        }
    }
    return tables;
}

// Each synthetic client fills a few fields of each old table, enough to see
// them arrive in their new places; the list filter's row is there too.
void MakeVersion1Database(const QString& path, int clients) {
    dao::CreateDatabase(path, Version1Tables());
    dao::Database db = dao::OpenDatabase(path);
    db.BeginTrans();
    for (const dao::TableDef& table : Version1Tables()) {
        dao::Recordset rows = db.OpenRecordset(table.name);
        for (int n = 0; n <= clients; ++n) {
            rows.AddNew();
            rows.Fields(kFirstNames)
                .SetValue(n == 0 ? kListFilter : QStringLiteral("First %1").arg(n));
            rows.Fields(kLastName).SetValue(
                QStringLiteral("Client %1").arg(n, 5, 10, QLatin1Char('0')));
            for (size_t i = 2; i < table.fields.size(); ++i) {
                const dao::FieldDef& field = table.fields[i];
                rows.Fields(field.name)
                    .SetValue(
                        field.type == dao::dbText
                            ? QVariant(
                                  QStringLiteral("%1 %2").arg(n).arg(field.name).left(field.size))
                            : QVariant(n % 2 + 1));
            }
            rows.Update();
        }
    }
    db.CommitTrans();
}

TransferEnd TransferClients(const QString& source, const QString& target, const QString& oldFolder,
                            const TransferProgress& progress) {
    dao::Database from = dao::OpenDatabase(source, false, true);
    dao::Database to = dao::OpenDatabase(target);
    // The working copy is this transfer's alone: one transaction spares a
    // wait for the disk at every row, and a cancel simply drops it.
    to.BeginTrans();
    for (const TransferStep& step : TransferMap()) {
        if (!CopyTable(from, to, step, progress)) {
            to.Rollback();
            return TransferEnd::Cancelled;
        }
    }
    RefillDescriptions(to, oldFolder);
    to.CommitTrans();
    return TransferEnd::Done;
}

}  // namespace quillon
