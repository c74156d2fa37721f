#pragma once
// What the reports and the print engine share, kept in the ConfigFile under the
// keys in the comments, and the agent's details on Form 64-8.

#include <QString>

#include <array>

namespace quillon {

constexpr int kAgentAddressLines = 4;

// The report settings' "Messages" tab flag: held for the run only, not kept in
// the settings file.
inline bool DisableChildBenefitMessage = false;

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

}  // namespace quillon
