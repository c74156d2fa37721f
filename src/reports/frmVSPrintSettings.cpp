#include "reports/frmVSPrintSettings.h"

#include "data/convert.h"
#include "platform/services.h"
#include "platform/widgets_gui.h"
#include "reports/key_filter_gui.h"
#include "reports/vsprint.h"
#include "shell/variables.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QTabBar>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <limits>

namespace quillon {

namespace {

const QString kDigits = QStringLiteral("0123456789");
const QString kOffsetKeys = kDigits + QStringLiteral("-");
const QString kFractionKeys = kDigits + QStringLiteral(".-");
const QString kFileNameRefused = QStringLiteral("\\/:*?<>");
const QString kArial = QStringLiteral("Arial");
const QString kTimesNewRoman = QStringLiteral("Times New Roman");

QRadioButton* MakeOption(const QString& name, const QString& caption, QWidget* parent) {
    auto* option = Named<QRadioButton>(name, caption, parent);
    return option;
}

QGroupBox* MakeFrame(const QString& caption, QWidget* parent) {
    auto* frame = new QGroupBox(caption, parent);
    new QVBoxLayout(frame);
    return frame;
}

// A frame of option buttons, one per caption, named name(0), name(1)...
template <size_t N>
QGroupBox* OptionFrame(const QString& caption, const QString& name,
                       const std::array<QString, N>& captions,
                       std::array<QRadioButton*, N>& options, QWidget* parent) {
    QGroupBox* frame = MakeFrame(caption, parent);
    for (size_t i = 0; i < N; ++i) {
        if (captions[i].isEmpty()) {
            continue;
        }
        options[i] = MakeOption(QStringLiteral("%1(%2)").arg(name).arg(i), captions[i], frame);
        frame->layout()->addWidget(options[i]);
    }
    return frame;
}

qint16 ToInt16(double value) {
    const double rounded = std::nearbyint(value);
    return static_cast<qint16>(std::clamp(rounded, double(std::numeric_limits<qint16>::min()),
                                          double(std::numeric_limits<qint16>::max())));
}

void SetChecked(QRadioButton* option) {
    if (option != nullptr) {
        option->setChecked(true);
    }
}

QString NumberText(double value) {
    return QString::number(value);
}

}  // namespace

frmVSPrintSettings::frmVSPrintSettings(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmVSPrintSettings"));
    setWindowTitle(QStringLiteral("Report Settings"));
    tbsSettings = Named<QTabBar>(QStringLiteral("tbsSettings"), this);
    for (const char* tab : {"Document", "Print", "Files", "Messages"}) {
        tbsSettings->addTab(QString::fromLatin1(tab));
    }
    panels = new QStackedWidget(this);
    // picSettings(0) to picSettings(3), one a tab.
    picSettings = {BuildDocumentPanel(), BuildPrintPanel(), BuildFilesPanel(),
                   BuildMessagesPanel()};
    for (size_t i = 0; i < picSettings.size(); ++i) {
        picSettings[i]->setObjectName(QStringLiteral("picSettings(%1)").arg(i));
        panels->addWidget(picSettings[i]);
    }
    cmdDefaults =
        Named<QPushButton>(QStringLiteral("cmdDefaults"), QStringLiteral("&Defaults"), this);
    cmdClose = Named<QPushButton>(QStringLiteral("cmdClose"), QStringLiteral("&Close"), this);
    cmdClose->setDefault(true);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdDefaults);
    buttons->addWidget(cmdClose);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tbsSettings);
    layout->addWidget(panels, 1);
    layout->addLayout(buttons);

    tbsSettings_Click();
    FillPrinters();
    ShowSettings();
    connect(tbsSettings, &QTabBar::currentChanged, this, &frmVSPrintSettings::tbsSettings_Click);
    connect(cmdSetup, &QPushButton::clicked, this, &frmVSPrintSettings::cmdSetup_Click);
    connect(cmdDefaults, &QPushButton::clicked, this, &frmVSPrintSettings::cmdDefaults_Click);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::close);
}

QLineEdit* frmVSPrintSettings::MakeBox(const QString& name, QWidget* parent) {
    auto* box = Named<QLineEdit>(name, parent);
    return box;
}

