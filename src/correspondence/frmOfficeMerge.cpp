#include "correspondence/frmOfficeMerge.h"

#include "correspondence/list_entries.h"

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
