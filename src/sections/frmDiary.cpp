#include "sections/frmDiary.h"

#include "correspondence/handed_lists_gui.h"
#include "correspondence/name_picker_gui.h"
#include "data/data_access.h"
#include "data/database_schema.h"
#include "platform/files.h"
#include "platform/services.h"
#include "platform/widgets_gui.h"
#include "reports/report_state.h"
#include "sections/client_filters.h"
#include "sections/common_texts_gui.h"
#include "sections/diary_print.h"
#include "sections/filter_label_gui.h"
#include "shell/configuration.h"
#include "shell/forms_gui.h"
#include "shell/frmQuillon.h"
#include "shell/variables.h"

#include <QCloseEvent>
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <exception>
#include <optional>

namespace quillon {

namespace {

constexpr int kHalf = kDiaryEvents / 2;
const QString kListOn = QStringLiteral("&List On");
const QString kListOff = QStringLiteral("&List Off");
const QString kClearAllTitle = QStringLiteral("CLEAR ALL DIARY DATA");
const QString kProceed = QStringLiteral("\n\nDo you wish to proceed?");
const QString kBackupFirst =
    QStringLiteral("You should make a backup of your client database before proceeding.");

// The standard events' descriptions are the page's `Common` row; their dates
// and the client's own events are the client's row.
const GridColumn kStandardEvents[] = {
    {"txtDSDate", "Standard Date %1"},
    {"txtDSEvent", nullptr},
};
const GridColumn kClientEvents[] = {
    {"txtDCDate", "Client Date %1"},
    {"txtDCEvent", "Client Event %1"},
};

QString Indexed(const char* name, int i) {
    return QString::fromLatin1(name) + QStringLiteral("(%1)").arg(i);
}

// A box that is not being typed in shows the start of its text, as a long
// description is read from its beginning.
void ShowStartOfText(QLineEdit* box) {
    QObject::connect(box, &QLineEdit::textChanged, box, [box] {
        if (!box->hasFocus()) {
            box->setCursorPosition(0);
        }
    });
}

QString CommonRowOf(int page) {
    return QStringLiteral("Diary %1").arg(page);
}

}  // namespace

frmDiary::frmDiary(QWidget* parent) : SectionScreen(kDiarySection, parent) {
    setWindowTitle(QStringLiteral("Diary"));
    tabEvents = Named<QTabWidget>(QStringLiteral("tabEvents"), Body());
    tabEvents->addTab(EventsPage(true), tr("Standard Events"));
    tabEvents->addTab(EventsPage(false), tr("Client Events"));
    events_ = new CommonTexts(
        this, [this] { return CommonRowOf(Page()); },
        QStringLiteral("You have changed an event description."),
        [this] { return txtDYear->text() + QStringLiteral(" Diary"); },
        QString::fromLatin1(kFormName));
    // The text a description box holds when it takes the focus
    // (txtDSEvent_GotFocus) is what its leaving compares with.
    for (int i = 1; i <= kDiaryEvents; ++i) {
        events_->Add(i, Box(Indexed("txtDSEvent", i)), QStringLiteral("txtDSEvent_LostFocus"));
    }
    auto* events = new QVBoxLayout;
    events->addWidget(TaxYearControls());
    events->addWidget(tabEvents, 1);
    auto* layout = new QHBoxLayout(Body());
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(events, 1);
    layout->addWidget(ListPanel());
    layout->addLayout(Commands());
    ShowList(false);
    connect(cm3Help, &QPushButton::clicked, this,
            [] { ShowModal(QStringLiteral("frmHelpDiary")); });
}

QWidget* frmDiary::EventsPage(bool standard) {
    auto* page = new QWidget(Body());
    auto* row = new QHBoxLayout(page);
    row->setContentsMargins(2, 2, 2, 2);
    const auto& columns = standard ? kStandardEvents : kClientEvents;
    for (int first = 1; first <= kDiaryEvents; first += kHalf) {
        QWidget* grid = FieldGrid(columns, first, first + kHalf - 1);
        row->addWidget(grid, 1);
        // The tab says what the columns hold: the grid's heads take no room.
        for (QLabel* head : grid->findChildren<QLabel*>()) {
            head->hide();
        }
        for (int i = first; i < first + kHalf; ++i) {
            QLineEdit* date = Box(Indexed(columns[0].control, i));
            date->setMaximumWidth(
                date->fontMetrics().horizontalAdvance(QStringLiteral("00/00/000")) +
                date->fontMetrics().averageCharWidth() * 2);
            ShowStartOfText(date);
            ShowStartOfText(Box(Indexed(columns[1].control, i)));
            if (!standard) {
                continue;
            }
            date->installEventFilter(this);
            standardDates_.push_back(date);
            ClickLabel* filter = FilterLabel(Indexed("lblDFilter", i), grid);
            lblDFilter[size_t(i - 1)] = filter;
            static_cast<QGridLayout*>(grid->layout())->addWidget(filter, i - first + 1, 2);
            connect(filter, &ClickLabel::clicked, this, [this, i] { lblDFilter_Click(i); });
        }
    }
    return page;
}

QWidget* frmDiary::TaxYearControls() {
    auto* panel = new QWidget(Body());
    auto* row = new QHBoxLayout(panel);
    row->setContentsMargins(0, 0, 0, 0);
    txtDYear = Named<QLineEdit>(QStringLiteral("txtDYear"), panel);
    txtDYear->setMaxLength(ClientFieldWidth(QStringLiteral("Common"), QStringLiteral("Tax Year")));
    txtDYear->setMaximumWidth(
        txtDYear->fontMetrics().horizontalAdvance(QStringLiteral("0000-000")));
    txtDYear->installEventFilter(this);
    auto* label = new QLabel(tr("Tax Year"), panel);
    label->setBuddy(txtDYear);
    row->addWidget(label);
    row->addWidget(txtDYear);
    row->addSpacing(8);
    row->addWidget(PageControls("spnDPage", "lblDPage"));
    row->addStretch(1);
    connect(txtDYear, &QLineEdit::textChanged, this, [this] { setWindowTitle(Caption()); });
    return panel;
}

QWidget* frmDiary::ListPanel() {
    auto* panel = new QWidget(Body());
    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins(0, 0, 0, 0);
    txtTitle = Named<QLineEdit>(QStringLiteral("txtTitle"), panel);
    txtTitle->installEventFilter(this);
    lstClients = Named<QListWidget>(QStringLiteral("lstClients"), panel);
    // The list only shows: a click selects nothing.
    lstClients->setSelectionMode(QAbstractItemView::NoSelection);
    lstClients->setFocusPolicy(Qt::NoFocus);
    lblListCount = Named<QLabel>(QStringLiteral("lblListCount"), panel);
    lblListCount->setText(QStringLiteral("0 clients in list"));
    column->addWidget(txtTitle);
    column->addWidget(lstClients, 1);
    column->addWidget(lblListCount);
    panel->setFixedWidth(fontMetrics().averageCharWidth() * 24);
    connect(txtTitle, &QLineEdit::textChanged, this,
            [](const QString& text) { DiaryReportTitle = text; });
    return panel;
}

QLayout* frmDiary::Commands() {
    cm3DList = Named<QPushButton>(QStringLiteral("cm3DList"), kListOn, Body());
    cm3Clear = Named<QPushButton>(QStringLiteral("cm3Clear"), QStringLiteral("&Clear"), Body());
    cm3ClearAll =
        Named<QPushButton>(QStringLiteral("cm3ClearAll"), QStringLiteral("Clear &All"), Body());
    cm3Print = Named<QPushButton>(QStringLiteral("cm3Print"), QStringLiteral("&Print"), Body());
    cm3Merge = Named<QPushButton>(QStringLiteral("cm3Merge"), QStringLiteral("&Merge"), Body());
    cm3Report = Named<QPushButton>(QStringLiteral("cm3Report"), QStringLiteral("&Report"), Body());
    auto* column = new QVBoxLayout;
    column->setContentsMargins(0, 0, 0, 0);
    for (QPushButton* button : {cm3DList, cm3Clear, cm3ClearAll}) {
        column->addWidget(button);
    }
    column->addStretch(1);
    for (QPushButton* button : {cm3Print, cm3Merge, cm3Report}) {
        column->addWidget(button);
    }
    connect(cm3DList, &QPushButton::clicked, this, &frmDiary::cm3DList_Click);
    connect(cm3Clear, &QPushButton::clicked, this, &frmDiary::cm3Clear_Click);
    connect(cm3ClearAll, &QPushButton::clicked, this, &frmDiary::cm3ClearAll_Click);
    connect(cm3Print, &QPushButton::clicked, this, &frmDiary::cm3Print_Click);
    connect(cm3Merge, &QPushButton::clicked, this, &frmDiary::cm3Merge_Click);
    connect(cm3Report, &QPushButton::clicked, this, &frmDiary::cm3Report_Click);
    return column;
}

QString frmDiary::CaptionDetail() const {
    return txtDYear->text();
}

QString frmDiary::Client() const {
    return Shown().first + QLatin1Char(' ') + Shown().last;
}

void frmDiary::ReadMore() {
    ReadEvents();
    setWindowTitle(Caption());
}

void frmDiary::ReadEvents() {
    events_->Read(QStringLiteral("ReadEvents"), [this](const dao::Recordset& row) {
        txtDYear->setText(NullToEmpty(row.Fields(QStringLiteral("Tax Year"))));
    });
}

void frmDiary::WriteTaxYear() {
    const QString year = txtDYear->text();
    ChangeCommonRow(
        RoutineOf(QStringLiteral("WriteTaxYear")), CommonRowOf(Page()),
        [&year](dao::Recordset& row) { row.Fields(QStringLiteral("Tax Year")).SetValue(year); });
}

void frmDiary::PageLeaving() {
    WriteTaxYear();
}

void frmDiary::PageEntered() {
    ReadEvents();
    if (ListShown()) {
        UpdateList();
    }
}

bool frmDiary::ListShown() const {
    return !lstClients->isHidden();
}

void frmDiary::ShowList(bool shown) {
    lstClients->parentWidget()->setVisible(shown);
    lstClients->setVisible(shown);
    lblListCount->setVisible(shown);
    txtTitle->setVisible(shown);
    cm3DList->setText(shown ? kListOff : kListOn);
    for (ClickLabel* filter : lblDFilter) {
        filter->setEnabled(shown);
    }
    if (!shown) {
        cm3Merge->setEnabled(false);
        cm3Report->setEnabled(false);
        // Without the list the printout is the one client's diary.
        cm3Print->setEnabled(true);
    }
}

void frmDiary::cm3DList_Click() {
    if (ListShown()) {
        ShowList(false);
        return;
    }
    txtTitle->setText(DiaryReportTitle);
    ShowList(true);
    WriteCRecord();  // the list sees this client's last entries
    UpdateList();
}

void frmDiary::lblDFilter_Click(int index) {
    if (!ListShown()) {
        return;
    }
    ClickLabel* filter = lblDFilter[size_t(index - 1)];
    filter->setText(NextFilter(filter->text()));
    WriteCRecord();
    UpdateList();
}

void frmDiary::UpdateList() {
    WaitPointer wait;
    lstClients->clear();
    std::vector<FieldFilter> filters;
    for (int i = 1; i <= kDiaryEvents; ++i) {
        const QString filter = lblDFilter[size_t(i - 1)]->text();
        if (!filter.isEmpty()) {
            filters.push_back({QStringLiteral("Standard Date %1").arg(i), filter});
        }
    }
    try {
        lstClients->addItems(FilteredClients(TableName(), filters, FilterRule::Dated));
    } catch (const std::exception& error) {
        ReportError(QString::fromLatin1(kFormName), QStringLiteral("UpdateList"), error);
    }
    lblListCount->setText(QString::number(lstClients->count()) +
                          QStringLiteral(" clients in list"));
    EnableListCommands(lstClients->count() > 0);
}

void frmDiary::EnableListCommands(bool listed) {
    cm3Merge->setEnabled(listed);
    cm3Report->setEnabled(listed);
    cm3Print->setEnabled(listed);
}

std::vector<QLineEdit*> frmDiary::ClientBoxes() const {
    std::vector<QLineEdit*> boxes;
    for (const char* name : {"txtDSDate", "txtDCDate", "txtDCEvent"}) {
        for (int i = 1; i <= kDiaryEvents; ++i) {
            boxes.push_back(Box(Indexed(name, i)));
        }
    }
    return boxes;
}

bool frmDiary::Confirmed(const QString& question, const QString& title) const {
    return MsgBox(question, vbYesNo | vbQuestion | vbDefaultButton2, title) == vbYes;
}

// Empties the client's boxes; the row follows at the next save.
void frmDiary::cm3Clear_Click() {
    if (!Confirmed(QStringLiteral("ALL diary information in the tax year ") + txtDYear->text() +
                       QStringLiteral(" for this client will be deleted.") + kProceed,
                   Client())) {
        return;
    }
    for (QLineEdit* box : ClientBoxes()) {
        box->clear();
    }
}

void frmDiary::cm3ClearAll_Click() {
    if (!Confirmed(QStringLiteral("ALL diary information in the tax year ") + txtDYear->text() +
                       QStringLiteral(" for ALL clients will be deleted.") + kProceed,
                   kClearAllTitle) ||
        !Confirmed(kBackupFirst + kProceed, kClearAllTitle)) {
        return;
    }
    const QString caption = windowTitle();
    setWindowTitle(QStringLiteral("CLEARING DATA - PLEASE WAIT"));
    for (QLineEdit* box : ClientBoxes()) {
        box->clear();
    }
    ClearAllRows();
    setWindowTitle(caption);
    if (ListShown()) {
        UpdateList();
    }
}

// Each transaction clears whole rows and is committed before the window's
// events run and before any message: nothing waits on this workstation's lock.
void frmDiary::ClearAllRows() {
    std::optional<ErrorDetails> failure;
    {
        WaitPointer wait;
        try {
            ClearDiaryPage(PathOnDisk(ClientDatabasePath()), Page(), ShowRecordProgress);
        } catch (const std::exception& error) {
            failure = DetailsOf(error);
        }
        SetProgressText(QString());
    }
    if (failure) {
        ReportError(QString::fromLatin1(kFormName), QStringLiteral("cm3ClearAll_Click"), *failure);
    }
}

void frmDiary::cm3Print_Click() {
    if (ListShown()) {
        PrintDiaryList(AllEntries(*lstClients), txtTitle->text());
        return;
    }
    ClientDiary diary{Client(), txtDYear->text(), {}};
    for (int i = 1; i <= kDiaryEvents; ++i) {
        diary.lines[size_t(i - 1)] = {
            Box(Indexed("txtDSDate", i))->text(), Box(Indexed("txtDSEvent", i))->text(),
            Box(Indexed("txtDCDate", i))->text(), Box(Indexed("txtDCEvent", i))->text()};
    }
    PrintClientDiary(diary);
}

void frmDiary::cm3Merge_Click() {
    MergeFile(*lstClients);
}

void frmDiary::cm3Report_Click() {
    ShowModal(QStringLiteral("frmDiaryReport"));
}

bool frmDiary::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusOut && FocusMovedByUser(event)) {
        if (watched == txtDYear) {
            WriteTaxYear();
        } else if (watched == txtTitle) {
            WriteConfiguration();
        } else if (ListShown() && std::find(standardDates_.begin(), standardDates_.end(),
                                            watched) != standardDates_.end()) {
            // txtDSDate_LostFocus: a date just typed moves the client in or out
            // of the list at once.
            WriteCRecord();
            UpdateList();
        }
    }
    return SectionScreen::eventFilter(watched, event);
}

void frmDiary::closeEvent(QCloseEvent* event) {
    SectionScreen::closeEvent(event);
    if (event->isAccepted()) {
        WriteConfiguration();  // the page and the list's title
    }
}

}  // namespace quillon
