#pragma once
// basVariables: the application state shared by every form and module. The program has one
// thread, so nothing guards these. The settings kept in the ConfigFile carry
// their key in a comment; configuration.cpp reads and writes them. Settings start
// empty: SetDefaults, which every start runs, is the one place that gives them
// their defaults.

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
inline qint16 SelectedFile{};                                   // SELECTED FILE

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
inline bool ViewToolbar{};           // VIEW TOOLBAR
inline bool ViewStatusBar{};         // VIEW STATUS BAR
inline bool ViewTooltips{};          // VIEW TOOLTIPS
inline bool ApplicationMaximised{};  // APPLICATION MAXIMISED
inline qint32 ApplicationTop{};      // APPLICATION TOP, twips
inline qint32 ApplicationLeft{};     // APPLICATION LEFT
inline qint32 ApplicationHeight{};   // APPLICATION HEIGHT
inline qint32 ApplicationWidth{};    // APPLICATION WIDTH

// Merge files.
inline bool UseQuotes{};          // USE QUOTES
inline QString FieldDelimiter{};  // FIELD DELIMITER

inline quint8 DiaryPage{};  // DIARY PAGE

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
inline qint16 TaxYear{};        // TAX YEAR
inline QString CurrentCompany;  // CURRENT COMPANY
inline QString CurrentStock;    // CURRENT STOCK
inline bool CurrentFID{};       // CURRENT FID

// Last filter of the diary report.
inline QString DiaryReportPartner;     // DIARY REPORT PARTNER
inline QString DiaryReportManager;     // DIARY REPORT MANAGER
inline QString DiaryReportAssistant;   // DIARY REPORT ASSISTANT
inline QString DiaryReportOffice;      // DIARY REPORT OFFICE
inline qint16 DiaryReportReference{};  // DIARY REPORT REFERENCE
inline QString DiaryReportTitle;       // DIARY REPORT TITLE

// Check boxes of the client records report, 1 ticked.
inline qint16 ClientRecordPersonal{};        // CLIENT RECORD PERSONAL
inline qint16 ClientRecordAdministration{};  // CLIENT RECORD ADMINISTRATION
inline qint16 ClientRecordEmployment{};      // CLIENT RECORD EMPLOYMENT
inline qint16 ClientRecordBusiness{};        // CLIENT RECORD BUSINESS
inline qint16 ClientRecordAssets{};          // CLIENT RECORD ASSETS
inline qint16 ClientRecordContributions{};   // CLIENT RECORD CONTRIBUTIONS
inline qint16 ClientRecordUser{};            // CLIENT RECORD USER
inline qint16 ClientRecordDiary{};           // CLIENT RECORD DIARY

// Which address labels, letters and merges take.
inline qint16 AddressForLabels{};  // ADDRESS FOR LABELS
inline qint16 AddressForLetter{};  // ADDRESS FOR LETTER
inline qint16 AddressForMerge{};   // ADDRESS FOR MERGE

// Report settings, kept in the ConfigFile under the keys in the comments.
inline bool ReportShading{};        // REPORT SHADING
inline qint16 ReportScale{};        // REPORT SCALE
inline QString ReportFont{};        // REPORT FONT
inline bool ReportReverse{};        // REPORT REVERSE
inline qint16 ReportTicks{};        // REPORT TICKS
inline qint16 ReportPreview{};      // REPORT PREVIEW
inline bool ReportPadding{};        // REPORT PADDING
inline QString VSPrinter;           // VS PRINTER
inline double VSLeft{};             // VS LEFT
inline double VSTop{};              // VS TOP
inline double VSScale{};            // VS SCALE
inline QString VSPDFFolder;         // VS PDF FOLDER
inline qint16 VSPDFFileOption{};    // VS PDF FILE OPTION
inline QString VSPDFFileName{};     // VS PDF FILE NAME
inline double VSPDFLeft{};          // VS PDF LEFT
inline double VSPDFTop{};           // VS PDF TOP
inline double VSPDFScale{};         // VS PDF SCALE
inline qint16 VSBlack{};            // VS BLACK
inline qint16 VSDark{};             // VS DARK
inline qint16 VSLight{};            // VS LIGHT
inline qint16 VSWhite{};            // VS WHITE
inline qint16 VSSection{};          // VS SECTION
inline bool VSPreviewMaximised{};   // VS PREVIEW MAXIMISED
inline qint32 VSPreviewTop{};       // VS PREVIEW TOP, twips
inline qint32 VSPreviewLeft{};      // VS PREVIEW LEFT
inline qint32 VSPreviewHeight{};    // VS PREVIEW HEIGHT
inline qint32 VSPreviewWidth{};     // VS PREVIEW WIDTH
inline qint16 VSAlignTextMethod{};  // VS ALIGN TEXT METHOD
inline double VSAlignTextX{};       // VS ALIGN TEXT X
inline double VSAlignTextY{};       // VS ALIGN TEXT Y
inline qint16 VSDuplexMode{};       // VS DUPLEX MODE

// Page settings of the older print route: read and written, not otherwise used
// except PW SECTION by the report settings screen.
inline QString PWTemplate;      // PW TEMPLATE
inline QString PWLeft{};        // PW LEFT
inline QString PWTop{};         // PW TOP
inline QString PWWidth{};       // PW WIDTH
inline QString PWHeight{};      // PW HEIGHT
inline QString PWResolution{};  // PW RESOLUTION
inline qint16 PWSpacing{};      // PW SPACING
inline QString PWZoom{};        // PW ZOOM
inline qint16 PWBlack{};        // PW BLACK
inline qint16 PWDark{};         // PW DARK
inline qint16 PWLight{};        // PW LIGHT
inline qint16 PWWhite{};        // PW WHITE
inline qint16 PWSection{};      // PW SECTION

// The agent's details on Form 64-8.
inline QString AgentName;                                         // AGENT NAME
inline std::array<QString, kAgentAddressLines + 1> AgentAddress;  // AGENT ADDRESS n, 0 unused
inline QString AgentPostcode;                                     // AGENT POSTCODE
inline QString AgentTelephone;                                    // AGENT TELEPHONE
inline QString AgentFax;                                          // AGENT FAX
inline QString AgentEmail;                                        // AGENT EMAIL
inline QString AgentCodes;                                        // AGENT CODES
inline qint16 AgentStatements{};                                  // AGENT STATEMENTS

// Starts until the backup reminder: 0 shows it, -1 never.
inline qint16 BackupWarning{};  // BACKUP WARNING
// May the program offer newer reference databases.
inline bool TaxOfficesUpdate{};  // TAX OFFICES UPDATE
// Not given a default on purpose: it keeps its initial value unless the file sets it.
inline bool DividendsUpdate{};  // DIVIDENDS UPDATE

// The file of the client database of the selected slot: QUILL020.MDB in
// DatabaseFolder(SelectedFile).
QString ClientDatabasePath();

}  // namespace quillon
