#include "correspondence/frmClientLabels.h"

#include "correspondence/correspondence_state.h"
#include "correspondence/list_entries.h"

namespace quillon {

namespace {

// clang-format off
const PickerTexts kTexts{
    "frmClientLabels",
    "Client Labels",
    "lstClients",
    " clients",
    "No client name beginning with ",
    "Client Labels",
    "Help for Client Labels",
    PickerHelp(false, QStringLiteral("When all required clients have been selected click on the Print button to print the labels.")),
    "Client Labels",
};
// clang-format on

}  // namespace

frmClientLabels::frmClientLabels(QWidget* parent)
    : LabelPicker(kTexts, "PRINTING CLIENT LABELS", "Client Labels", parent) {
    lstClients = List();
    AddAddressChoice(AddressForLabels);
    Form_Load();
}

QStringList frmClientLabels::LoadEntries() {
    return ClientEntries();
}

void frmClientLabels::PrintLabels(const QStringList& entries, int copies, int row, int column) {
    LabelSheet sheet = ClientLabelSheet(row, column);
    PrintClientLabelsOf(entries, copies, AddressForLabels, sheet, ShowRecordProgress);
}

}  // namespace quillon
