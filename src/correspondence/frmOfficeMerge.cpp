#include "correspondence/frmOfficeMerge.h"

#include "correspondence/list_entries.h"
#include "data/client_rows.h"

namespace quillon {

namespace {

const PickerTexts kTexts{
    "frmOfficeMerge",
    "Tax Office Merge",
    "lstOffices",
    " offices",
    "No name beginning with ",
    "Tax Office Merge",
    "Help for Office Merge",
    // clang-format off
    PickerHelp(true, QStringLiteral("When all required offices have been selected click on the Merge button to create the file.")),
    // clang-format on
    "Tax Offices Merge",
};

}  // namespace

QStringList OfficeEntries() {
    dao::Database db = OpenOfficeDatabase();
    dao::Recordset offices = db.OpenRecordset(QStringLiteral("Tax Offices"), dao::dbOpenTable);
    offices.SetIndex(QStringLiteral("Office Name"));
    QStringList entries;
    for (offices.MoveFirst(); !offices.IsEOF(); offices.MoveNext()) {
        entries << OfficeEntry(NullToEmpty(offices.Fields(QStringLiteral("Name"))),
                               NullToEmpty(offices.Fields(QStringLiteral("Number"))));
    }
    return entries;
}

frmOfficeMerge::frmOfficeMerge(QWidget* parent) : MergePicker(kTexts, "Tax Offices Merge", parent) {
    lstOffices = List();
    Form_Load();
}

QStringList frmOfficeMerge::LoadEntries() {
    return OfficeEntries();
}

void frmOfficeMerge::WriteMerge(const QString& path, const QStringList& entries,
                                const MergeProgress& progress) {
    WriteOfficeMerge(path, entries, CurrentMergeOptions(), progress);
}

}  // namespace quillon
