#pragma once
// The application state shared by every form and module. The program has one
// thread, so nothing guards these.

#include <QString>

#include <array>

namespace quillon {

constexpr int kDatabaseSlots = 16;

// DatabaseSlots: title and folder of each, element 0 unused.
inline std::array<QString, kDatabaseSlots + 1> DatabaseTitle;
inline std::array<QString, kDatabaseSlots + 1> DatabaseFolder;
inline qint16 SelectedFile = 1;

// The current client; every section screen, report and letter works on it.
inline QString CurrentFirst;
inline QString CurrentLast;

// Report settings, kept in the ConfigFile under the keys in the comments.
inline bool ReportShading = true;          // REPORT SHADING
inline qint16 ReportScale = 100;           // REPORT SCALE
inline QString ReportFont = "Arial";       // REPORT FONT
inline bool ReportReverse = false;         // REPORT REVERSE
inline qint16 ReportTicks = 0;             // REPORT TICKS
inline qint16 ReportPreview = 0;           // REPORT PREVIEW
inline bool ReportPadding = false;         // REPORT PADDING
inline QString VSPrinter;                  // VS PRINTER
inline double VSLeft = 0;                  // VS LEFT
inline double VSTop = 0;                   // VS TOP
inline double VSScale = 100;               // VS SCALE
inline QString VSPDFFolder;                // VS PDF FOLDER
inline qint16 VSPDFFileOption = 0;         // VS PDF FILE OPTION
inline QString VSPDFFileName = "Quillon";  // VS PDF FILE NAME
inline double VSPDFLeft = 0;               // VS PDF LEFT
inline double VSPDFTop = 0;                // VS PDF TOP
inline double VSPDFScale = 100;            // VS PDF SCALE
inline qint16 VSBlack = 0;                 // VS BLACK
inline qint16 VSDark = 200;                // VS DARK
inline qint16 VSLight = 225;               // VS LIGHT
inline qint16 VSWhite = 255;               // VS WHITE
inline qint16 VSSection = 0;               // VS SECTION
inline bool VSPreviewMaximised = true;     // VS PREVIEW MAXIMISED
inline qint32 VSPreviewTop = 0;            // VS PREVIEW TOP, twips
inline qint32 VSPreviewLeft = 0;           // VS PREVIEW LEFT
inline qint32 VSPreviewHeight = 0;         // VS PREVIEW HEIGHT
inline qint32 VSPreviewWidth = 0;          // VS PREVIEW WIDTH
inline qint16 VSAlignTextMethod = 0;       // VS ALIGN TEXT METHOD
inline double VSAlignTextX = 0;            // VS ALIGN TEXT X
inline double VSAlignTextY = 0;            // VS ALIGN TEXT Y
inline qint16 VSDuplexMode = 0;            // VS DUPLEX MODE

// The file of the client database of the selected slot.
QString ClientDatabasePath();

}  // namespace quillon