QGroupBox* frmVSPrintSettings::BuildPageSetup(QWidget* parent, QLineEdit** left, QLineEdit** top,
                                              QLineEdit** scale, const QString& prefix) {
    auto* frame = new QGroupBox(QStringLiteral("Page Setup"), parent);
    auto* form = new QFormLayout(frame);
    *left = MakeBox(QStringLiteral("txt%1Left").arg(prefix), frame);
    *top = MakeBox(QStringLiteral("txt%1Top").arg(prefix), frame);
    *scale = MakeBox(QStringLiteral("txt%1Scale").arg(prefix), frame);
    form->addRow(QStringLiteral("Left Offset (mm)"), *left);
    form->addRow(QStringLiteral("Top Offset (mm)"), *top);
    form->addRow(QStringLiteral("Scale (%)"), *scale);
    CharacterFilter::Install(*left, kOffsetKeys);
    CharacterFilter::Install(*top, kOffsetKeys);
    CharacterFilter::Install(*scale, kDigits);
    ClampOnLeaving(*left, -9, 9);
    ClampOnLeaving(*top, -9, 9);
    ClampOnLeaving(*scale, 90, 110);
    return frame;
}

QWidget* frmVSPrintSettings::BuildPrintPanel() {
    auto* panel = new QWidget(this);
    QGroupBox* printer = MakeFrame(QStringLiteral("Printer"), panel);
    cmbPrinter = Named<QComboBox>(QStringLiteral("cmbPrinter"), printer);
    cmdSetup =
        Named<QPushButton>(QStringLiteral("cmdSetup"), QStringLiteral("Printer &Setup"), printer);
    printer->layout()->addWidget(cmbPrinter);
    printer->layout()->addWidget(cmdSetup);
    auto* layout = new QVBoxLayout(panel);
    layout->addWidget(printer);
    layout->addWidget(BuildPageSetup(panel, &txtVSLeft, &txtVSTop, &txtVSScale, "VS"));
    layout->addWidget(
        OptionFrame<3>(QStringLiteral("Duplex"), QStringLiteral("optDuplexMode"),
                       {QStringLiteral("Printer default"), QStringLiteral("Single-sided"),
                        QStringLiteral("Double-sided")},
                       optDuplexMode, panel));
    layout->addStretch(1);
    return panel;
}

QWidget* frmVSPrintSettings::BuildFilesPanel() {
    auto* panel = new QWidget(this);
    QGroupBox* fileName = OptionFrame<2>(
        QStringLiteral("Default File Name"), QStringLiteral("optFile"),
        {QStringLiteral("Client File Name"), QStringLiteral("Fixed As:")}, optFile, panel);
    txtFile = MakeBox(QStringLiteral("txtFile"), fileName);
    fileName->layout()->addWidget(txtFile);
    CharacterFilter::InstallRefusing(txtFile, kFileNameRefused);
    auto* layout = new QVBoxLayout(panel);
    layout->addWidget(BuildPageSetup(panel, &txtPDFLeft, &txtPDFTop, &txtPDFScale, "PDF"));
    layout->addWidget(fileName);
    layout->addStretch(1);
    return panel;
}

QWidget* frmVSPrintSettings::BuildDocumentPanel() {
    auto* panel = new QWidget(this);
    auto* grid = new QGridLayout(panel);
    grid->addWidget(OptionFrame<2>(QStringLiteral("Font"), QStringLiteral("optFont"),
                                   {kTimesNewRoman, kArial}, optFont, panel),
                    0, 0);
    grid->addWidget(
        OptionFrame<2>(QStringLiteral("Preview"), QStringLiteral("optPreview"),
                       {QStringLiteral("Normal"), QStringLiteral("PDF File")}, optPreview, panel),
        0, 1);
    grid->addWidget(
        OptionFrame<2>(QStringLiteral("Section Breaks"), QStringLiteral("optSection"),
                       {QStringLiteral("None"), QStringLiteral("Document")}, optSection, panel),
        1, 0);
    grid->addWidget(OptionFrame<3>(QStringLiteral("Ticks"), QStringLiteral("optTicks"),
                                   {QStringLiteral("Normal"), QString(), QStringLiteral("Blank")},
                                   optTicks, panel),
                    1, 1);
    auto* shading = new QGroupBox(QStringLiteral("Shading"), panel);
    auto* greys = new QFormLayout(shading);
    chkShading =
        Named<QCheckBox>(QStringLiteral("chkShading"), QStringLiteral("Use Shading"), shading);
    greys->addRow(chkShading);
    const std::array<std::pair<QLineEdit**, const char*>, 4> greyBoxes{{{&txtBlack, "Black"},
                                                                        {&txtDark, "Dark Grey"},
                                                                        {&txtLight, "Light Grey"},
                                                                        {&txtWhite, "White"}}};
    for (const auto& [box, caption] : greyBoxes) {
        const QString label = QString::fromLatin1(caption);
        *box = MakeBox(QStringLiteral("txt") + label.split(' ').first(), shading);
        greys->addRow(label, *box);
        CharacterFilter::Install(*box, kDigits);
        ClampOnLeaving(*box, 0, 255);
    }
    grid->addWidget(shading, 2, 0);
    auto* alignment = new QGroupBox(QStringLiteral("Text Alignment"), panel);
    auto* align = new QFormLayout(alignment);
    txtAlignMethod = MakeBox(QStringLiteral("txtAlignMethod"), alignment);
    txtAlignH = MakeBox(QStringLiteral("txtAlignH"), alignment);
    txtAlignV = MakeBox(QStringLiteral("txtAlignV"), alignment);
    align->addRow(QStringLiteral("Method"), txtAlignMethod);
    align->addRow(QStringLiteral("Horizontal"), txtAlignH);
    align->addRow(QStringLiteral("Vertical"), txtAlignV);
    CharacterFilter::Install(txtAlignMethod, kDigits);
    CharacterFilter::Install(txtAlignH, kFractionKeys);
    CharacterFilter::Install(txtAlignV, kFractionKeys);
    grid->addWidget(alignment, 2, 1);
    chkDuplexPadding =
        Named<QCheckBox>(QStringLiteral("chkDuplexPadding"),
                         QStringLiteral("Insert padding pages for duplex printing"), panel);
    grid->addWidget(chkDuplexPadding, 3, 0, 1, 2);
    return panel;
}

