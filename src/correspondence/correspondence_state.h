#pragma once
// What the merge files, letters and labels share, kept in the ConfigFile under
// the keys in the comments.

#include <QString>

#include <array>

namespace quillon {

constexpr int kStandardLetters = 10;  // letters 0 to 9

// Merge files.
inline bool UseQuotes{};          // USE QUOTES
inline QString FieldDelimiter{};  // FIELD DELIMITER

// Standard letters: names and document files, 0 to 9.
inline std::array<QString, kStandardLetters> ClientLetter;         // CLIENT LETTER n
inline std::array<QString, kStandardLetters> ClientLetterFile;     // CLIENT LETTER FILE n
inline std::array<QString, kStandardLetters> TaxOfficeLetter;      // TAX OFFICE LETTER n
inline std::array<QString, kStandardLetters> TaxOfficeLetterFile;  // TAX OFFICE LETTER FILE n
inline QString WordFolder;                                         // WORD FOLDER
inline QString WPFolder;                                           // WP FOLDER

// Which list of standard letters the letter screens open: 1 the client
// letters, 2 the tax office letters. Held for the run only.
inline qint16 LetterKind = 1;

// Which address labels, letters and merges take.
inline qint16 AddressForLabels{};  // ADDRESS FOR LABELS
inline qint16 AddressForLetter{};  // ADDRESS FOR LETTER
inline qint16 AddressForMerge{};   // ADDRESS FOR MERGE

}  // namespace quillon
