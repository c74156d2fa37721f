#pragma once
// The database files that come with an installation, and synthetic client
// databases of any size for tests and benchmarks. Each routine makes a new file
// and fails with kErrDatabaseExists if `path` already exists.

#include "platform/dao_schema.h"

#include <QString>

#include <functional>
#include <vector>

namespace quillon {

class BulkWriteSession;

// Names of the delivered files in the program folder.
inline constexpr char kClientDatabaseFile[] = "QUILL020.MDB";
inline constexpr char kDefaultOfficeDatabaseFile[] = "DTAXOFF2.MDB";
inline constexpr char kDefaultDividendDatabaseFile[] = "DDIV2015.MDB";

// The version written into the `Version` table of both reference files.
inline constexpr char kDeliveredReferenceVersion[] = "2015.0";

// The client that a new client database holds, so that the screens have a
// current client from the first start.
inline constexpr char kSampleClientFirst[] = "A.";
inline constexpr char kSampleClientLast[] = "Sample";

// A client database holding the `Common` descriptions and the sample client.
void MakeClientDatabase(const QString& path);

// A tax offices database with its published offices and version.
void MakeOfficeDatabase(const QString& path);

// A dividends database of the latest tax year with its published shares.
void MakeDividendDatabase(const QString& path);

// A reference file of `tables` whose rows `fill` writes, with the delivered
// version, in one transaction; the file is removed again if anything fails.
void MakeReferenceDatabase(const QString& path, const std::vector<dao::TableDef>& tables,
                           const std::function<void(const BulkWriteSession&)>& fill);

// MakeClientDatabase plus `count` synthetic clients with a row in every client
// table and a plausible spread of filled fields. The same count always gives
// the same file content.
void MakeSyntheticClientDatabase(const QString& path, int count);

// A tax offices database of `count` (at most 1,000) made-up offices numbered
// from "000", with every field filled, of the delivered version.
void MakeSyntheticOfficeDatabase(const QString& path, int count);

// A dividends database of `count` made-up published shares, each with its
// payments in the latest tax year, of the delivered version.
void MakeSyntheticDividendDatabase(const QString& path, int count);

}  // namespace quillon
