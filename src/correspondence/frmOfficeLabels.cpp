#include "correspondence/frmOfficeLabels.h"

#include "correspondence/list_entries.h"

namespace quillon {

namespace {

// The letter buttons' message has always been the client screen's.
// clang-format off
const PickerTexts kTexts{
    "frmOfficeLabels",
    "Tax Office Labels",
    "lstOffices",
    " offices",
    "No client name beginning with ",
    "Client Labels",
    "Help for Tax Office Labels",
    PickerHelp(true, QStringLiteral("When all required offices have been selected click on the Print button to print the labels.")),
    "Office Labels",
};
// clang-format on

}  // namespace

frmOfficeLabels::frmOfficeLabels(QWidget* parent)
    : LabelPicker(kTexts, "PRINTING TAX OFFICE LABELS", "Office Labels", parent) {
    lstOffices = List();
    Form_Load();
}

QStringList frmOfficeLabels::LoadEntries() {
    return OfficeEntries();
}

void frmOfficeLabels::PrintLabels(const QStringList& entries, int copies, int row, int column) {
    LabelSheet sheet = OfficeLabelSheet(row, column);
    PrintOfficeLabelsOf(entries, copies, sheet, ShowRecordProgress);
}

}  // namespace quillon
