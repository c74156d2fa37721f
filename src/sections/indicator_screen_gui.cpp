#include "sections/indicator_screen_gui.h"

#include "correspondence/handed_lists_gui.h"
#include "correspondence/list_entries.h"
#include "data/data_access.h"
#include "data/database_schema.h"
#include "platform/services.h"
#include "platform/widgets_gui.h"
#include "sections/client_filters.h"
#include "sections/filter_label_gui.h"
#include "shell/forms_gui.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include <exception>

namespace quillon {

namespace {

QString Indexed(const char* name, int i) {
    return QString::fromLatin1(name) + QStringLiteral("(%1)").arg(i);
}

}  // namespace

IndicatorScreen::IndicatorScreen(const IndicatorRow& row, QWidget* parent)
    : QDialog(parent), row_(row) {
    setObjectName(Module());
    setWindowTitle(QString::fromLatin1(row_.title));
    auto* columns = new QHBoxLayout;
    columns->addWidget(IndicatorGrid(), 1);
    columns->addWidget(ListPanel());
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(columns, 1);
    layout->addLayout(CommandRow());
    tmrUnload = Named<QTimer>(QStringLiteral("tmrUnload"), this);
    tmrUnload->setSingleShot(true);
    connect(tmrUnload, &QTimer::timeout, this, [this] { UnloadForm(Module()); });
    connect(lstClients, &QListWidget::currentItemChanged, this,
            &IndicatorScreen::CurrentItemChanged);
}

QWidget* IndicatorScreen::IndicatorGrid() {
    auto* panel = new QWidget(this);
    auto* grid = new QGridLayout(panel);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setVerticalSpacing(2);
    for (int i = 1; i <= kIndicators; ++i) {
        const auto at = size_t(i - 1);
        lblFilter[at] = FilterLabel(Indexed("lblFilter", i), panel);
        chkTick[at] = Named<QCheckBox>(Indexed("chkTick", i), panel);
        chkTick[at]->setEnabled(false);  // until a client is chosen
        grid->addWidget(lblFilter[at], i - 1, 0);
        grid->addWidget(chkTick[at], i - 1, 1);
        if (i == 1 && row_.firstField) {
            lblIndicator = Named<QLabel>(QStringLiteral("lblIndicator"),
                                         QString::fromLatin1(row_.firstField), panel);
            grid->addWidget(lblIndicator, i - 1, 2);
        } else {
            txtIndicator[at] = Named<QLineEdit>(Indexed("txtIndicator", i), panel);
            txtIndicator[at]->setMaxLength(
                ClientFieldWidth(QStringLiteral("Common"), QStringLiteral("Text %1").arg(i)));
            txtIndicator[at]->installEventFilter(this);
            grid->addWidget(txtIndicator[at], i - 1, 2);
        }
        connect(lblFilter[at], &ClickLabel::clicked, this, [this, i] { lblFilter_Click(i); });
        connect(chkTick[at], &QCheckBox::clicked, this, [this, i] { chkTick_Click(i); });
    }
    grid->setColumnMinimumWidth(2, fontMetrics().averageCharWidth() * 32);
    grid->setRowStretch(kIndicators, 1);
    return panel;
}

QWidget* IndicatorScreen::ListPanel() {
    auto* panel = new QWidget(this);
    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins(0, 0, 0, 0);
    txtTitle = Named<QLineEdit>(QStringLiteral("txtTitle"), QStringLiteral("Title"), panel);
    lstClients = Named<QListWidget>(QStringLiteral("lstClients"), panel);
    lblCount = Named<QLabel>(QStringLiteral("lblCount"), panel);
    column->addWidget(txtTitle);
    column->addWidget(lstClients, 1);
    column->addWidget(lblCount);
    panel->setMinimumWidth(fontMetrics().averageCharWidth() * 34);
    return panel;
}

QLayout* IndicatorScreen::CommandRow() {
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    if (row_.labels) {
        cm3Labels =
            Named<QPushButton>(QStringLiteral("cm3Labels"), QStringLiteral("&Labels"), this);
        row->addWidget(cm3Labels);
        connect(cm3Labels, &QPushButton::clicked, this, &IndicatorScreen::cm3Labels_Click);
    }
    cm3Merge = Named<QPushButton>(QStringLiteral("cm3Merge"), QStringLiteral("&Merge"), this);
    cm3Print = Named<QPushButton>(QStringLiteral("cm3Print"), QStringLiteral("&Print"), this);
    cm3Help = Named<QPushButton>(QStringLiteral("cm3Help"), QStringLiteral("&Help"), this);
    cm3Close = Named<QPushButton>(QStringLiteral("cm3Close"), QStringLiteral("&Close"), this);
    for (QPushButton* button : {cm3Merge, cm3Print, cm3Help, cm3Close}) {
        row->addWidget(button);
        button->setAutoDefault(false);
    }
    connect(cm3Merge, &QPushButton::clicked, this, &IndicatorScreen::cm3Merge_Click);
    connect(cm3Print, &QPushButton::clicked, this, &IndicatorScreen::cm3Print_Click);
    connect(cm3Help, &QPushButton::clicked, this,
            [] { ShowModal(QStringLiteral("frmHelpIndics")); });
    connect(cm3Close, &QPushButton::clicked, this, [this] { UnloadForm(Module()); });
    return row;
}

QString IndicatorScreen::TableName() const {
    const QString table = QString::fromLatin1(row_.table);
    return row_.page ? table.arg(*row_.page) : table;
}

QString IndicatorScreen::FieldOf(int index) const {
    return index == 1 && row_.firstField ? QString::fromLatin1(row_.firstField)
                                         : QStringLiteral("Indicator %1").arg(index);
}

// Once, when the screen first comes up: a return from its help screen keeps
// the descriptions being edited.
void IndicatorScreen::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    unloaded_ = false;
    if (!activated_) {
        activated_ = true;
        Form_Activate();
    }
}