QWidget* frmVSPrintSettings::BuildMessagesPanel() {
    auto* panel = new QWidget(this);
    QGroupBox* opening = MakeFrame(QStringLiteral("Opening Client"), panel);
    Chkdefaultchildbenefit =
        Named<QCheckBox>(QStringLiteral("Chkdefaultchildbenefit"),
                         QStringLiteral("Disable Child Benefit information message"), opening);
    opening->layout()->addWidget(Chkdefaultchildbenefit);
    auto* layout = new QVBoxLayout(panel);
    layout->addWidget(opening);
    layout->addStretch(1);
    return panel;
}

void frmVSPrintSettings::ClampOnLeaving(QLineEdit* box, int lowest, int highest) {
    clamps_.push_back({box, lowest, highest});
    box->installEventFilter(this);
}

bool frmVSPrintSettings::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusOut) {
        for (const Clamp& clamp : clamps_) {
            if (clamp.box == watched) {
                // Read as a whole number: a fraction is lost here.
                const auto value =
                    static_cast<int>(std::clamp(std::trunc(Val(clamp.box->text())),
                                                double(clamp.lowest), double(clamp.highest)));
                clamp.box->setText(QString::number(value));
            }
        }
    }
    return QDialog::eventFilter(watched, event);
}

void frmVSPrintSettings::tbsSettings_Click() {
    panels->setCurrentIndex(tbsSettings->currentIndex());
}

void frmVSPrintSettings::FillPrinters() {
    const VSPrinterControl& control = VSDocumentControl();
    for (int i = 0; i < control.NDevices(); ++i) {
        cmbPrinter->addItem(control.Devices(i));
    }
    SelectPrinter(VSPrinter);
}

void frmVSPrintSettings::SelectPrinter(const QString& name) {
    const int index = cmbPrinter->findText(name, Qt::MatchExactly | Qt::MatchCaseSensitive);
    cmbPrinter->setCurrentIndex(std::max(index, 0));
}

void frmVSPrintSettings::ShowSettings() {
    txtVSLeft->setText(NumberText(VSLeft));
    txtVSTop->setText(NumberText(VSTop));
    txtVSScale->setText(NumberText(VSScale));
    SetChecked(optDuplexMode[std::clamp<int>(VSDuplexMode, 0, 2)]);
    txtPDFLeft->setText(NumberText(VSPDFLeft));
    txtPDFTop->setText(NumberText(VSPDFTop));
    txtPDFScale->setText(NumberText(VSPDFScale));
    SetChecked(optFile[VSPDFFileOption == 1 ? 1 : 0]);
    txtFile->setText(VSPDFFileName);
    SetChecked(optFont[ReportFont == kArial ? 1 : 0]);
    SetChecked(optPreview[ReportPreview == 1 ? 1 : 0]);
    SetChecked(optSection[VSSection == 1 ? 1 : 0]);
    SetChecked(optTicks[ReportTicks == 2 ? 2 : 0]);
    chkShading->setChecked(ReportShading);
    txtBlack->setText(QString::number(VSBlack));
    txtDark->setText(QString::number(VSDark));
    txtLight->setText(QString::number(VSLight));
    txtWhite->setText(QString::number(VSWhite));
    chkDuplexPadding->setChecked(ReportPadding);
    txtAlignMethod->setText(QString::number(VSAlignTextMethod));
    txtAlignH->setText(NumberText(VSAlignTextX));
    txtAlignV->setText(NumberText(VSAlignTextY));
    Chkdefaultchildbenefit->setChecked(DisableChildBenefitMessage);
}

