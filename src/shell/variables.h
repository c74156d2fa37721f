#pragma once
// basVariables: the application state shared by every form and module. The program has one
// thread, so nothing guards these. The settings kept in the ConfigFile carry
// their key in a comment; configuration.cpp reads and writes them.

#include <QString>

#include <array>

namespace quillon {

constexpr int kDatabaseSlots = 16;
constexpr int kStandardLetters = 10;  // letters 0 to 9
constexpr int kAgentAddressLines = 4;

// Environment, set once at start.
inline QString OSName;
inline QString WindowsFolder;  // no trailing separator
inline QString SystemFolder;   // no trailing separator
inline QString FamilyFolder;   // the program's folder less its own name

// Which databases the selected slot's folder holds, as found at the last check.
inline bool ClientDatabaseFound = false;
inline bool OfficeDatabaseFound = false;
inline bool DividendDatabaseFound = false;
inline bool Dividend2012Found = false;
inline bool Dividend2013Found = false;
inline bool Dividend2014Found = false;
inline bool Dividend2015Found = false;

// DatabaseSlots: title and folder of each, element 0 unused.
inline std::array<QString, kDatabaseSlots + 1> DatabaseTitle;   // FILE n
inline std::array<QString, kDatabaseSlots + 1> DatabaseFolder;  // PATH n
inline qint16 SelectedFile = 1;                                 // SELECTED FILE

// The current client; every section screen, report and letter works on it.
inline QString CurrentFirst;  // CURRENT FIRST
inline QString CurrentLast;   // CURRENT LAST

// Title of the user-defined section of the selected database.
inline QString UserTitle;

// The open section screen: 0 none, 1 Personal ... 8 Diary.
inline qint16 ActiveSection = 0;

// The report settings' "Messages" tab flag: held for the run only, not kept in
// the settings file.
inline bool DisableChildBenefitMessage = false;

inline quint8 EmploymentPage = 1;
inline quint8 BusinessPage = 1;
// Which of the tables `Asset 16` to `Asset 19` frmAssetsExt shows.
inline quint8 AssetPage = 1;
// Where the next section screen opens, in twips.
inline qint16 SectionTop = 0;
inline qint16 SectionLeft = 0;

// The client whose record each section screen has read; a screen writes back to
// its own pair so that a change of current client cannot redirect its data.
inline QString PersonalFirst, PersonalLast;
inline QString AdministrationFirst, AdministrationLast;
inline QString EmploymentFirst, EmploymentLast;
inline QString BusinessFirst, BusinessLast;
inline QString AssetsFirst, AssetsLast;
inline QString ContributionsFirst, ContributionsLast;
inline QString UserFirst, UserLast;
inline QString DiaryFirst, DiaryLast;

// View and main window.
inline bool ViewToolbar = true;           // VIEW TOOLBAR
inline bool ViewStatusBar = true;         // VIEW STATUS BAR
inline bool ViewTooltips = true;          // VIEW TOOLTIPS
inline bool ApplicationMaximised = true;  // APPLICATION MAXIMISED
inline qint32 ApplicationTop = 0;         // APPLICATION TOP, twips
inline qint32 ApplicationLeft = 0;        // APPLICATION LEFT
inline qint32 ApplicationHeight = 0;      // APPLICATION HEIGHT
inline qint32 ApplicationWidth = 0;       // APPLICATION WIDTH

// Merge files.
inline bool UseQuotes = true;         // USE QUOTES
inline QString FieldDelimiter = ",";  // FIELD DELIMITER

inline quint8 DiaryPage = 1;  // DIARY PAGE

// Current tax office.
inline QString CurrentOfficeName;    // CURRENT OFFICE NAME
inline QString CurrentOfficeNumber;  // CURRENT OFFICE NUMBER

// Standard letters: names and document files, 0 to 9.
inline std::array<QString, kStandardLetters> ClientLetter;         // CLIENT LETTER n
inline std::array<QString, kStandardLetters> ClientLetterFile;     // CLIENT LETTER FILE n
inline std::array<QString, kStandardLetters> TaxOfficeLetter;      // TAX OFFICE LETTER n
inline std::array<QString, kStandardLetters> TaxOfficeLetterFile;  // TAX OFFICE LETTER FILE n
inline QString WordFolder;                                         // WORD FOLDER
inline QString WPFolder;                                           // WP FOLDER

// Dividends.
inline qint16 TaxYear = 2015;    // TAX YEAR
inline QString CurrentCompany;   // CURRENT COMPANY
inline QString CurrentStock;     // CURRENT STOCK
inline bool CurrentFID = false;  // CURRENT FID

// Last filter of the diary report.
inline QString DiaryReportPartner;       // DIARY REPORT PARTNER
inline QString DiaryReportManager;       // DIARY REPORT MANAGER
inline QString DiaryReportAssistant;     // DIARY REPORT ASSISTANT
inline QString DiaryReportOffice;        // DIARY REPORT OFFICE
inline qint16 DiaryReportReference = 0;  // DIARY REPORT REFERENCE
inline QString DiaryReportTitle;         // DIARY REPORT TITLE

// Check boxes of the client records report, 1 ticked.
inline qint16 ClientRecordPersonal = 1;        // CLIENT RECORD PERSONAL
inline qint16 ClientRecordAdministration = 1;  // CLIENT RECORD ADMINISTRATION
inline qint16 ClientRecordEmployment = 1;      // CLIENT RECORD EMPLOYMENT
inline qint16 ClientRecordBusiness = 1;        // CLIENT RECORD BUSINESS
inline qint16 ClientRecordAssets = 1;          // CLIENT RECORD ASSETS
inline qint16 ClientRecordContributions = 1;   // CLIENT RECORD CONTRIBUTIONS
inline qint16 ClientRecordUser = 1;            // CLIENT RECORD USER
inline qint16 ClientRecordDiary = 1;           // CLIENT RECORD DIARY

// Which address labels, letters and merges take.
inline qint16 AddressForLabels = 0;  // ADDRESS FOR LABELS
inline qint16 AddressForLetter = 0;  // ADDRESS FOR LETTER
inline qint16 AddressForMerge = 0;   // ADDRESS FOR MERGE

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

// Page settings of the older print route: read and written, not otherwise used
// except PW SECTION by the report settings screen.
inline QString PWTemplate;            // PW TEMPLATE
inline QString PWLeft = "0";          // PW LEFT
inline QString PWTop = "0";           // PW TOP
inline QString PWWidth = "196";       // PW WIDTH
inline QString PWHeight = "279";      // PW HEIGHT
inline QString PWResolution = "100";  // PW RESOLUTION
inline qint16 PWSpacing = 0;          // PW SPACING
inline QString PWZoom = "30";         // PW ZOOM
inline qint16 PWBlack = 0;            // PW BLACK
inline qint16 PWDark = 200;           // PW DARK
inline qint16 PWLight = 225;          // PW LIGHT
inline qint16 PWWhite = 255;          // PW WHITE
inline qint16 PWSection = 0;          // PW SECTION

// The agent's details on Form 64-8.
inline QString AgentName;                                         // AGENT NAME
inline std::array<QString, kAgentAddressLines + 1> AgentAddress;  // AGENT ADDRESS n, 0 unused
inline QString AgentPostcode;                                     // AGENT POSTCODE
inline QString AgentTelephone;                                    // AGENT TELEPHONE
inline QString AgentFax;                                          // AGENT FAX
inline QString AgentEmail;                                        // AGENT EMAIL
inline QString AgentCodes;                                        // AGENT CODES
inline qint16 AgentStatements = 0;                                // AGENT STATEMENTS

// Starts until the backup reminder: 0 shows it, -1 never.
inline qint16 BackupWarning = 0;  // BACKUP WARNING
// May the program offer newer reference databases.
inline bool TaxOfficesUpdate = true;  // TAX OFFICES UPDATE
// Not given a default on purpose: it keeps its initial value unless the file sets it.
inline bool DividendsUpdate = false;  // DIVIDENDS UPDATE

// The file of the client database of the selected slot: QUILL020.MDB in
// DatabaseFolder(SelectedFile).
QString ClientDatabasePath();

}  // namespace quillon
