#include "reference/reference_updates.h"

#include "data/data_access.h"
#include "platform/files.h"
#include "platform/services.h"
#include "platform/wait_pointer.h"
#include "reference/reference_files.h"
#include "shell/variables.h"

#include <exception>
#include <optional>

namespace quillon {

namespace {

const QString kModule = QStringLiteral("DataAccess");

// What the question and the outcome say of one database.
struct UpdateTexts {
    const char* title;
    const char* available;
    const char* modified;
    const char* updated;
    const char* inUse;
};

const UpdateTexts kOfficeTexts{
    "Update Tax Offices Database",
    "An updated version of the Tax Offices Database is available.",
    "If you have modified the existing version of the Tax Offices Database",
    "The Tax Offices Database has been updated",
    "The Tax Offices Database is in use by another user. Nothing has been changed.",
};

const UpdateTexts kDividendTexts{
    "Update Dividends Database",
    "An updated version of the Dividends Database is available.",
    "If you have modified the existing version of the Dividends Database",
    "The Dividends Database has been updated",
    "The Dividends Database is in use by another user. Nothing has been changed.",
};

QString Text(const char* text) {
    return QString::fromLatin1(text);
}

bool UserWantsUpdate(const UpdateTexts& texts) {
    const QString question =
        Text(texts.available) + QStringLiteral("\n\n") + Text(texts.modified) +
        QStringLiteral(" you may want to retain that version.") + QStringLiteral("\n") +
        QStringLiteral("Otherwise, you should update to the new version.") +
        QStringLiteral("\n\n") + QStringLiteral("Do you want to update to the new version?");
    return MsgBox(question, vbYesNo | vbQuestion, Text(texts.title)) == vbYes;
}

void TellOutcome(const UpdateTexts& texts, ReferenceChange outcome) {
    if (outcome == ReferenceChange::InUse) {
        MsgBox(Text(texts.inUse) + QStringLiteral("\n\n") +
                   QStringLiteral("Make sure that nobody else is using it, then try again."),
               vbExclamation, Text(texts.title));
        return;
    }
    MsgBox(Text(texts.updated), vbInformation, Text(texts.title));
}

}  // namespace

void UpdateOfficeDatabase() {
    if (VersionNumber(ReadOfficeVersion()) >= VersionNumber(ReadDefaultOfficeVersion())) {
        return;
    }
    if (!UserWantsUpdate(kOfficeTexts)) {
        return;
    }
    std::optional<ReferenceChange> outcome;
    ErrorDetails failure;
    try {
        WaitPointer wait;
        outcome = ReplaceDatabaseFile(DefaultOfficePath(), OfficeDatabasePath());
    } catch (const std::exception& error) {
        failure = DetailsOf(error);
    }
    if (!outcome) {
        MsgBox(QStringLiteral("Error ") + QString::number(failure.number) + QStringLiteral("\n\n") +
                   QStringLiteral("The Tax Offices Database could not be updated."),
               vbExclamation, Text(kOfficeTexts.title));
        return;
    }
    TellOutcome(kOfficeTexts, *outcome);
}

void CheckDividendUpdate() {
    if (Dir(DividendDatabasePath(kLastDividendYear)).isEmpty()) {
        return;
    }
    bool newer = false;
    try {
        newer = VersionNumber(ReadDividendVersion(kLastDividendYear)) <
                VersionNumber(ReadDefaultDividendVersion());
    } catch (const std::exception& error) {
        MsgBox(ErrorReportText(kModule, QStringLiteral("CheckDividendUpdate"), DetailsOf(error)),
               vbExclamation, QStringLiteral("Dividends"));
        return;
    }
    if (newer && UserWantsUpdate(kDividendTexts)) {
        UpdateDividendDatabase();
    }
}

void UpdateDividendDatabase() {
    std::optional<ReferenceChange> outcome;
    ErrorDetails failure;
    try {
        WaitPointer wait;
        outcome = MergeDividendFile(DefaultDividendPath(), DividendDatabasePath(kLastDividendYear));
    } catch (const std::exception& error) {
        failure = DetailsOf(error);
    }
    // Told only once both files are closed and the transaction is over.
    if (!outcome) {
        MsgBox(ErrorReportText(kModule, QStringLiteral("UpdateDividendDatabase"), failure),
               vbExclamation, QStringLiteral("Dividends"));
        return;
    }
    TellOutcome(kDividendTexts, *outcome);
}

}  // namespace quillon