void frmVSPrintSettings::StoreSettings() {
    VSPrinter = cmbPrinter->currentText();
    VSLeft = Val(txtVSLeft->text());
    VSTop = Val(txtVSTop->text());
    VSScale = Val(txtVSScale->text());
    VSDuplexMode = optDuplexMode[2]->isChecked() ? 2 : optDuplexMode[1]->isChecked() ? 1 : 0;
    VSPDFLeft = Val(txtPDFLeft->text());
    VSPDFTop = Val(txtPDFTop->text());
    VSPDFScale = Val(txtPDFScale->text());
    VSPDFFileOption = optFile[1]->isChecked() ? 1 : 0;
    VSPDFFileName = txtFile->text().trimmed();
    ReportFont = optFont[1]->isChecked() ? kArial : kTimesNewRoman;
    ReportPreview = optPreview[1]->isChecked() ? 1 : 0;
    VSSection = optSection[1]->isChecked() ? 1 : 0;
    ReportTicks = optTicks[2]->isChecked() ? 2 : 0;
    ReportShading = chkShading->isChecked();
    VSBlack = ToInt16(Val(txtBlack->text()));
    VSDark = ToInt16(Val(txtDark->text()));
    VSLight = ToInt16(Val(txtLight->text()));
    VSWhite = ToInt16(Val(txtWhite->text()));
    ReportPadding = chkDuplexPadding->isChecked();
    VSAlignTextMethod = ToInt16(Val(txtAlignMethod->text()));
    VSAlignTextX = Val(txtAlignH->text());
    VSAlignTextY = Val(txtAlignV->text());
    DisableChildBenefitMessage = Chkdefaultchildbenefit->isChecked();
}

void frmVSPrintSettings::cmdSetup_Click() {
    QPrinter printer;
    const QString chosen = cmbPrinter->currentText();
    if (!QPrinterInfo::printerInfo(chosen).isNull()) {
        printer.setPrinterName(chosen);
    }
    QPrintDialog cdgSetup(&printer, this);
    cdgSetup.setObjectName(QStringLiteral("cdgSetup"));
    cdgSetup.setOption(QAbstractPrintDialog::PrintToFile, false);
    cdgSetup.setWindowTitle(QStringLiteral("Print Setup"));
    if (cdgSetup.exec() == QDialog::Accepted && printer.outputFormat() == QPrinter::NativeFormat) {
        SelectPrinter(printer.printerName());
    }
}

void frmVSPrintSettings::cmdDefaults_Click() {
    const int answer =
        MsgBox(QStringLiteral("All current Report Settings will be replaced with their defaults.") +
                   QStringLiteral("\n\n") + QStringLiteral("Do you wish to proceed?"),
               vbYesNo | vbQuestion | vbDefaultButton2, QStringLiteral("Report Settings"));
    if (answer != vbYes) {
        return;
    }
    SelectPrinter(VSGetDefaultPrinter());
    for (QLineEdit* offset : {txtVSLeft, txtVSTop, txtPDFLeft, txtPDFTop}) {
        offset->setText(QStringLiteral("0"));
    }
    txtVSScale->setText(QStringLiteral("100"));
    txtPDFScale->setText(QStringLiteral("100"));
    optFile[0]->setChecked(true);
    txtFile->setText(QStringLiteral("Quillon"));
    txtBlack->setText(QStringLiteral("0"));
    txtDark->setText(QStringLiteral("200"));
    txtLight->setText(QStringLiteral("225"));
    txtWhite->setText(QStringLiteral("255"));
    for (QLineEdit* align : {txtAlignMethod, txtAlignH, txtAlignV}) {
        align->setText(QStringLiteral("0"));
    }
    chkShading->setChecked(true);
    for (QRadioButton* first :
         {optFont[0], optTicks[0], optSection[0], optPreview[0], optDuplexMode[0]}) {
        first->setChecked(true);
    }
    chkDuplexPadding->setChecked(false);
    Chkdefaultchildbenefit->setChecked(false);
}

void frmVSPrintSettings::done(int result) {
    if (!unloaded_) {
        unloaded_ = true;
        StoreSettings();
    }
    QDialog::done(result);
}

void ShowReportSettings(QWidget* parent) {
    frmVSPrintSettings settings(parent);
    settings.exec();
}

}  // namespace quillon
