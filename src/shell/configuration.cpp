// basConfiguration: the settings file.
#include "shell/configuration.h"

#include "data/data_access.h"
#include "platform/code_page.h"
#include "platform/dao.h"
#include "platform/files.h"
#include "shell/program_folder.h"
#include "shell/twips.h"
#include "shell/variables.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QHash>
#include <QSaveFile>
#include <QScreen>

#include <cmath>
#include <limits>
#include <optional>
#include <variant>
#include <vector>

namespace quillon {

namespace {

using Target = std::variant<bool*, qint16*, qint32*, quint8*, double*, QString*>;

struct Setting {
    QString key;
    Target target;
    bool readBack = true;
};

const QString kEndOfLine = QStringLiteral("\r\n");
// The text of the file being written, while WriteConfiguration runs.
QByteArray* openConfigText = nullptr;

// A name behind a folder, its leading backslash being the platform's separator.
QString inFolder(QString name) {
    return name.replace(QLatin1Char('\\'), QDir::separator());
}

QString numbered(const char* prefix, int n) {
    return QString::fromLatin1(prefix) + QString::number(n);
}

// Every setting in the order of the file.
std::vector<Setting> buildSettings() {
    std::vector<Setting> list;
    auto add = [&list](const char* key, Target target, bool readBack = true) {
        list.push_back({QString::fromLatin1(key), target, readBack});
    };
    for (int n = 1; n <= kDatabaseSlots; ++n) {
        list.push_back({numbered("FILE ", n), &DatabaseTitle[n]});
    }
    for (int n = 1; n <= kDatabaseSlots; ++n) {
        list.push_back({numbered("PATH ", n), &DatabaseFolder[n]});
    }
    add("SELECTED FILE", &SelectedFile);
    add("VIEW TOOLBAR", &ViewToolbar);
    add("VIEW STATUS BAR", &ViewStatusBar);
    add("VIEW TOOLTIPS", &ViewTooltips);
    add("APPLICATION MAXIMISED", &ApplicationMaximised);
    add("APPLICATION TOP", &ApplicationTop);
    add("APPLICATION LEFT", &ApplicationLeft);
    add("APPLICATION HEIGHT", &ApplicationHeight);
    add("APPLICATION WIDTH", &ApplicationWidth);
    add("USE QUOTES", &UseQuotes);
    add("FIELD DELIMITER", &FieldDelimiter);
    add("CURRENT FIRST", &CurrentFirst);
    add("CURRENT LAST", &CurrentLast);
    add("DIARY PAGE", &DiaryPage);
    add("CURRENT OFFICE NAME", &CurrentOfficeName);
    add("CURRENT OFFICE NUMBER", &CurrentOfficeNumber);
    for (int n = 0; n < kStandardLetters; ++n) {
        list.push_back({numbered("CLIENT LETTER ", n), &ClientLetter[n]});
        list.push_back({numbered("CLIENT LETTER FILE ", n), &ClientLetterFile[n]});
    }
    for (int n = 0; n < kStandardLetters; ++n) {
        list.push_back({numbered("TAX OFFICE LETTER ", n), &TaxOfficeLetter[n]});
        list.push_back({numbered("TAX OFFICE LETTER FILE ", n), &TaxOfficeLetterFile[n]});
    }
    add("WORD FOLDER", &WordFolder);
    add("WP FOLDER", &WPFolder);
    add("TAX YEAR", &TaxYear);
    add("CURRENT COMPANY", &CurrentCompany);
    add("CURRENT STOCK", &CurrentStock);
    add("CURRENT FID", &CurrentFID);
    add("DIARY REPORT PARTNER", &DiaryReportPartner);
    add("DIARY REPORT MANAGER", &DiaryReportManager);
    add("DIARY REPORT ASSISTANT", &DiaryReportAssistant);
    add("DIARY REPORT OFFICE", &DiaryReportOffice);
    add("DIARY REPORT REFERENCE", &DiaryReportReference);
    add("DIARY REPORT TITLE", &DiaryReportTitle);
    add("CLIENT RECORD PERSONAL", &ClientRecordPersonal);
    add("CLIENT RECORD ADMINISTRATION", &ClientRecordAdministration);
    add("CLIENT RECORD EMPLOYMENT", &ClientRecordEmployment);
    add("CLIENT RECORD BUSINESS", &ClientRecordBusiness);
    add("CLIENT RECORD ASSETS", &ClientRecordAssets);
    add("CLIENT RECORD CONTRIBUTIONS", &ClientRecordContributions);
    add("CLIENT RECORD USER", &ClientRecordUser);
    add("CLIENT RECORD DIARY", &ClientRecordDiary);
    add("ADDRESS FOR LABELS", &AddressForLabels);
    add("ADDRESS FOR LETTER", &AddressForLetter);
    add("ADDRESS FOR MERGE", &AddressForMerge);
    add("REPORT SHADING", &ReportShading);
    add("REPORT SCALE", &ReportScale);
    add("REPORT FONT", &ReportFont);
    add("REPORT REVERSE", &ReportReverse);
    add("REPORT TICKS", &ReportTicks);
    add("REPORT PREVIEW", &ReportPreview);
    add("REPORT PADDING", &ReportPadding);
    add("PW TEMPLATE", &PWTemplate);
    add("PW LEFT", &PWLeft);
    add("PW TOP", &PWTop);
    add("PW WIDTH", &PWWidth);
    add("PW HEIGHT", &PWHeight);
    add("PW RESOLUTION", &PWResolution);
    add("PW SPACING", &PWSpacing);
    add("PW ZOOM", &PWZoom);
    add("PW BLACK", &PWBlack);
    add("PW DARK", &PWDark);
    add("PW LIGHT", &PWLight);
    add("PW WHITE", &PWWhite);
    add("PW SECTION", &PWSection);
    // The chosen printer is only remembered within a run; the line is informative.
    add("VS PRINTER", &VSPrinter, false);
    add("VS LEFT", &VSLeft);
    add("VS TOP", &VSTop);
    add("VS SCALE", &VSScale);
    add("VS PDF FOLDER", &VSPDFFolder);
    add("VS PDF FILE OPTION", &VSPDFFileOption);
    add("VS PDF FILE NAME", &VSPDFFileName);
    add("VS PDF LEFT", &VSPDFLeft);
    add("VS PDF TOP", &VSPDFTop);
    add("VS PDF SCALE", &VSPDFScale);
    add("VS BLACK", &VSBlack);
    add("VS DARK", &VSDark);
    add("VS LIGHT", &VSLight);
    add("VS WHITE", &VSWhite);
    add("VS SECTION", &VSSection);
    add("VS PREVIEW MAXIMISED", &VSPreviewMaximised);
    add("VS PREVIEW TOP", &VSPreviewTop);
    add("VS PREVIEW LEFT", &VSPreviewLeft);
    add("VS PREVIEW HEIGHT", &VSPreviewHeight);
    add("VS PREVIEW WIDTH", &VSPreviewWidth);
    add("VS ALIGN TEXT METHOD", &VSAlignTextMethod);
    add("VS ALIGN TEXT X", &VSAlignTextX);
    add("VS ALIGN TEXT Y", &VSAlignTextY);
    add("VS DUPLEX MODE", &VSDuplexMode);
    add("AGENT NAME", &AgentName);
    for (int n = 1; n <= kAgentAddressLines; ++n) {
        list.push_back({numbered("AGENT ADDRESS ", n), &AgentAddress[n]});
    }
    add("AGENT POSTCODE", &AgentPostcode);
    add("AGENT TELEPHONE", &AgentTelephone);
    add("AGENT FAX", &AgentFax);
    add("AGENT EMAIL", &AgentEmail);
    add("AGENT CODES", &AgentCodes);
    add("AGENT STATEMENTS", &AgentStatements);
    add("BACKUP WARNING", &BackupWarning);
    add("TAX OFFICES UPDATE", &TaxOfficesUpdate);
    add("DIVIDENDS UPDATE", &DividendsUpdate);
    return list;
}

const std::vector<Setting>& settings() {
    static const std::vector<Setting> list = buildSettings();
    return list;
}

const QHash<QString, const Setting*>& settingsByKey() {
    static const QHash<QString, const Setting*> index = [] {
        QHash<QString, const Setting*> byKey;
        for (const Setting& setting : settings()) {
            byKey.insert(setting.key, &setting);
        }
        return byKey;
    }();
    return index;
}

QString formatted(const Target& target) {
    struct Printer {
        QString operator()(bool* v) const {
            return *v ? QStringLiteral("True") : QStringLiteral("False");
        }
        QString operator()(qint16* v) const { return QString::number(*v); }
        QString operator()(qint32* v) const { return QString::number(*v); }
        QString operator()(quint8* v) const { return QString::number(*v); }
        QString operator()(double* v) const { return QString::number(*v, 'g', 15); }
        QString operator()(QString* v) const { return *v; }
    };
    return std::visit(Printer{}, target);
}

std::optional<double> parsedNumber(const QString& text) {
    bool ok = false;
    const double value = text.trimmed().toDouble(&ok);
    if (!ok || !std::isfinite(value)) {
        return std::nullopt;
    }
    return value;
}

// Whole numbers round half to even, as the old conversions did; out of range fails.
template <typename Int>
bool storeInteger(const QString& text, Int* target) {
    const std::optional<double> number = parsedNumber(text);
    if (!number) {
        return false;
    }
    const double rounded = std::nearbyint(*number);
    if (rounded < std::numeric_limits<Int>::min() || rounded > std::numeric_limits<Int>::max()) {
        return false;
    }
    *target = static_cast<Int>(rounded);
    return true;
}

bool storeBoolean(const QString& text, bool* target) {
    const QString word = text.trimmed();
    if (word.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0) {
        *target = true;
        return true;
    }
    if (word.compare(QLatin1String("False"), Qt::CaseInsensitive) == 0) {
        *target = false;
        return true;
    }
    if (const std::optional<double> number = parsedNumber(word)) {
        *target = *number != 0.0;
        return true;
    }
    return false;
}

// A value that does not convert leaves the variable as it was.
void store(const Target& target, const QString& value) {
    struct Storer {
        const QString& value;
        void operator()(bool* v) const { storeBoolean(value, v); }
        void operator()(qint16* v) const { storeInteger(value, v); }
        void operator()(qint32* v) const { storeInteger(value, v); }
        void operator()(quint8* v) const { storeInteger(value, v); }
        void operator()(double* v) const {
            if (const std::optional<double> number = parsedNumber(value)) {
                *v = *number;
            }
        }
        void operator()(QString* v) const { *v = value; }
    };
    std::visit(Storer{value}, target);
}

void readLine(const QString& line) {
    if (line.size() < 3) {
        return;
    }
    const qsizetype equals = line.indexOf(QLatin1Char('='));
    if (equals < 1) {
        return;
    }
    const auto found = settingsByKey().constFind(line.left(equals));
    if (found == settingsByKey().constEnd() || !(*found)->readBack) {
        return;
    }
    store((*found)->target, line.mid(equals + 1));
}

// Lines end in CR LF as written, but a file edited elsewhere may use LF or CR alone.
QStringList splitLines(const QString& text) {
    QString normalised = text;
    normalised.replace(kEndOfLine, QStringLiteral("\n"));
    normalised.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    QStringList lines = normalised.split(QLatin1Char('\n'));
    if (!lines.isEmpty() && lines.constLast().isEmpty()) {
        lines.removeLast();
    }
    return lines;
}

void setLetterDefaults(std::array<QString, kStandardLetters>& names,
                       std::array<QString, kStandardLetters>& files, const char* namePrefix,
                       const char* filePrefix) {
    names[0].clear();
    files[0].clear();
    for (int n = 1; n < kStandardLetters; ++n) {
        names[n] = numbered(namePrefix, n);
        files[n] = ProgramFolder() + inFolder(numbered(filePrefix, n) + QStringLiteral(".wri"));
    }
}

// The SCREEN size of the defaults.
QSize screenSizeInTwips() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (!screen) {
        return {};
    }
    return {PixelsToTwips(screen->size().width()), PixelsToTwips(screen->size().height())};
}

void setWindowDefaults() {
    const QSize screen = screenSizeInTwips();
    ViewToolbar = true;
    ViewStatusBar = true;
    ViewTooltips = true;
    ApplicationMaximised = true;
    ApplicationTop = 0;
    ApplicationLeft = 0;
    ApplicationHeight = screen.height();
    ApplicationWidth = screen.width();
    VSPreviewMaximised = true;
    VSPreviewTop = 0;
    VSPreviewLeft = 0;
    VSPreviewHeight = screen.height();
    VSPreviewWidth = screen.width();
}

void setSlotDefaults() {
    for (int n = 1; n <= kDatabaseSlots; ++n) {
        DatabaseTitle[n].clear();
        DatabaseFolder[n].clear();
    }
    DatabaseTitle[1] = QStringLiteral("Default Database");
    DatabaseFolder[1] = ProgramFolder();
    SelectedFile = 1;
}

void setClientAndOfficeDefaults() {
    UseQuotes = true;
    FieldDelimiter = QStringLiteral(",");
    CurrentFirst = QStringLiteral("A.");
    CurrentLast = QStringLiteral("Sample");
    DiaryPage = 1;
    CurrentOfficeName = QStringLiteral("Accounts Office Cumbernauld");
    CurrentOfficeNumber = QStringLiteral("902");
    setLetterDefaults(ClientLetter, ClientLetterFile, "Client Letter ", "\\CLetter");
    setLetterDefaults(TaxOfficeLetter, TaxOfficeLetterFile, "Tax Office Letter ", "\\OLetter");
    WordFolder.clear();
    WPFolder = QStringLiteral("C:\\Program Files\\Accessories");
    TaxYear = 2015;
    CurrentCompany = QStringLiteral("3i Group PLC");
    CurrentStock = QStringLiteral("Ordinary 50p");
    CurrentFID = false;
}

void setReportDefaults() {
    DiaryReportPartner.clear();
    DiaryReportManager.clear();
    DiaryReportAssistant.clear();
    DiaryReportOffice.clear();
    DiaryReportReference = 0;
    DiaryReportTitle = QStringLiteral("Title");
    for (qint16* box : {&ClientRecordPersonal, &ClientRecordAdministration, &ClientRecordEmployment,
                        &ClientRecordBusiness, &ClientRecordAssets, &ClientRecordContributions,
                        &ClientRecordUser, &ClientRecordDiary}) {
        *box = 1;
    }
    AddressForLabels = 0;
    AddressForLetter = 0;
    AddressForMerge = 0;
    ReportShading = true;
    ReportScale = 100;
    ReportFont = QStringLiteral("Arial");
    ReportReverse = false;
    ReportTicks = 0;
    ReportPreview = 0;
    ReportPadding = false;
}

void setPageDefaults() {
    PWTemplate.clear();
    PWLeft = QStringLiteral("0");
    PWTop = QStringLiteral("0");
    PWWidth = QStringLiteral("196");
    PWHeight = QStringLiteral("279");
    PWResolution = QStringLiteral("100");
    PWSpacing = 0;
    PWZoom = QStringLiteral("30");
    PWBlack = 0;
    PWDark = 200;
    PWLight = 225;
    PWWhite = 255;
    PWSection = 0;
}

void setPrintEngineDefaults() {
    VSPrinter.clear();
    VSLeft = 0;
    VSTop = 0;
    VSScale = 100;
    VSPDFFolder.clear();
    VSPDFFileOption = 0;
    VSPDFFileName = QStringLiteral("Quillon");
    VSPDFLeft = 0;
    VSPDFTop = 0;
    VSPDFScale = 100;
    VSBlack = 0;
    VSDark = 200;
    VSLight = 225;
    VSWhite = 255;
    VSSection = 0;
    VSAlignTextMethod = 0;
    VSAlignTextX = 0;
    VSAlignTextY = 0;
    VSDuplexMode = 0;
}

void setAgentDefaults() {
    AgentName.clear();
    for (QString& line : AgentAddress) {
        line.clear();
    }
    AgentPostcode.clear();
    AgentTelephone.clear();
    AgentFax.clear();
    AgentEmail.clear();
    AgentCodes.clear();
    AgentStatements = 0;
}

}  // namespace