void IndicatorScreen::Form_Activate() {
    ReadDescriptions();
    UpdateList();
    const QString shown = *row_.shownLast + QStringLiteral(", ") + *row_.shownFirst;
    const QList<QListWidgetItem*> found = lstClients->findItems(shown, Qt::MatchExactly);
    if (!found.isEmpty()) {
        lstClients->setCurrentItem(found.first());
    }
    Loading = false;
}

void IndicatorScreen::ReadDescriptions() {
    ReadCommonRow({Module(), QStringLiteral("Form_Activate")}, TableName(),
                  [this](const dao::Recordset& row) {
                      for (int i = 1; i <= kIndicators; ++i) {
                          if (Described(i)) {
                              images_[size_t(i - 1)] =
                                  NullToEmpty(row.Fields(QStringLiteral("Text %1").arg(i)));
                              txtIndicator[size_t(i - 1)]->setText(images_[size_t(i - 1)]);
                          }
                      }
                  });
}

void IndicatorScreen::UpdateList() {
    WaitPointer wait;
    std::vector<FieldFilter> filters;
    for (int i = 1; i <= kIndicators; ++i) {
        if (const QString filter = lblFilter[size_t(i - 1)]->text(); !filter.isEmpty()) {
            filters.push_back({FieldOf(i), filter});
        }
    }
    listing_ = true;
    lstClients->clear();
    try {
        lstClients->addItems(FilteredClients(TableName(), filters, FilterRule::Ticked));
    } catch (const std::exception& error) {
        ReportError(Module(), QStringLiteral("UpdateList"), error);
    }
    listing_ = false;
    lblCount->setText(QString::number(lstClients->count()));
}

void IndicatorScreen::lblFilter_Click(int index) {
    listing_ = true;
    lstClients->clear();
    listing_ = false;
    lblCount->clear();
    ClickLabel* filter = lblFilter[size_t(index - 1)];
    filter->setText(NextFilter(filter->text()));
    UpdateList();
}

void IndicatorScreen::CurrentItemChanged(QListWidgetItem* item) {
    if (item && !listing_) {
        SelectClient();
    }
}

