#include "sections/frmYearEnd.h"

#include "correspondence/handed_lists_gui.h"
#include "correspondence/merge_picker_gui.h"
#include "correspondence/name_picker_gui.h"
#include "data/data_access.h"
#include "data/ql_date.h"
#include "platform/files.h"
#include "platform/services.h"
#include "platform/widgets_gui.h"
#include "sections/filter_label_gui.h"
#include "sections/year_end_list.h"
#include "shell/forms_gui.h"
#include "shell/frmQuillon.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include <exception>
#include <optional>

namespace quillon {

namespace {

const char* const kMonthCaptions[] = {" JANUARY",  "FEBRUARY", "MARCH",    "APRIL",
                                      "MAY",       "JUNE",     "JULY",     "AUGUST",
                                      "SEPTEMBER", "OCTOBER",  "NOVEMBER", "DECEMBER"};
const QString kChosen = QStringLiteral("background-color: #00ffff;");
const QString kOthers = QStringLiteral("background-color: #c0c0c0;");

const QString kModule = QStringLiteral("frmYearEnd");

}  // namespace

frmYearEnd::frmYearEnd(QWidget* parent) : QDialog(parent) {
    setObjectName(QString::fromLatin1(kFormName));
    setWindowTitle(tr("Year End"));
    txtTitle = Named<QLineEdit>(QStringLiteral("txtTitle"), QStringLiteral("Title"), this);
    lstClients = Named<QListWidget>(QStringLiteral("lstClients"), this);
    // The list only shows: a click selects nothing.
    lstClients->setSelectionMode(QAbstractItemView::NoSelection);
    lblCount = Named<QLabel>(QStringLiteral("lblCount"), this);
    cm3Print = Named<QPushButton>(QStringLiteral("cm3Print"), QStringLiteral("&Print"), this);
    cm3Merge = Named<QPushButton>(QStringLiteral("cm3Merge"), QStringLiteral("&Merge"), this);
    cm3Help = Named<QPushButton>(QStringLiteral("cm3Help"), QStringLiteral("&Help"), this);
    cm3Close = Named<QPushButton>(QStringLiteral("cm3Close"), QStringLiteral("&Close"), this);
    auto* list = new QVBoxLayout;
    list->addWidget(txtTitle);
    list->addWidget(lstClients, 1);
    list->addWidget(lblCount);
    auto* columns = new QHBoxLayout;
    columns->addWidget(MonthBoxes());
    columns->addLayout(list, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(columns, 1);
    AddButtonRow(layout, {cm3Print, cm3Merge, cm3Help, cm3Close});
    resize(fontMetrics().averageCharWidth() * 80, fontMetrics().height() * 26);
    connect(cm3Print, &QPushButton::clicked, this, &frmYearEnd::cm3Print_Click);
    connect(cm3Merge, &QPushButton::clicked, this, &frmYearEnd::cm3Merge_Click);
    connect(cm3Help, &QPushButton::clicked, this, &frmYearEnd::cm3Help_Click);
    connect(cm3Close, &QPushButton::clicked, this,
            [] { UnloadForm(QString::fromLatin1(kFormName)); });
}

QWidget* frmYearEnd::MonthBoxes() {
    auto* panel = new QWidget(this);
    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2);
    for (int m = 1; m <= kMonths; ++m) {
        auto* box = Named<ClickLabel>(QStringLiteral("lblFilter(%1)").arg(m),
                                      QString::fromLatin1(kMonthCaptions[m - 1]), panel);
        box->setFrameShape(QFrame::Box);
        box->setMargin(2);
        box->setStyleSheet(kOthers);
        box->setCursor(Qt::PointingHandCursor);
        lblFilter[size_t(m - 1)] = box;
        column->addWidget(box);
        connect(box, &ClickLabel::clicked, this, [this, m] { lblFilter_Click(m); });
    }
    column->addStretch(1);
    return panel;
}

void frmYearEnd::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!placed_) {
        placed_ = true;
        Form_Load();
    }
}

// However it ends, the list is unloaded: the next opening starts afresh.
void frmYearEnd::done(int result) {
    QDialog::done(result);
    if (testAttribute(Qt::WA_DeleteOnClose)) {
        deleteLater();
    }
}

void frmYearEnd::Form_Load() {
    CentreOverForm(this, QStringLiteral("frmBusiness"));
}

void frmYearEnd::lblFilter_Click(int month) {
    for (int m = 1; m <= kMonths; ++m) {
        lblFilter[size_t(m - 1)]->setStyleSheet(m == month ? kChosen : kOthers);
    }
    month_ = month;
    UpdateList();
    txtTitle->setText(QStringLiteral("Businesses with year end in ") + MonthName(month));
}

void frmYearEnd::UpdateList() {
    WaitPointer wait;
    lstClients->clear();
    try {
        lstClients->addItems(YearEndEntries(month_));
    } catch (const std::exception& error) {
        ReportError(kModule, QStringLiteral("UpdateList"), error);
    }
    lblCount->setText(QString::number(lstClients->count()));
}

void frmYearEnd::cm3Print_Click() {
    PrintList(*lstClients, txtTitle->text());
}

void frmYearEnd::cm3Merge_Click() {
    if (MsgBox(QStringLiteral("The following mail merge data file will be created:") +
                   QLatin1Char('\n') + MergeFilePath() + QLatin1Char('\n') +
                   QStringLiteral("This file can be merged with a word processor document"),
               vbOKCancel | vbInformation) != vbOK) {
        return;
    }
    const QStringList entries = AllEntries(*lstClients);
    std::optional<ErrorDetails> failure;
    {
        WaitPointer wait;
        try {
            WriteYearEndMerge(PathOnDisk(MergeFilePath()), entries, CurrentMergeOptions(),
                              ShowRecordProgress);
        } catch (const std::exception& error) {
            failure = DetailsOf(error);
        }
        SetProgressText(QString());
    }
    if (failure) {
        MsgBox(ErrorReportText(kModule, QStringLiteral("cm3Merge_Click"), *failure), vbExclamation,
               windowTitle());
    }
}

void frmYearEnd::cm3Help_Click() {
    MsgBox(tr("Click a month to list every business whose year ends in it.") + QLatin1Char('\n') +
               tr("Print prints the list under its title; Merge makes a merge data file of the "
                  "clients with their business names."),
           vbInformation, tr("Year End Help"));
}

}  // namespace quillon