QString ConfigFilePath() {
    return ProgramFolder() + inFolder(QStringLiteral("\\quillon.ini"));
}

void SetDefaults() {
    setSlotDefaults();
    setWindowDefaults();
    setClientAndOfficeDefaults();
    setReportDefaults();
    setPageDefaults();
    setPrintEngineDefaults();
    setAgentDefaults();
    BackupWarning = 0;
    TaxOfficesUpdate = true;
    // DividendsUpdate is left alone: it keeps the value it started the run with.
}

void ReadConfiguration() {
    SetDefaults();
    QFile file(ConfigFilePath());
    if (!file.exists()) {
        WriteConfiguration();
        return;
    }
    if (!file.open(QIODevice::ReadOnly)) {
        return;
    }
    for (const QString& line : splitLines(FromCodePage(file.readAll()))) {
        readLine(line);
    }
}

// The whole text goes to a file beside the old one, which then takes its
// place: a crash in the middle leaves the old settings as they were.
void WriteConfiguration() {
    QByteArray text;
    openConfigText = &text;
    for (const Setting& setting : settings()) {
        WriteConfigLine(setting.key + QLatin1Char('=') + formatted(setting.target));
    }
    openConfigText = nullptr;
    QSaveFile file(ConfigFilePath());
    // A folder where only the file itself may be written still gets the settings.
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.commit()) {
        ReportError(QStringLiteral("basConfiguration"), QStringLiteral("WriteConfiguration"),
                    dao::DaoError(kErrPathFileAccess, QStringLiteral("Path/File access error")));
    }
}

void WriteConfigLine(const QString& text) {
    if (openConfigText) {
        openConfigText->append(ToCodePage(text + kEndOfLine));
    }
}

void ToggleSetting(bool& flag, QAction* menuItem) {
    flag = !flag;
    if (menuItem) {
        menuItem->setChecked(flag);
    }
    WriteConfiguration();
}

}  // namespace quillon
