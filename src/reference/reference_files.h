#pragma once
// The tax offices and dividends files: where each stands, which version each
// holds, and the ways they are placed, replaced and merged. Several
// workstations may have the working files open: none of these ever leaves
// half a file under a working file's name, and none changes a file that
// another workstation holds.

#include <QString>
#include <QStringList>

namespace quillon {

// The tax years that have a dividends file, by the year in which each ends.
constexpr int kFirstDividendYear = 2012;
constexpr int kLastDividendYear = 2015;  // the only year that an update reaches

// "DIV2012.MDB" to "DIV2015.MDB": the year in which the tax year ends.
QString DividendFileName(int year);
// The working dividends file of `year` in the selected slot's folder.
QString DividendDatabasePath(int year);
// The delivered copies in the program's folder.
QString DefaultOfficePath();
QString DefaultDividendPath();
// The tax year that ends in `year` as the screens label it: "2014-15" for 2015.
QString TaxYearLabel(int year);

// The version a file's table `Version` holds, such as "2001.0". Throws a
// dao::DaoError when the file or its table can't be read.
QString ReadVersion(const QString& path);
// A version as a number, read as typed figures are: "2001.0" is 2001.
double VersionNumber(const QString& version);
// The first layout whose offices have `Office No` and `Email`.
constexpr double kOfficeNumbersLayout = 2001;

// The versions of the working and delivered files. The three office and
// default readers give "2000.0" for a file or table that can't be read;
// ReadDividendVersion throws.
QString ReadOfficeVersion();
QString ReadDefaultOfficeVersion();
QString ReadDividendVersion(int year);
QString ReadDefaultDividendVersion();

// The fields of an office that the screens show, in the order of their
// boxes: the five address lines, `Postcode`, `Telephone`, `Fax`, and, in a
// layout of 2001 or later, `Office No` and `Email`.
QStringList OfficeDetailFields(bool laterLayout);

// The width of a text field of `Tax Offices` or of `Dividends`, to which the
// screens hold their boxes.
int OfficeFieldWidth(const QString& field);
int DividendFieldWidth(const QString& field);

// A share as its list entry shows it: company, ", ", stock, and " (FID)" for
// a Foreign Income Dividend.
struct ShareKey {
    QString company;
    QString stock;
    bool fid = false;
};
QString ShareEntry(const ShareKey& share);
// The share of an entry, split at its first ", ": the company box refuses the
// comma. Only an entry longer than the mark itself can carry it.
ShareKey ShareOfEntry(const QString& entry);

// Copies the file `source` to `target`, which must not stand yet: the copy is
// written beside `target` and then given its name, so that nobody ever finds
// a half-copied file there. Throws a dao::DaoError.
void PlaceFileCopy(const QString& source, const QString& target);

enum class ReferenceChange { Done, InUse };

// Replaces the database `target` with a copy of `source`. The copy is made
// beside `target` first and moved into place while this workstation alone
// holds `target`. InUse, with nothing changed, when another workstation is
// using it. Throws a dao::DaoError; `target` then stands as it was.
ReferenceChange ReplaceDatabaseFile(const QString& source, const QString& target);

// The 18 fields a published share carries into the user's file, in order.
const QStringList& PublishedShareFields();

// Brings the user's dividends file `working` up to the published file
// `published` in one transaction: the published shares (`Issued` = 1) go, the
// user's own stay with their payments, every share of `published` is added,
// and the version is taken over. InUse, with nothing changed, when another
// workstation holds the file; a failure throws a dao::DaoError and leaves the
// file as it was.
ReferenceChange MergeDividendFile(const QString& published, const QString& working);

// The pair of files that the year-end transfer works on: one year's file and
// the next year's, named when the program is built. A relative path stands
// in the program's folder.
QString TransferSourcePath();
QString TransferDestinationPath();

// Adds every share of the dividends file `source` to `destination` with its
// company, stock and FID only, for the next year's payments to be entered, in
// one transaction. Throws a dao::DaoError; `destination` then stands as it was.
void TransferShares(const QString& source, const QString& destination);

}  // namespace quillon
