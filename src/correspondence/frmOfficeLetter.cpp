#include "correspondence/frmOfficeLetter.h"

#include "correspondence/letter_headings.h"
#include "correspondence/list_entries.h"
#include "platform/widgets_gui.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QRadioButton>

namespace quillon {

namespace {

const LetterTexts kTexts{"frmOfficeLetter",
                         "Tax Office Letter",
                         "lstReceiver",
                         "cm3OSeek",
                         "No name beginning with ",
                         "Tax Office Letter",
                         2};
constexpr int kShortestEntry = 4;

}  // namespace

frmOfficeLetter::frmOfficeLetter(QWidget* parent) : LetterScreen(kTexts, parent) {
    lstReceiver = List();
    auto* frame = Named<QGroupBox>(QStringLiteral("fraList"), tr("List"), this);
    op3Clients = Named<QRadioButton>(QStringLiteral("op3Clients"), tr("Clients"), frame);
    op3Offices = Named<QRadioButton>(QStringLiteral("op3Offices"), tr("Tax Offices"), frame);
    auto* row = new QHBoxLayout(frame);
    row->addWidget(op3Clients);
    row->addWidget(op3Offices);
    ChoicesArea()->addWidget(frame);
    op3Offices->setChecked(true);
    connect(op3Clients, &QRadioButton::clicked, this, &frmOfficeLetter::BuildClientList);
    connect(op3Offices, &QRadioButton::clicked, this, &frmOfficeLetter::BuildOfficeList);
    BuildOfficeList();
}

void frmOfficeLetter::BuildClientList() {
    txtHeading->clear();
    FillList(QStringLiteral("BuildClientList"), "Client Letter",
             [] { return ClientEntries(QStringLiteral("Administration")); });
}

// The office list's failures have always borne the client letter's title.
void frmOfficeLetter::BuildOfficeList() {
    txtHeading->clear();
    FillList(QStringLiteral("BuildOfficeList"), "Client Letter", OfficeEntries);
}

void frmOfficeLetter::lstReceiver_Click() {
    const QListWidgetItem* item = lstReceiver->currentItem();
    if (item == nullptr) {
        return;
    }
    try {
        WaitPointer wait;
        std::optional<QString> heading;
        if (op3Offices->isChecked()) {
            const OfficeKey office = OfficeOfEntry(item->text());
            heading = ReadOfficeHeading(office.name, office.number);
        } else if (item->text().size() >= kShortestEntry) {
            heading = ReadClientOfficeHeading(ClientOfEntry(item->text()));
        }
        if (heading) {
            ShowHeading(*heading);
        }
    } catch (const std::exception& error) {
        Report(QStringLiteral("lstReceiver_Click"), error, "Tax Office Letter");
    }
}

}  // namespace quillon
