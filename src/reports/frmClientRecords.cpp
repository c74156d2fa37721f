#include "reports/frmClientRecords.h"

#include "correspondence/list_entries.h"
#include "platform/widgets_gui.h"
#include "reports/client_records.h"
#include "reports/report_state.h"
#include "shell/frmQuillon.h"
#include "shell/variables.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QGroupBox>

#include <exception>

namespace quillon {

namespace {

const char* const kTitle = "Client Records";

// clang-format off
const PickerTexts kTexts{
    "frmClientRecords",
    kTitle,
    "lstClients",
    " clients",
    "No client name beginning with ",
    "Client Labels",
    "Help for Client Records",
    PickerHelp(false, QStringLiteral("Use the check boxes in the 'Print options' frame to select the sections of the client records to be printed.")) +
        QStringList{QStringLiteral("When all required clients have been selected click on the Print button to print the client records.")},
    kTitle,
};
// clang-format on

// A section's tick, its caption, and the setting its click writes.
struct SectionTick {
    const char* name;
    const char* caption;  // nullptr: the user-defined section's title
    qint16* setting;
};
const SectionTick kTicks[] = {
    {"chkPersonal", "Personal", &ClientRecordPersonal},
    {"chkAdministration", "Administration", &ClientRecordAdministration},
    {"chkEmployment", "Employment", &ClientRecordEmployment},
    {"chkBusiness", "Business", &ClientRecordBusiness},
    {"chkAssets", "Assets", &ClientRecordAssets},
    {"chkContributions", "Pension Contributions", &ClientRecordContributions},
    {"chkUser", nullptr, &ClientRecordUser},
    {"chkDiary", "Diary", &ClientRecordDiary},
};

QString UserSectionCaption() {
    try {
        return RecordUserTitle();
    } catch (const std::exception&) {
        // The list's load tells what is wrong with the database.
        return UserTitle;
    }
}

void ShowClientProgress(const QString& entry) {
    SetProgressText(QStringLiteral("PROCESSING DATABASE RECORD ") + entry);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace

frmClientRecords::frmClientRecords(QWidget* parent) : NamePicker(kTexts, parent) {
    lstClients = List();
    auto* frame = Named<QGroupBox>(QStringLiteral("fraPrint"), tr("Print options"), this);
    auto* grid = new QGridLayout(frame);
    int place = 0;
    for (const SectionTick& tick : kTicks) {
        const QString caption =
            tick.caption ? QString::fromLatin1(tick.caption) : UserSectionCaption();
        auto* box = Named<QCheckBox>(QLatin1String(tick.name), caption, frame);
        box->setChecked(*tick.setting != 0);
        qint16* setting = tick.setting;
        connect(box, &QCheckBox::clicked, this,
                [setting](bool checked) { *setting = checked ? 1 : 0; });
        grid->addWidget(box, place / 4, place % 4);
        ++place;
    }
    OptionsArea()->addWidget(frame);
    cm3Print = Named<QPushButton>(QStringLiteral("cm3Print"), tr("&Print"), this);
    AddCommand(cm3Print);
    connect(cm3Print, &QPushButton::clicked, this, &frmClientRecords::cm3Print_Click);
    Form_Load();
}

QCheckBox* frmClientRecords::Tick(const QString& name) const {
    return Control<QCheckBox>(this, name);
}

QStringList frmClientRecords::LoadEntries() {
    return ClientEntries();
}

void frmClientRecords::cm3Print_Click() {
    ErrorDetails failure;
    bool printed = false;
    {
        const WaitPointer wait;
        SetProgressText(QStringLiteral("PRINTING CLIENT RECORDS"));
        printed = PrintClientRecords(SelectedEntries(), TickedRecordSections(), failure,
                                     ShowClientProgress);
        SetProgressText(QString());
    }
    if (!printed) {
        ReportFailure(QStringLiteral("cm3Print_Click"), failure, kTitle);
    }
}

}  // namespace quillon