void IndicatorScreen::SelectClient() {
    const QListWidgetItem* item = lstClients->currentItem();
    if (!item) {
        return;
    }
    WaitPointer wait;
    selected_ = ClientOfEntry(item->text());
    std::array<bool, kIndicators> ticks{};
    bool found = false;
    try {
        dao::Database db = OpenClientDatabase();
        dao::Recordset row = db.OpenRecordset(TableName(), dao::dbOpenTable);
        row.SetIndex(QStringLiteral("Name"));
        row.Seek(QStringLiteral("="), {selected_.last, selected_.first});
        found = !row.NoMatch();
        for (int i = 1; found && i <= kIndicators; ++i) {
            ticks[size_t(i - 1)] = NullToFalse(row.Fields(FieldOf(i)));
        }
    } catch (const std::exception& error) {
        ReportError(Module(), QStringLiteral("SelectClient"), error);
        return;
    }
    if (!found) {
        Beep();
        MsgBox(QStringLiteral("Client record not found"), vbExclamation,
               QString::fromLatin1(row_.title));
        return;
    }
    ShowTicks(ticks);
    setWindowTitle(selected_.first + QLatin1Char(' ') + selected_.last);
}

void IndicatorScreen::ShowTicks(const std::array<bool, kIndicators>& ticks) {
    Reading = true;
    for (size_t i = 0; i < ticks.size(); ++i) {
        chkTick[i]->setChecked(ticks[i]);
        chkTick[i]->setEnabled(true);
    }
    Reading = false;
}

// Written at once; the list follows at the next filter click.
void IndicatorScreen::chkTick_Click(int index) {
    if (Loading || Reading) {
        return;
    }
    WaitPointer wait;
    const bool ticked = chkTick[size_t(index - 1)]->isChecked();
    const QString field = FieldOf(index);
    ChangeClientRow({Module(), QStringLiteral("chkTick_Click")}, TableName(), selected_,
                    [&field, ticked](dao::Recordset& row) { row.Fields(field).SetValue(ticked); });
}

void IndicatorScreen::cm3Print_Click() {
    PrintList(*lstClients, txtTitle->text());
}

void IndicatorScreen::cm3Merge_Click() {
    MergeFile(*lstClients);
}

void IndicatorScreen::cm3Labels_Click() {
    if (MsgBox(QStringLiteral("Do you wish to print address labels for all listed clients?"),
               vbYesNo | vbQuestion, QStringLiteral("Client labels")) == vbYes) {
        PrintClientLabels(*lstClients);
    }
}

bool IndicatorScreen::DescriptionsChanged() const {
    for (int i = 1; i <= kIndicators; ++i) {
        if (Described(i) && txtIndicator[size_t(i - 1)]->text() != images_[size_t(i - 1)]) {
            return true;
        }
    }
    return false;
}

void IndicatorScreen::WriteDescriptions() {
    ChangeCommonRow({Module(), QStringLiteral("Form_Unload")}, TableName(),
                    [this](dao::Recordset& row) {
                        for (int i = 1; i <= kIndicators; ++i) {
                            if (Described(i)) {
                                row.Fields(QStringLiteral("Text %1").arg(i))
                                    .SetValue(txtIndicator[size_t(i - 1)]->text());
                            }
                        }
                    });
}

// The descriptions are saved all together, after one question.
bool IndicatorScreen::Form_Unload() {
    if (unloaded_ || Loading) {
        return false;
    }
    unloaded_ = true;
    if (DescriptionsChanged() &&
        MsgBox(QStringLiteral("You have changed Indicator descriptions.") + QLatin1Char('\n') +
                   QStringLiteral("The changes will apply to all records in the database.") +
                   QLatin1Char('\n') +
                   QStringLiteral("Are you sure you wish to make these changes?"),
               vbYesNo | vbQuestion | vbDefaultButton2, windowTitle()) == vbYes) {
        WriteDescriptions();
    }
    return false;
}

void IndicatorScreen::closeEvent(QCloseEvent* event) {
    Form_Unload();
    QDialog::closeEvent(event);
}

// Escape ends the dialog without a close event: it unloads all the same.
void IndicatorScreen::done(int result) {
    Form_Unload();
    QDialog::done(result);
    if (testAttribute(Qt::WA_DeleteOnClose)) {
        deleteLater();
    }
}

bool IndicatorScreen::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn) {
        if (auto* box = qobject_cast<QLineEdit*>(watched)) {
            // txtIndicator_GotFocus: the whole description, ready to be typed over.
            QTimer::singleShot(0, box, &QLineEdit::selectAll);
        }
    }
    return QDialog::eventFilter(watched, event);
}

}  // namespace quillon
