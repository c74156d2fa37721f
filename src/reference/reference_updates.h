#pragma once
// Bringing the working tax offices and dividends files up to the versions
// delivered with the program: the tax offices file is replaced outright, the
// dividends file of the latest year is merged so that the shares the user
// added stay. Each asks first and tells the outcome.

namespace quillon {

// When the delivered tax offices file is newer, asks whether to take it and,
// on Yes, replaces the working file with it. A No leaves the question for
// the next opening of the tax offices.
void UpdateOfficeDatabase();

// When the delivered dividends file is newer than the working file of the
// latest year, asks whether to take it and, on Yes, runs
// UpdateDividendDatabase. Nothing is asked while there is no working file.
void CheckDividendUpdate();

// Merges the delivered dividends file into the working file of the latest
// year (see MergeDividendFile) and tells the outcome. A failure leaves the
// file as it was, with its old version, so the update is offered again.
void UpdateDividendDatabase();

}  // namespace quillon
