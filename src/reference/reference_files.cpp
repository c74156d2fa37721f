#include "reference/reference_files.h"

#include "data/convert.h"
#include "data/data_access.h"
#include "data/database_schema.h"
#include "data/delivered_databases.h"
#include "maintenance/database_backup.h"
#include "maintenance/database_upkeep.h"
#include "platform/dao.h"
#include "platform/files.h"
#include "shell/program_folder.h"
#include "shell/variables.h"

#include <QDir>
#include <QFile>

#include <filesystem>
#include <system_error>
#include <utility>

namespace quillon {

namespace {

const QString kDividends = QStringLiteral("Dividends");
const QString kVersion = QStringLiteral("Version");
// What a file whose version can't be read counts as: older than any delivered.
const QString kOldestVersion = QStringLiteral("2000.0");
const QString kShareSeparator = QStringLiteral(", ");
const QString kFidMark = QStringLiteral(" (FID)");

QString VersionOr(const QString& path, const QString& fallback) {
    try {
        return ReadVersion(path);
    } catch (const dao::DaoError&) {
        return fallback;
    }
}

// A file written beside its place, removed again unless it was moved there.
class ScratchFile {
public:
    explicit ScratchFile(QString path) : path_(std::move(path)) { QFile::remove(path_); }
    ~ScratchFile() { QFile::remove(path_); }
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;
    const QString& Path() const { return path_; }

private:
    QString path_;
};

void MoveOver(const QString& from, const QString& to) {
    std::error_code error;
    std::filesystem::rename(QFile::encodeName(from).toStdString(),
                            QFile::encodeName(to).toStdString(), error);
    if (error) {
        throw dao::DaoError(kErrPathFileAccess, QStringLiteral("Path/File access error"));
    }
}

// Whether `path` is a database the engine can open at all; a damaged one is
// used by nobody, and its journal, which belongs to it alone, must not be
// played into the file that replaces it.
bool Openable(const QString& path) {
    try {
        dao::OpenDatabase(path, false, true).Close();
    } catch (const dao::DaoError& error) {
        if (error.Number() != dao::kErrDamaged) {
            throw;
        }
        QFile::remove(path + QStringLiteral("-journal"));
        return false;
    }
    return true;
}

// Puts the contents of `prepared` into the file `into` in one transaction under
// the file's own locks, so that the file keeps its name and place: another
// workstation that has it open, or is opening it, goes on in the one file.
ReferenceChange CopyInto(const QString& prepared, const QString& into) {
    try {
        CopyDatabaseInto(prepared, into);
    } catch (const dao::DaoError& error) {
        if (InUseElsewhere(error)) {
            return ReferenceChange::InUse;
        }
        throw;
    }
    return ReferenceChange::Done;
}

QString InProgramFolder(const QString& path) {
    return PathOnDisk(QDir::isRelativePath(path) ? PathIn(ProgramFolder(), path) : path);
}

void CopyPublishedShares(dao::Database& published, dao::Database& working) {
    dao::Recordset from = published.OpenRecordset(kDividends);
    dao::Recordset into = working.OpenRecordset(kDividends);
    const QStringList& fields = PublishedShareFields();
    for (from.MoveFirst(); !from.IsEOF(); from.MoveNext()) {
        into.AddNew();
        for (const QString& field : fields) {
            into.Fields(field).SetValue(from.Fields(field).Value());
        }
        into.Update();
    }
}

void TakeVersion(dao::Database& published, dao::Database& working) {
    dao::Recordset from = published.OpenRecordset(kVersion);
    dao::Recordset into = working.OpenRecordset(kVersion);
    from.MoveFirst();
    into.MoveFirst();
    into.Edit();
    into.Fields(kVersion).SetValue(from.Fields(kVersion).Value());
    into.Update();
}

}  // namespace

QString DividendFileName(int year) {
    return QStringLiteral("DIV%1.MDB").arg(year);
}

QString DividendDatabasePath(int year) {
    return PathOnDisk(PathIn(DatabaseFolder.at(SelectedFile), DividendFileName(year)));
}

QString DefaultOfficePath() {
    return PathOnDisk(PathIn(ProgramFolder(), QString::fromLatin1(kDefaultOfficeDatabaseFile)));
}

QString DefaultDividendPath() {
    return PathOnDisk(PathIn(ProgramFolder(), QString::fromLatin1(kDefaultDividendDatabaseFile)));
}

QString TaxYearLabel(int year) {
    return QStringLiteral("%1-%2").arg(year - 1).arg(year % 100, 2, 10, QLatin1Char('0'));
}

QString ReadVersion(const QString& path) {
    dao::Database db = dao::OpenDatabase(PathOnDisk(path));
    dao::Recordset version = db.OpenRecordset(kVersion);
    version.MoveFirst();
    return NullToEmpty(version.Fields(kVersion));
}

double VersionNumber(const QString& version) {
    return Val(version);
}

QString ReadOfficeVersion() {
    return VersionOr(OfficeDatabasePath(), kOldestVersion);
}

QString ReadDefaultOfficeVersion() {
    return VersionOr(DefaultOfficePath(), kOldestVersion);
}

QString ReadDividendVersion(int year) {
    return ReadVersion(DividendDatabasePath(year));
}

QString ReadDefaultDividendVersion() {
    return VersionOr(DefaultDividendPath(), kOldestVersion);
}

QStringList OfficeDetailFields(bool laterLayout) {
    QStringList fields;
    for (int line = 1; line <= 5; ++line) {
        fields << QStringLiteral("Address %1").arg(line);
    }
    fields << QStringLiteral("Postcode") << QStringLiteral("Telephone") << QStringLiteral("Fax");
    if (laterLayout) {
        fields << QStringLiteral("Office No") << QStringLiteral("Email");
    }
    return fields;
}

int OfficeFieldWidth(const QString& field) {
    static const std::vector<dao::TableDef> tables = OfficeDatabaseTables();
    return FieldWidth(tables, QStringLiteral("Tax Offices"), field);
}

int DividendFieldWidth(const QString& field) {
    static const std::vector<dao::TableDef> tables = DividendDatabaseTables();
    return FieldWidth(tables, kDividends, field);
}

QString ShareEntry(const ShareKey& share) {
    return share.company + kShareSeparator + share.stock + (share.fid ? kFidMark : QString());
}

ShareKey ShareOfEntry(const QString& entry) {
    ShareKey share;
    QString text = entry;
    if (text.size() > kFidMark.size() && text.endsWith(kFidMark)) {
        share.fid = true;
        text.chop(kFidMark.size());
    }
    const qsizetype split = text.indexOf(kShareSeparator);
    share.company = split < 0 ? text : text.left(split);
    share.stock = split < 0 ? QString() : text.mid(split + kShareSeparator.size());
    return share;
}

void PlaceFileCopy(const QString& source, const QString& target) {
    const ScratchFile partial(target + QStringLiteral(".partial"));
    FileCopy(source, partial.Path());
    // Name refuses to go over a file that another workstation has placed meanwhile.
    Name(partial.Path(), target);
}

// The new file is written beside the old one and copied into it whole; only a
// file too damaged to open, which nobody can be using, is replaced by name.
ReferenceChange ReplaceDatabaseFile(const QString& source, const QString& target) {
    const QString into = PathOnDisk(target);
    const ScratchFile scratch(into + QStringLiteral(".new"));
    FileCopy(PathOnDisk(source), scratch.Path());
    if (!Dir(into).isEmpty() && Openable(into)) {
        return CopyInto(scratch.Path(), into);
    }
    MoveOver(scratch.Path(), into);
    return ReferenceChange::Done;
}

const QStringList& PublishedShareFields() {
    static const QStringList fields = [] {
        QStringList names{QStringLiteral("Company"), QStringLiteral("NewCompanyName"),
                          QStringLiteral("Stock"), QStringLiteral("NewStock")};
        for (const char* prefix : {"Number %1", "Date %1", "Dividend %1"}) {
            for (int n = 1; n <= 4; ++n) {
                names << QString::fromLatin1(prefix).arg(n);
            }
        }
        names << QStringLiteral("FID") << QStringLiteral("Issued");
        return names;
    }();
    return fields;
}

// The merge is one transaction in the user's file itself: a failure at any point
// leaves the file as it was, nobody ever finds half of one, and a share another
// workstation saves meanwhile waits for the lock rather than being overwritten.
ReferenceChange MergeDividendFile(const QString& published, const QString& working) {
    dao::Database from = dao::OpenDatabase(PathOnDisk(published), false, true);
    dao::Database into = dao::OpenDatabase(PathOnDisk(working));
    try {
        into.BeginTrans();
        into.Execute(QStringLiteral("DELETE FROM Dividends WHERE Issued=1"));
        CopyPublishedShares(from, into);
        TakeVersion(from, into);
        into.CommitTrans();
    } catch (const dao::DaoError& error) {
        into.Rollback();
        if (InUseElsewhere(error)) {
            return ReferenceChange::InUse;
        }
        throw;
    }
    return ReferenceChange::Done;
}

QString TransferSourcePath() {
    return InProgramFolder(QStringLiteral(QUILLON_SHARE_TRANSFER_SOURCE));
}

QString TransferDestinationPath() {
    return InProgramFolder(QStringLiteral(QUILLON_SHARE_TRANSFER_DESTINATION));
}

void TransferShares(const QString& source, const QString& destination) {
    dao::Database from = dao::OpenDatabase(PathOnDisk(source), false, true);
    dao::Database into = dao::OpenDatabase(PathOnDisk(destination));
    dao::Recordset shares = from.OpenRecordset(kDividends);
    dao::Recordset added = into.OpenRecordset(kDividends);
    into.BeginTrans();
    for (shares.MoveFirst(); !shares.IsEOF(); shares.MoveNext()) {
        added.AddNew();
        for (const QString& field : {QStringLiteral("Company"), QStringLiteral("Stock")}) {
            added.Fields(field).SetValue(shares.Fields(field).Value());
        }
        added.Fields(QStringLiteral("FID"))
            .SetValue(NullToFalse(shares.Fields(QStringLiteral("FID"))));
        added.Update();
    }
    into.CommitTrans();
}

}  // namespace quillon
