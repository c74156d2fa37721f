#include "correspondence/name_picker_gui.h"

#include "correspondence/address_choice_gui.h"
#include "data/data_access.h"
#include "platform/services.h"
#include "platform/widgets_gui.h"
#include "shell/frmQuillon.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include <exception>

namespace quillon {

NamePicker::NamePicker(const PickerTexts& texts, QWidget* parent) : QWidget(parent), texts_(texts) {
    setObjectName(QLatin1String(texts.formName));
    setWindowTitle(QLatin1String(texts.caption));
    list_ = Named<QListWidget>(QLatin1String(texts.listName), this);
    list_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    pnlCount = Named<QLabel>(QStringLiteral("pnlCount"), this);
    pnlSelected = Named<QLabel>(QStringLiteral("pnlSelected"), this);
    cm3Help = Named<QPushButton>(QStringLiteral("cm3Help"), tr("&Help"), this);
    cm3Close = Named<QPushButton>(QStringLiteral("cm3Close"), tr("&Close"), this);

    auto* counts = new QHBoxLayout;
    counts->addWidget(pnlCount);
    counts->addWidget(pnlSelected);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(MakeLetterButtons(this, QStringLiteral("cm3Seek"), cm3Seek,
                                        [this](int i) { cm3Seek_Click(i); }));
    layout->addWidget(list_, 1);
    layout->addLayout(counts);
    options_ = new QVBoxLayout;
    layout->addLayout(options_);
    buttons_ = new QHBoxLayout;
    buttons_->addStretch();
    buttons_->addWidget(cm3Help);
    buttons_->addWidget(cm3Close);
    layout->addLayout(buttons_);

    connect(list_, &QListWidget::itemSelectionChanged, this, &NamePicker::ShowSelectedCount);
    connect(cm3Help, &QPushButton::clicked, this, &NamePicker::cm3Help_Click);
    connect(cm3Close, &QPushButton::clicked, this, &QWidget::close);
}

void NamePicker::AddCommand(QPushButton* command) {
    buttons_->insertWidget(buttons_->indexOf(cm3Close), command);
}

void NamePicker::AddAddressChoice(qint16& setting) {
    options_->addWidget(MakeAddressChoice(this, setting));
}

void NamePicker::ReportFailure(const QString& procedure, const ErrorDetails& error,
                               const char* title) {
    MsgBox(ErrorReportText(QLatin1String(texts_.formName), procedure, error), vbExclamation,
           QLatin1String(title));
}

void ShowRecordProgress(int number) {
    SetProgressText(QStringLiteral("PROCESSING DATABASE RECORD ") + QString::number(number));
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void NamePicker::Form_Load() {
    WaitPointer wait;
    try {
        list_->addItems(LoadEntries());
    } catch (const std::exception& error) {
        ReportFailure(QStringLiteral("Form_Load"), DetailsOf(error), texts_.errorTitle);
    }
    if (list_->count() > 0) {
        list_->setCurrentRow(0);
    }
    pnlCount->setText(QString::number(list_->count()) + QLatin1String(texts_.countSuffix));
    ShowSelectedCount();
}

void NamePicker::ShowSelectedCount() {
    pnlSelected->setText(QString::number(list_->selectedItems().size()) +
                         QStringLiteral(" selected"));
}

QStringList NamePicker::SelectedEntries() const {
    QStringList entries;
    for (int row = 0; row < list_->count(); ++row) {
        if (list_->item(row)->isSelected()) {
            entries << list_->item(row)->text();
        }
    }
    return entries;
}

void NamePicker::cm3Seek_Click(int index) {
    const int row = RowForLetter(list_, index, QLatin1String(texts_.noMatch),
                                 QLatin1String(texts_.noMatchTitle));
    if (row < 0) {
        return;
    }
    // The selection stays as the user made it; the letter only finds the name.
    list_->setCurrentRow(row, QItemSelectionModel::NoUpdate);
    list_->scrollToItem(list_->item(row), QAbstractItemView::PositionAtTop);
}

void NamePicker::cm3Help_Click() {
    MsgBox(texts_.helpLines.join(QLatin1Char('\n')) + QLatin1Char('\n'), vbInformation,
           QLatin1String(texts_.helpTitle));
}

// clang-format off
QStringList PickerHelp(bool offices, const QString& lastLine) {
    static const QStringList kClients{
        QStringLiteral("Select a client by clicking on the name in the list."),
        QStringLiteral("Deselect a client by clicking on the name again."),
        QStringLiteral("To make multiple selections hold down the Control key while clicking on names."),
        QStringLiteral("To select a block of clients (e.g. all clients) click on the first name in the block, hold down the Shift key, then click on the last name in the block.")};
    static const QStringList kOffices{
        QStringLiteral("Select an office by clicking on the name in the list."),
        QStringLiteral("Deselect an office by clicking on the name again."),
        kClients.at(2),
        QStringLiteral("To select a block of offices (e.g. all offices) click on the first name in the block, hold down the Shift key, then click on the last name in the block.")};
    return (offices ? kOffices : kClients) + QStringList{lastLine};
}
// clang-format on

}  // namespace quillon
