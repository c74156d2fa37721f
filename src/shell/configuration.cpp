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
#include <functional>
#include <limits>
#include <optional>
#include <variant>
#include <vector>

namespace quillon {

namespace {

using Target = std::variant<bool*, qint16*, qint32*, quint8*, double*, QString*>;

// A setting's default: the text the file would hold for it, made when the
// defaults are set; an empty one leaves the variable as it is.
using Default = std::function<QString()>;

Default text(const char* value) {
    return [value] { return QString::fromLatin1(value); };
}

struct Setting {
    QString key;
    Target target;
    Default fallback;
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

QSize screenSizeInTwips();

QString screenWidth() {
    return QString::number(screenSizeInTwips().width());
}

QString screenHeight() {
    return QString::number(screenSizeInTwips().height());
}

// Letters 1 to 9 are named and filed by their number; letter 0 is empty.
Default letterName(const char* prefix, int n) {
    return [prefix, n] { return n == 0 ? QString() : numbered(prefix, n); };
}

Default letterFile(const char* prefix, int n) {
    return [prefix, n] {
        return n == 0 ? QString()
                      : ProgramFolder() + inFolder(numbered(prefix, n) + QStringLiteral(".wri"));
    };
}

// Every setting in the order of the file, with its default.
std::vector<Setting> buildSettings() {
    std::vector<Setting> list;
    auto add = [&list](const QString& key, Target target, Default fallback) {
        list.push_back({key, target, std::move(fallback)});
    };
    auto fixed = [&add](const char* key, Target target, const char* value) {
        add(QString::fromLatin1(key), target, text(value));
    };
    for (int n = 1; n <= kDatabaseSlots; ++n) {
        add(numbered("FILE ", n), &DatabaseTitle[n], text(n == 1 ? "Default Database" : ""));
    }
    for (int n = 1; n <= kDatabaseSlots; ++n) {
        add(numbered("PATH ", n), &DatabaseFolder[n], n == 1 ? Default(ProgramFolder) : text(""));
    }
    fixed("SELECTED FILE", &SelectedFile, "1");
    fixed("VIEW TOOLBAR", &ViewToolbar, "True");
    fixed("VIEW STATUS BAR", &ViewStatusBar, "True");
    fixed("VIEW TOOLTIPS", &ViewTooltips, "True");
    fixed("APPLICATION MAXIMISED", &ApplicationMaximised, "True");
    fixed("APPLICATION TOP", &ApplicationTop, "0");
    fixed("APPLICATION LEFT", &ApplicationLeft, "0");
    add(QStringLiteral("APPLICATION HEIGHT"), &ApplicationHeight, screenHeight);
    add(QStringLiteral("APPLICATION WIDTH"), &ApplicationWidth, screenWidth);
    fixed("USE QUOTES", &UseQuotes, "True");
    fixed("FIELD DELIMITER", &FieldDelimiter, ",");
    fixed("CURRENT FIRST", &CurrentFirst, "A.");
    fixed("CURRENT LAST", &CurrentLast, "Sample");
    fixed("DIARY PAGE", &DiaryPage, "1");
    fixed("CURRENT OFFICE NAME", &CurrentOfficeName, "Accounts Office Cumbernauld");
    fixed("CURRENT OFFICE NUMBER", &CurrentOfficeNumber, "902");
    for (int n = 0; n < kStandardLetters; ++n) {
        add(numbered("CLIENT LETTER ", n), &ClientLetter[n], letterName("Client Letter ", n));
        add(numbered("CLIENT LETTER FILE ", n), &ClientLetterFile[n], letterFile("\\CLetter", n));
    }
    for (int n = 0; n < kStandardLetters; ++n) {
        add(numbered("TAX OFFICE LETTER ", n), &TaxOfficeLetter[n],
            letterName("Tax Office Letter ", n));
        add(numbered("TAX OFFICE LETTER FILE ", n), &TaxOfficeLetterFile[n],
            letterFile("\\OLetter", n));
    }
    fixed("WORD FOLDER", &WordFolder, "");
    fixed("WP FOLDER", &WPFolder, "C:\\Program Files\\Accessories");
    fixed("TAX YEAR", &TaxYear, "2015");
    fixed("CURRENT COMPANY", &CurrentCompany, "3i Group PLC");
    fixed("CURRENT STOCK", &CurrentStock, "Ordinary 50p");
    fixed("CURRENT FID", &CurrentFID, "False");
    fixed("DIARY REPORT PARTNER", &DiaryReportPartner, "");
    fixed("DIARY REPORT MANAGER", &DiaryReportManager, "");
    fixed("DIARY REPORT ASSISTANT", &DiaryReportAssistant, "");
    fixed("DIARY REPORT OFFICE", &DiaryReportOffice, "");
    fixed("DIARY REPORT REFERENCE", &DiaryReportReference, "0");
    fixed("DIARY REPORT TITLE", &DiaryReportTitle, "Title");
    fixed("CLIENT RECORD PERSONAL", &ClientRecordPersonal, "1");
    fixed("CLIENT RECORD ADMINISTRATION", &ClientRecordAdministration, "1");
    fixed("CLIENT RECORD EMPLOYMENT", &ClientRecordEmployment, "1");
    fixed("CLIENT RECORD BUSINESS", &ClientRecordBusiness, "1");
    fixed("CLIENT RECORD ASSETS", &ClientRecordAssets, "1");
    fixed("CLIENT RECORD CONTRIBUTIONS", &ClientRecordContributions, "1");
    fixed("CLIENT RECORD USER", &ClientRecordUser, "1");
    fixed("CLIENT RECORD DIARY", &ClientRecordDiary, "1");
    fixed("ADDRESS FOR LABELS", &AddressForLabels, "0");
    fixed("ADDRESS FOR LETTER", &AddressForLetter, "0");
    fixed("ADDRESS FOR MERGE", &AddressForMerge, "0");
    fixed("REPORT SHADING", &ReportShading, "True");
    fixed("REPORT SCALE", &ReportScale, "100");
    fixed("REPORT FONT", &ReportFont, "Arial");
    fixed("REPORT REVERSE", &ReportReverse, "False");
    fixed("REPORT TICKS", &ReportTicks, "0");
    fixed("REPORT PREVIEW", &ReportPreview, "0");
    fixed("REPORT PADDING", &ReportPadding, "False");
    fixed("PW TEMPLATE", &PWTemplate, "");
    fixed("PW LEFT", &PWLeft, "0");
    fixed("PW TOP", &PWTop, "0");
    fixed("PW WIDTH", &PWWidth, "196");
    fixed("PW HEIGHT", &PWHeight, "279");
    fixed("PW RESOLUTION", &PWResolution, "100");
    fixed("PW SPACING", &PWSpacing, "0");
    fixed("PW ZOOM", &PWZoom, "30");
    fixed("PW BLACK", &PWBlack, "0");
    fixed("PW DARK", &PWDark, "200");
    fixed("PW LIGHT", &PWLight, "225");
    fixed("PW WHITE", &PWWhite, "255");
    fixed("PW SECTION", &PWSection, "0");
    // Written but never read back: the printer is chosen afresh at each start.
    list.push_back({QStringLiteral("VS PRINTER"), &VSPrinter, text(""), false});
    fixed("VS LEFT", &VSLeft, "0");
    fixed("VS TOP", &VSTop, "0");
    fixed("VS SCALE", &VSScale, "100");
    fixed("VS PDF FOLDER", &VSPDFFolder, "");
    fixed("VS PDF FILE OPTION", &VSPDFFileOption, "0");
    fixed("VS PDF FILE NAME", &VSPDFFileName, "Quillon");
    fixed("VS PDF LEFT", &VSPDFLeft, "0");
    fixed("VS PDF TOP", &VSPDFTop, "0");
    fixed("VS PDF SCALE", &VSPDFScale, "100");
    fixed("VS BLACK", &VSBlack, "0");
    fixed("VS DARK", &VSDark, "200");
    fixed("VS LIGHT", &VSLight, "225");
    fixed("VS WHITE", &VSWhite, "255");
    fixed("VS SECTION", &VSSection, "0");
    fixed("VS PREVIEW MAXIMISED", &VSPreviewMaximised, "True");
    fixed("VS PREVIEW TOP", &VSPreviewTop, "0");
    fixed("VS PREVIEW LEFT", &VSPreviewLeft, "0");
    add(QStringLiteral("VS PREVIEW HEIGHT"), &VSPreviewHeight, screenHeight);
    add(QStringLiteral("VS PREVIEW WIDTH"), &VSPreviewWidth, screenWidth);
    fixed("VS ALIGN TEXT METHOD", &VSAlignTextMethod, "0");
    fixed("VS ALIGN TEXT X", &VSAlignTextX, "0");
    fixed("VS ALIGN TEXT Y", &VSAlignTextY, "0");
    fixed("VS DUPLEX MODE", &VSDuplexMode, "0");
    fixed("AGENT NAME", &AgentName, "");
    for (int n = 1; n <= kAgentAddressLines; ++n) {
        add(numbered("AGENT ADDRESS ", n), &AgentAddress[n], text(""));
    }
    fixed("AGENT POSTCODE", &AgentPostcode, "");
    fixed("AGENT TELEPHONE", &AgentTelephone, "");
    fixed("AGENT FAX", &AgentFax, "");
    fixed("AGENT EMAIL", &AgentEmail, "");
    fixed("AGENT CODES", &AgentCodes, "");
    fixed("AGENT STATEMENTS", &AgentStatements, "0");
    fixed("BACKUP WARNING", &BackupWarning, "0");
    fixed("TAX OFFICES UPDATE", &TaxOfficesUpdate, "True");
    // No default on purpose: it keeps the value it started the run with.
    add(QStringLiteral("DIVIDENDS UPDATE"), &DividendsUpdate, nullptr);
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

// The SCREEN size of the defaults.
QSize screenSizeInTwips() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (!screen) {
        return {};
    }
    return {PixelsToTwips(screen->size().width()), PixelsToTwips(screen->size().height())};
}

}  // namespace

QString ConfigFilePath() {
    return ProgramFolder() + inFolder(QStringLiteral("\\quillon.ini"));
}

void SetDefaults() {
    for (const Setting& setting : settings()) {
        if (setting.fallback) {
            store(setting.target, setting.fallback());
        }
    }
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
