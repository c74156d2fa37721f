// Part of basDataAccess: which databases a slot holds.
#include "shell/database_check.h"

#include "data/data_access.h"
#include "data/delivered_databases.h"
#include "platform/dao.h"
#include "platform/files.h"
#include "platform/services.h"
#include "reference/reference_files.h"
#include "shell/program_folder.h"
#include "shell/variables.h"

namespace quillon {

namespace {

const QString kClientDatabase = QStringLiteral("QUILL020.MDB");
const QString kFirstCheckCopy = QStringLiteral("BACKUP15.MDB");
const QString kOfficeDatabase = QStringLiteral("TAXOFF2.MDB");
const QString kDeliveredOffices = QString::fromLatin1(kDefaultOfficeDatabaseFile);
const QString kDeliveredDividends = QString::fromLatin1(kDefaultDividendDatabaseFile);

QString slotFolder() {
    return DatabaseFolder.at(SelectedFile);
}

// Names are matched in any case, as the folders were first kept on such disks.
bool fileStands(const QString& folder, const QString& name) {
    return !Dir(PathIn(folder, name)).isEmpty();
}

// Copies are made quietly: a failed one only leaves its commands disabled,
// and never a half-copied file under the name.
void copyQuietly(const QString& source, const QString& destination) {
    try {
        PlaceFileCopy(source, destination);
    } catch (const dao::DaoError&) {
    }
}

// The working copy lives beside the client database; the delivered one stays put.
void placeDeliveredCopy(const QString& delivered, const QString& working) {
    if (!fileStands(slotFolder(), working) && fileStands(ProgramFolder(), delivered)) {
        copyQuietly(PathIn(ProgramFolder(), delivered), PathIn(slotFolder(), working));
    }
}

bool* dividendFlag(int year) {
    switch (year) {
        case 2012:
            return &Dividend2012Found;
        case 2013:
            return &Dividend2013Found;
        case 2014:
            return &Dividend2014Found;
        default:
            return &Dividend2015Found;
    }
}

QString quotedTitle() {
    return QLatin1Char('"') + DatabaseTitle.at(SelectedFile) + QLatin1Char('"');
}

void reportOpenFailure(const dao::DaoError& error) {
    switch (error.Number()) {
        case dao::kErrFileInUse:
            // Busy is not missing: the file is there, held a moment too long.
            Beep();
            MsgBox(QStringLiteral("The database ") + quotedTitle() +
                       QStringLiteral(" is in use by another user and could not be opened. "
                                      "Please try again in a moment."),
                   vbExclamation);
            break;
        case dao::kErrCannotOpen:
        case dao::kErrFileNotFound:
        case dao::kErrInvalidPath:
            Beep();
            MsgBox(QStringLiteral("The database ") + quotedTitle() +
                       QStringLiteral(" is not available."),
                   vbExclamation);
            break;
        case dao::kErrDamaged:
            Beep();
            MsgBox(QStringLiteral("The database ") + quotedTitle() +
                       QStringLiteral(" is corrupted.") + QStringLiteral("\n\n") +
                       QStringLiteral(
                           "Select 'Repair database' in the 'File' menu to repair the database.") +
                       QStringLiteral("\n\n") +
                       QStringLiteral("Alternatively, restore your backup copy of ") +
                       PathIn(slotFolder(), kClientDatabase),
                   vbExclamation);
            break;
        default:
            MsgBox(error.Description(), vbOKOnly);
            break;
    }
}

}  // namespace

void FindDatabases() {
    ClientDatabaseFound = fileStands(slotFolder(), kClientDatabase);
    placeDeliveredCopy(kDeliveredOffices, kOfficeDatabase);
    OfficeDatabaseFound = fileStands(slotFolder(), kOfficeDatabase);
    placeDeliveredCopy(kDeliveredDividends, DividendFileName(kLastDividendYear));
    DividendDatabaseFound = false;
    for (int year = kFirstDividendYear; year <= kLastDividendYear; ++year) {
        *dividendFlag(year) = fileStands(slotFolder(), DividendFileName(year));
        DividendDatabaseFound = DividendDatabaseFound || *dividendFlag(year);
    }
}

bool VerifyClientDatabase() {
    const QString database = PathIn(slotFolder(), kClientDatabase);
    // The first check in a folder leaves a copy of the file as it then was; it is
    // never refreshed afterwards.
    if (fileStands(slotFolder(), kClientDatabase) && !fileStands(slotFolder(), kFirstCheckCopy)) {
        copyQuietly(PathOnDisk(database), PathIn(slotFolder(), kFirstCheckCopy));
    }
    try {
        dao::Database db = dao::OpenDatabase(PathOnDisk(database));
        db.Close();
        return true;
    } catch (const dao::DaoError& error) {
        reportOpenFailure(error);
        return false;
    }
}

void ReadUserTitle() {
    dao::Database db = dao::OpenDatabase(PathOnDisk(ClientDatabasePath()));
    dao::Recordset common = db.OpenRecordset(QStringLiteral("Common"));
    common.SetIndex(QStringLiteral("Name"));
    common.Seek(QStringLiteral("="), {QStringLiteral("User")});
    UserTitle = common.NoMatch() ? QStringLiteral("User Defined")
                                 : NullToEmpty(common.Fields(QStringLiteral("Title")));
    common.Close();
    db.Close();
}

QString DatabaseCaption() {
    return QStringLiteral("Quillon - ") + DatabaseTitle.at(SelectedFile);
}

QString ProgramVersion() {
    return QStringLiteral(QUILLON_VERSION);
}

}  // namespace quillon
