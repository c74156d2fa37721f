#include "correspondence/letter_screen_gui.h"

#include "correspondence/correspondence_state.h"
#include "data/data_access.h"
#include "platform/services.h"
#include "platform/widgets_gui.h"
#include "shell/forms_gui.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace quillon {

namespace {

const char* const kInstructions[] = {
    "Edit the text, if required, then click on the Copy button",
    "to copy it to the Windows Clipboard.",
    "You may then paste the text into other Windows",
    "applications.",
};

}  // namespace

LetterScreen::LetterScreen(const LetterTexts& texts, QWidget* parent)
    : QWidget(parent), texts_(texts) {
    setObjectName(QLatin1String(texts.formName));
    setWindowTitle(QLatin1String(texts.caption));
    list_ = Named<QListWidget>(QLatin1String(texts.listName), this);
    txtHeading = Named<QPlainTextEdit>(QStringLiteral("txtHeading"), this);
    cm3Copy = Named<QPushButton>(QStringLiteral("cm3Copy"), tr("Co&py"), this);
    cm3Letter = Named<QPushButton>(QStringLiteral("cm3Letter"), tr("Standard &Letter"), this);
    cm3Close = Named<QPushButton>(QStringLiteral("cm3Close"), tr("&Close"), this);
    cm3Copy->setEnabled(false);

    auto* picking = new QVBoxLayout;
    picking->addLayout(MakeLetterButtons(this, QLatin1String(texts.seekName), seekButtons,
                                         [this](int i) { SeekLetter(i); }));
    picking->addWidget(list_, 1);
    choices_ = new QVBoxLayout;
    picking->addLayout(choices_);
    auto* heading = new QVBoxLayout;
    heading->addWidget(txtHeading, 1);
    for (const char* line : kInstructions) {
        heading->addWidget(new QLabel(QLatin1String(line), this));
    }
    auto* columns = new QHBoxLayout;
    columns->addLayout(picking, 1);
    columns->addLayout(heading, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(columns, 1);
    AddButtonRow(layout, {cm3Copy, cm3Letter, cm3Close});

    connect(list_, &QListWidget::itemClicked, this, [this] { ListClicked(); });
    connect(cm3Copy, &QPushButton::clicked, this, &LetterScreen::cm3Copy_Click);
    connect(cm3Letter, &QPushButton::clicked, this, &LetterScreen::cm3Letter_Click);
    connect(cm3Close, &QPushButton::clicked, this, &QWidget::close);
}

void LetterScreen::FillList(const QString& procedure, const char* title,
                            const std::function<QStringList()>& entries) {
    list_->clear();
    try {
        WaitPointer wait;
        list_->addItems(entries());
    } catch (const std::exception& error) {
        Report(procedure, error, title);
    }
}

void LetterScreen::Report(const QString& procedure, const std::exception& error,
                          const char* title) {
    MsgBox(ErrorReportText(QLatin1String(texts_.formName), procedure, DetailsOf(error)),
           vbExclamation, QLatin1String(title));
}

void LetterScreen::ShowHeading(const QString& heading) {
    txtHeading->setPlainText(
        QString(heading).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
    txtHeading->moveCursor(QTextCursor::End);
    cm3Copy->setEnabled(true);
    cm3Letter->setEnabled(false);
}

void LetterScreen::SeekLetter(int index) {
    const QChar letter(u'A' + index);
    const int row = FirstEntryBeginningWith(list_, letter);
    if (row < 0) {
        MsgBox(QLatin1String(texts_.noMatch) + letter, vbExclamation,
               QLatin1String(texts_.noMatchTitle));
        return;
    }
    list_->setCurrentRow(row);
    list_->scrollToItem(list_->item(row), QAbstractItemView::PositionAtTop);
    ListClicked();
}

void LetterScreen::cm3Copy_Click() {
    if (ClipboardService* clipboard = CurrentServices().clipboard) {
        clipboard->Clear();
        clipboard->SetText(txtHeading->toPlainText());
    }
    cm3Copy->setEnabled(false);
    cm3Letter->setEnabled(true);
    list_->setFocus();
}

void LetterScreen::cm3Letter_Click() {
    cm3Copy->setEnabled(false);
    LetterKind = texts_.letterKind;
    ShowModal(QStringLiteral("frmStandardLetter"));
}

}  // namespace quillon
