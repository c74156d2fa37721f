#include "correspondence/frmStandardLetter.h"

#include "correspondence/external_programs.h"
#include "platform/services.h"
#include "platform/widgets_gui.h"

#include <QDir>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace quillon {

namespace {

// The settings the rows show: the client letters or the tax office letters.
std::array<QString, kStandardLetters>& Descriptions() {
    return LetterKind == 2 ? TaxOfficeLetter : ClientLetter;
}
std::array<QString, kStandardLetters>& Files() {
    return LetterKind == 2 ? TaxOfficeLetterFile : ClientLetterFile;
}

// What the find dialogs name the word processors by.
#ifdef Q_OS_WIN
const char* const kWordKind = "Microsoft Word|";
const char* const kWordPadKind = "WordPad|";
#else
const char* const kWordKind = "LibreOffice Writer|";
const char* const kWordPadKind = "Desktop opener|";
#endif

}  // namespace

frmStandardLetter::frmStandardLetter(QWidget* parent) : QDialog(parent) {
    setObjectName(QString::fromLatin1(kFormName));
    setWindowTitle(tr("Standard Letters"));
    auto* grid = new QGridLayout;
    grid->addWidget(new QLabel(tr("Description"), this), 0, 0);
    grid->addWidget(new QLabel(tr("File"), this), 0, 1);
    AddLetterRows(grid);

    txtWordFolder = Named<QLineEdit>(QStringLiteral("txtWordFolder"), WordFolder, this);
    txtWordPadFolder = Named<QLineEdit>(QStringLiteral("txtWordPadFolder"), WPFolder, this);
    cmdFindWord = Named<QPushButton>(QStringLiteral("cmdFindWord"), tr("Find..."), this);
    cmdFindWordPad = Named<QPushButton>(QStringLiteral("cmdFindWordPad"), tr("Find..."), this);
    const int folders = kStandardLetters + 1;
    grid->addWidget(new QLabel(tr("Word folder"), this), folders, 0);
    grid->addWidget(txtWordFolder, folders, 1);
    grid->addWidget(cmdFindWord, folders, 2);
    grid->addWidget(new QLabel(tr("WordPad folder"), this), folders + 1, 0);
    grid->addWidget(txtWordPadFolder, folders + 1, 1);
    grid->addWidget(cmdFindWordPad, folders + 1, 2);
    cmdCancel = Named<QPushButton>(QStringLiteral("cmdCancel"), tr("&Close"), this);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    AddButtonRow(layout, {cmdCancel});

    connect(txtWordFolder, &QLineEdit::textChanged, this,
            [](const QString& text) { WordFolder = text; });
    connect(txtWordPadFolder, &QLineEdit::textChanged, this,
            [](const QString& text) { WPFolder = text; });
    connect(cmdFindWord, &QPushButton::clicked, this, &frmStandardLetter::cmdFindWord_Click);
    connect(cmdFindWordPad, &QPushButton::clicked, this, &frmStandardLetter::cmdFindWordPad_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    EnableOpenButtons();
}

void frmStandardLetter::AddLetterRows(QGridLayout* grid) {
    for (int i = 0; i < kStandardLetters; ++i) {
        const QString index = QStringLiteral("(%1)").arg(i);
        txtDescription[i] = Named<QLineEdit>("txtDescription" + index, Descriptions()[i], this);
        txtFile[i] = Named<QLineEdit>("txtFile" + index, Files()[i], this);
        cmdSelect[i] = Named<QPushButton>("cmdSelect" + index, tr("Select"), this);
        cmdOpen[i] = Named<QPushButton>("cmdOpen" + index, tr("Open"), this);
        grid->addWidget(txtDescription[i], i + 1, 0);
        grid->addWidget(txtFile[i], i + 1, 1);
        grid->addWidget(cmdSelect[i], i + 1, 2);
        grid->addWidget(cmdOpen[i], i + 1, 3);
        connect(txtDescription[i], &QLineEdit::textChanged, this,
                [i](const QString& text) { Descriptions()[i] = text; });
        connect(txtFile[i], &QLineEdit::textChanged, this, [this, i](const QString& text) {
            Files()[i] = text;
            EnableOpenButtons();
        });
        connect(cmdSelect[i], &QPushButton::clicked, this, [this, i] { cmdSelect_Click(i); });
        connect(cmdOpen[i], &QPushButton::clicked, this, [this, i] { cmdOpen_Click(i); });
    }
}

void frmStandardLetter::EnableOpenButtons() {
    for (int i = 0; i < kStandardLetters; ++i) {
        cmdOpen[i]->setEnabled(!txtFile[i]->text().isEmpty());
    }
}

void frmStandardLetter::cmdSelect_Click(int index) {
    const QString file = OpenFileName(tr("Select a file"), QFileInfo(txtFile[index]->text()).path(),
                                      DialogFilter(QStringLiteral("All Files|*.*")));
    if (!file.isEmpty()) {
        txtFile[index]->setText(file);
    }
}

void frmStandardLetter::FindProgram(QLineEdit* folder, const QString& program,
                                    const QString& kind) {
    const QString file = OpenFileName(QStringLiteral("Find ") + program, folder->text(),
                                      DialogFilter(kind + program));
    if (file.isEmpty()) {
        return;
    }
    if (QFileInfo(file).fileName().toUpper() != program.toUpper()) {
        MsgBox(QStringLiteral("You must select the file ") + program, vbExclamation,
               QStringLiteral("Quillon"));
        return;
    }
    folder->setText(QDir::toNativeSeparators(QFileInfo(file).absolutePath()));
}

void frmStandardLetter::cmdFindWord_Click() {
    FindProgram(txtWordFolder, WordProgramName(), QLatin1String(kWordKind));
}

void frmStandardLetter::cmdFindWordPad_Click() {
    FindProgram(txtWordPadFolder, WordPadProgramName(), QLatin1String(kWordPadKind));
}

// The letter goes to the word processor by its file name alone; the heading
// travels by the clipboard.
void frmStandardLetter::cmdOpen_Click(int index) {
    const QString file = txtFile[index]->text();
    accept();
    OpenInWordProcessor(file);
}

}  // namespace quillon
