#include "correspondence/frmClientMerge.h"

#include "correspondence/correspondence_state.h"
#include "correspondence/list_entries.h"

namespace quillon {

namespace {

const PickerTexts kTexts{
    "frmClientMerge",
    "Client Merge",
    "lstClients",
    " clients",
    "No client name beginning with ",
    "Client Merge",
    "Help for Client Merge",
    // clang-format off
    PickerHelp(false, QStringLiteral("When all required clients have been selected click on the Merge button to create the file.")),
    // clang-format on
    "Client Merge",
};

}  // namespace

// The title of a failed merge has always been the letter screen's.
frmClientMerge::frmClientMerge(QWidget* parent) : MergePicker(kTexts, "Client Letter", parent) {
    lstClients = List();
    AddAddressChoice(AddressForMerge);
    Form_Load();
}

QStringList frmClientMerge::LoadEntries() {
    return ClientEntries();
}

void frmClientMerge::WriteMerge(const QString& path, const QStringList& entries,
                                const MergeProgress& progress) {
    WriteClientMerge(path, entries, ClientMergeLayout::PickedClients, CurrentMergeOptions(),
                     progress);
}

}  // namespace quillon
