#include "correspondence/frmClientLetter.h"

#include "correspondence/address_choice_gui.h"
#include "correspondence/correspondence_state.h"
#include "correspondence/letter_headings.h"
#include "correspondence/list_entries.h"
#include "data/data_access.h"
#include "platform/widgets_gui.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QRadioButton>

namespace quillon {

namespace {

const LetterTexts kTexts{"frmClientLetter",
                         "Client Letter",
                         "lstClients",
                         "cm3Seek",
                         "No client name beginning with ",
                         "Client Letter",
                         1};
// An entry shorter than this is no client's.
constexpr int kShortestEntry = 4;

}  // namespace

frmClientLetter::frmClientLetter(QWidget* parent) : LetterScreen(kTexts, parent) {
    lstClients = List();
    ChoicesArea()->addWidget(MakeAddressChoice(this, AddressForLetter));
    BuildClientList();
}

void frmClientLetter::BuildClientList() {
    FillList(QStringLiteral("BuildClientList"), "Client Letter",
             [] { return ClientEntries(QStringLiteral("Personal")); });
}

void frmClientLetter::lstClients_Click() {
    const QListWidgetItem* item = lstClients->currentItem();
    if (item == nullptr || item->text().size() < kShortestEntry) {
        return;
    }
    try {
        WaitPointer wait;
        if (const auto heading = ReadClientHeading(ClientOfEntry(item->text()), AddressForLetter)) {
            ShowHeading(*heading);
        }
    } catch (const std::exception& error) {
        Report(QStringLiteral("lstClients_Click"), error, "Client Letter");
    }
}

}  // namespace quillon
