#include "shell/commands.h"

namespace quillon {

namespace {

using O = Opening;
using N = Needs;

// In the order in which their forms are unloaded; the rest after.
const CommandRow kCommands[] = {
    {"cm3Clients", "frmClients", O::Own, N::ClientDatabase, true},
    {"mnuClients", "frmClients", O::Own, N::ClientDatabase, true},
    {"cm3ClientLabels", "frmClientLabels", O::Show, N::ClientDatabase, true},
    {"mnuLabelsClients", "frmClientLabels", O::Show, N::ClientDatabase, true},
    {"cm3ClientLetter", "frmClientLetter", O::Show, N::ClientDatabase, true},
    {"mnuLetterClient", "frmClientLetter", O::Show, N::ClientDatabase, true},
    {"cm3ClientMerge", "frmClientMerge", O::Show, N::ClientDatabase, true},
    {"mnuMergeClients", "frmClientMerge", O::Show, N::ClientDatabase, true},
    {"cm3Personal", "frmPersonal", O::Section, N::ClientDatabase, true},
    {"mnuPersonal", "frmPersonal", O::Section, N::ClientDatabase, true},
    {"cm3Employment", "frmEmployment", O::Section, N::ClientDatabase, true},
    {"mnuEmployment", "frmEmployment", O::Section, N::ClientDatabase, true},
    {"cm3Business", "frmBusiness", O::Section, N::ClientDatabase, true},
    {"mnuBusiness", "frmBusiness", O::Section, N::ClientDatabase, true},
    {"cm3Assets", "frmAssets", O::Section, N::ClientDatabase, true},
    {"mnuAssets", "frmAssets", O::Section, N::ClientDatabase, true},
    {"cm3Contributions", "frmContributions", O::Section, N::ClientDatabase, true},
    {"mnuContributions", "frmContributions", O::Section, N::ClientDatabase, true},
    {"cm3Administration", "frmAdministration", O::Section, N::ClientDatabase, true},
    {"mnuAdministration", "frmAdministration", O::Section, N::ClientDatabase, true},
    {"cm3User", "frmUser", O::Section, N::ClientDatabase, true},
    {"mnuUser", "frmUser", O::Section, N::ClientDatabase, true},
    {"cm3Diary", "frmDiary", O::Section, N::ClientDatabase, true},
    {"mnuDiary", "frmDiary", O::Section, N::ClientDatabase, true},
    {"cm3Offices", "frmOffices", O::Show, N::OfficeDatabase, true},
    {"mnuOffices", "frmOffices", O::Show, N::OfficeDatabase, true},
    {"cm3OfficeLabels", "frmOfficeLabels", O::Show, N::OfficeDatabase, true},
    {"mnuLabelsOffices", "frmOfficeLabels", O::Show, N::OfficeDatabase, true},
    {"cm3OfficeLetter", "frmOfficeLetter", O::Show, N::OfficeDatabase, true},
    {"mnuLetterOffice", "frmOfficeLetter", O::Show, N::OfficeDatabase, true},
    {"cm3OfficeMerge", "frmOfficeMerge", O::Show, N::OfficeDatabase, true},
    {"mnuMergeOffices", "frmOfficeMerge", O::Show, N::OfficeDatabase, true},
    {"cm3Dividends", "frmDividends", O::Show, N::AnyDividendDatabase, true},
    {"mnuDividends", nullptr, O::Nothing, N::AnyDividendDatabase, false},
    {"mnuDiv1", "frmDividends", O::Own, N::Dividends2012, true},
    {"mnuDiv2", "frmDividends", O::Own, N::Dividends2013, true},
    {"mnuDiv3", "frmDividends", O::Own, N::Dividends2014, true},
    {"mnuDiv4", "frmDividends", O::Own, N::Dividends2015, true},
    {"cm3ClientRecord", "frmClientRecords", O::Show, N::Nothing, false},
    {"mnuPrintClientRecords", "frmClientRecords", O::Show, N::Nothing, false},
    {"cm3Form64_8", "frmForm64_8", O::Modal, N::Nothing, false},
    {"mnuForm64_8", "frmForm64_8", O::Modal, N::Nothing, false},
    {"mnuManager", "frmFolderManager", O::Modal, N::Nothing, false},
    {"mnuImport", "frmImportWarning", O::Modal, N::Nothing, false},
    {"mnuTransfer", nullptr, O::Nothing, N::Never, false},
    {"mnuCompact", "frmCompact", O::Modal, N::ClientDatabase, false},
    {"mnuRepair", "frmRepair", O::Modal, N::ClientDatabase, false},
    {"mnuBackup", "frmBackup", O::Modal, N::ClientDatabase, false},
    {"mnuSettingsReports", "frmVSPrintSettings", O::Modal, N::Nothing, false},
    {"mnuHelpAbout", "frmAbout", O::Modal, N::Nothing, false},
    {"mnuToolbar", nullptr, O::Own, N::Nothing, false},
    {"mnuStatusBar", nullptr, O::Own, N::Nothing, false},
    {"mnuTooltips", nullptr, O::Own, N::Nothing, false},
    {"mnuExit", nullptr, O::Own, N::Nothing, false},
    {"mnuHelpContents", nullptr, O::Own, N::Nothing, false},
    {"mnuHelpSearch", nullptr, O::Own, N::Nothing, false},
};

}  // namespace

std::span<const CommandRow> Commands() {
    return kCommands;
}

const CommandRow* FindCommand(const QString& command) {
    for (const CommandRow& row : kCommands) {
        if (command == QLatin1String(row.command)) {
            return &row;
        }
    }
    return nullptr;
}

const QStringList& UnloadOrder() {
    static const QStringList order = [] {
        QStringList forms;
        for (const CommandRow& row : kCommands) {
            const QString form = QString::fromLatin1(row.form);
            if (row.unloadedFirst && !forms.contains(form)) {
                forms << form;
            }
        }
        return forms;
    }();
    return order;
}

}  // namespace quillon
