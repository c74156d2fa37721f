#pragma once
// What the tax office and dividend screens share, kept in the ConfigFile under
// the keys in the comments.

#include <QString>

namespace quillon {

// Current tax office.
inline QString CurrentOfficeName;    // CURRENT OFFICE NAME
inline QString CurrentOfficeNumber;  // CURRENT OFFICE NUMBER

// Dividends.
inline qint16 TaxYear{};        // TAX YEAR
inline QString CurrentCompany;  // CURRENT COMPANY
inline QString CurrentStock;    // CURRENT STOCK
inline bool CurrentFID{};       // CURRENT FID

// May the program offer newer reference databases.
inline bool TaxOfficesUpdate{};  // TAX OFFICES UPDATE
// Not given a default on purpose: it keeps its initial value unless the file sets it.
inline bool DividendsUpdate{};  // DIVIDENDS UPDATE

}  // namespace quillon
