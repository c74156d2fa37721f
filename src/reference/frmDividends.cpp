#include "reference/frmDividends.h"

#include "data/data_access.h"
#include "data/ql_date.h"
#include "data/validate.h"
#include "platform/dao.h"
#include "platform/files.h"
#include "platform/services.h"
#include "platform/widgets_gui.h"
#include "reference/reference_files.h"
#include "reference/reference_updates.h"
#include "sections/key_routine_filter_gui.h"
#include "sections/section_screen_gui.h"
#include "shell/forms_gui.h"
#include "shell/program_folder.h"
#include "shell/variables.h"

#include <QApplication>
#include <QCheckBox>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QTimer>

namespace quillon {

namespace {

const QString kModule = QString::fromLatin1(frmDividends::kFormName);
const QString kFidCaption = QStringLiteral("Foreign Income Dividend (FID)");

// clang-format off
const ReferenceTexts kTexts{
    frmDividends::kFormName,
    "Dividends",
    "lstShares",
    "No company name beginning with ",
    "Tick this box to automatically check for an updated version of the Dividends Database when this form is opened",
    &DividendsUpdate,
};
// clang-format on

// One column of the payments: its boxes, field, heading and key filter.
struct PaymentColumn {
    const char* box;
    const char* field;
    const char* head;
    KeyRoutine filter;
};
const PaymentColumn kPaymentColumns[] = {
    {"txtNumber", "Number %1", "Number", DigitKeyFilter},
    {"txtDate", "Date %1", "Date", DateKeyFilter},
    {"txtDividend", "Dividend %1", "Dividend (p)", AmountKeyFilter},
};

dao::Database OpenYear() {
    return dao::OpenDatabase(DividendDatabasePath(TaxYear));
}

dao::Recordset SharesByName(dao::Database& db) {
    dao::Recordset shares = db.OpenRecordset(QStringLiteral("Dividends"));
    shares.SetIndex(QStringLiteral("Name"));
    return shares;
}

int YearOfOption(int index) {
    return kFirstDividendYear + index;
}

}  // namespace

frmDividends::frmDividends(QWidget* parent) : ReferenceScreen(kTexts, parent) {
    lstShares = List();
    cm3Transfer =
        Named<QPushButton>(QStringLiteral("cm3Transfer"), QStringLiteral("Transfer"), this);
    Arrange(BuildYears(), nullptr, BuildDetails(), {cm3Transfer});
    connect(cm3Save, &QPushButton::clicked, this, &frmDividends::cm3Save_Click);
    connect(cm3New, &QPushButton::clicked, this, &frmDividends::cm3New_Click);
    connect(cm3Rename, &QPushButton::clicked, this, &frmDividends::cm3Rename_Click);
    connect(cm3Delete, &QPushButton::clicked, this, &frmDividends::cm3Delete_Click);
    connect(cm3Transfer, &QPushButton::clicked, this, &frmDividends::cm3Transfer_Click);
    connect(tmrNew, &QTimer::timeout, this, &frmDividends::tmrNew_Timer);
    connect(tmrRename, &QTimer::timeout, this, &frmDividends::tmrRename_Timer);
    Form_Load();
}

QWidget* frmDividends::BuildYears() {
    auto* years = new QGroupBox(tr("Tax year"), this);
    auto* row = new QHBoxLayout(years);
    for (int i = 0; i < kYears; ++i) {
        op3TaxYear[i] = Named<QRadioButton>(QStringLiteral("op3TaxYear(%1)").arg(i), years);
        row->addWidget(op3TaxYear[i]);
        connect(op3TaxYear[i], &QRadioButton::clicked, this, [this, i] { op3TaxYear_Click(i); });
    }
    row->addStretch(1);
    return years;
}

QWidget* frmDividends::BuildDetails() {
    auto* details = new QWidget(this);
    auto* grid = new QGridLayout(details);
    grid->setContentsMargins(0, 0, 0, 0);
    lblCompany = Named<QLabel>(QStringLiteral("lblCompany"), details);
    lblStock = Named<QLabel>(QStringLiteral("lblStock"), details);
    lblFID = Named<QLabel>(QStringLiteral("lblFID"), details);
    grid->addWidget(new QLabel(tr("Company"), details), 0, 0);
    grid->addWidget(lblCompany, 0, 1, 1, 3);
    grid->addWidget(new QLabel(tr("Description"), details), 1, 0);
    grid->addWidget(lblStock, 1, 1, 1, 3);
    grid->addWidget(lblFID, 2, 1, 1, 3);
    for (int c = 0; c < 3; ++c) {
        const PaymentColumn& column = kPaymentColumns[c];
        grid->addWidget(new QLabel(QString::fromLatin1(column.head), details), 3, c + 1);
        auto& boxes = c == 0 ? txtNumber : c == 1 ? txtDate : txtDividend;
        for (int n = 1; n <= kPayments; ++n) {
            const QString field = QString::fromLatin1(column.field).arg(n);
            boxes[n] = Named<QLineEdit>(QStringLiteral("%1(%2)").arg(column.box).arg(n), details);
            boxes[n]->setMaxLength(DividendFieldWidth(field));
            InstallKeyRoutine(boxes[n], column.filter);
            grid->addWidget(boxes[n], 3 + n, c + 1);
        }
    }
    for (int n = 1; n <= kPayments; ++n) {
        grid->addWidget(new QLabel(QString::number(n), details), 3 + n, 0);
        txtDate[n]->installEventFilter(this);
    }
    grid->setRowStretch(4 + kPayments, 1);
    return details;
}

void frmDividends::Form_Load() {
    Loading = true;
    if (DividendsUpdate) {
        CheckDividendUpdate();
    }
    chkUpdate->setChecked(DividendsUpdate);
    for (int i = 0; i < kYears; ++i) {
        op3TaxYear[i]->setText(TaxYearLabel(YearOfOption(i)));
    }
    FurnishSlotFolder();
    ChooseYear();
    OpenDDB();
}

// A first opening on a new slot brings it the years' files that the program's
// folder holds.
void frmDividends::FurnishSlotFolder() {
    for (int year = kLastDividendYear; year >= kFirstDividendYear; --year) {
        const QString inProgram = PathIn(ProgramFolder(), DividendFileName(year));
        if (Dir(inProgram).isEmpty() || !Dir(DividendDatabasePath(year)).isEmpty()) {
            continue;
        }
        try {
            PlaceFileCopy(PathOnDisk(inProgram), DividendDatabasePath(year));
        } catch (const dao::DaoError&) {
            // The year's option stays disabled.
        }
    }
}

// The chosen year when its file is there, else the latest year that has one.
void frmDividends::ChooseYear() {
    int enabled = -1;
    for (int i = 0; i < kYears; ++i) {
        op3TaxYear[i]->setEnabled(!Dir(DividendDatabasePath(YearOfOption(i))).isEmpty());
        if (op3TaxYear[i]->isEnabled()) {
            enabled = i;
        }
    }
    if (TaxYear < kFirstDividendYear || TaxYear > kLastDividendYear) {
        TaxYear = kLastDividendYear;
    }
    if (!op3TaxYear[TaxYear - kFirstDividendYear]->isEnabled() && enabled >= 0) {
        TaxYear = static_cast<qint16>(YearOfOption(enabled));
    }
    op3TaxYear[TaxYear - kFirstDividendYear]->setChecked(true);
    ShowVersion(QStringLiteral("Form_Load"));
}

void frmDividends::ShowVersion(const QString& procedure) {
    setWindowTitle(QStringLiteral("Dividends"));
    try {
        setWindowTitle(QStringLiteral("Dividends (Version ") + ReadDividendVersion(TaxYear) +
                       QLatin1Char(')'));
    } catch (const std::exception& error) {
        Report(kModule, procedure, error);
    }
}

void frmDividends::OpenDDB() {
    WaitPointer wait;
    const QSignalBlocker quiet(lstShares);
    lstShares->clear();
    try {
        QStringList entries;
        {
            dao::Database db = OpenYear();
            dao::Recordset shares = SharesByName(db);
            for (shares.MoveFirst(); !shares.IsEOF(); shares.MoveNext()) {
                entries << ShareEntry({NullToEmpty(shares.Fields(QStringLiteral("Company"))),
                                       NullToEmpty(shares.Fields(QStringLiteral("Stock"))),
                                       NullToFalse(shares.Fields(QStringLiteral("FID")))});
            }
        }
        lstShares->addItems(entries);
    } catch (const std::exception& error) {
        Report(kModule, QStringLiteral("OpenDDB"), error);
    }
}

// Edits on the screen are dropped: nothing is saved before the year changes.
void frmDividends::op3TaxYear_Click(int index) {
    if (Loading) {
        return;
    }
    TaxYear = static_cast<qint16>(YearOfOption(index));
    ShowVersion(QStringLiteral("op3TaxYear_Click"));
    ClearShown();
    OpenDDB();
}

void frmDividends::Form_Activate() {
    ReferenceScreen::Form_Activate();
    const int current = RowOf(ShareEntry({CurrentCompany, CurrentStock, CurrentFID}));
    SelectEntry(current >= 0 ? current : 0);
}

bool frmDividends::Form_Deactivate() {
    if (DatesOutsideYear()) {
        return false;
    }
    SaveShare();
    return true;
}

bool frmDividends::Form_Unload() {
    if (DatesOutsideYear()) {
        return true;
    }
    SaveShare();
    return false;
}

bool frmDividends::ShareShown() const {
    return !lblCompany->text().isEmpty();
}

void frmDividends::ClearShown() {
    for (QLabel* label : {lblCompany, lblStock, lblFID}) {
        label->clear();
    }
    for (int n = 1; n <= kPayments; ++n) {
        for (QLineEdit* box : {txtNumber[n], txtDate[n], txtDividend[n]}) {
            box->clear();
        }
    }
}

bool frmDividends::DatesOutsideYear() {
    for (int n = 1; n <= kPayments; ++n) {
        QLineEdit* box = txtDate[n];
        if (box->text().isEmpty() || DateWithinTaxYear(box->text(), TaxYear)) {
            continue;
        }
        // Told once for what one action sets going: the box left and the click
        // that left it.
        if (toldBox_ != box) {
            DateOutsideTaxYear();
            toldBox_ = box;
            QTimer::singleShot(0, this, [this] { toldBox_ = nullptr; });
        }
        box->setFocus();
        box->selectAll();
        return true;
    }
    return false;
}

bool frmDividends::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusOut && FocusMovedByUser(event)) {
        const QWidget* next = QApplication::focusWidget();
        if (next && isAncestorOf(next)) {
            DatesOutsideYear();
        }
    }
    return ReferenceScreen::eventFilter(watched, event);
}

void frmDividends::SaveShare() {
    if (!ShareShown()) {
        return;
    }
    try {
        WaitPointer wait;
        dao::Database db = OpenYear();
        dao::Recordset shares = SharesByName(db);
        shares.Seek(QStringLiteral("="),
                    {lblCompany->text(), lblStock->text(), !lblFID->text().isEmpty()});
        if (shares.NoMatch()) {
            return;  // another user may have deleted or renamed it
        }
        shares.Edit();
        for (int n = 1; n <= kPayments; ++n) {
            shares.Fields(QStringLiteral("Number %1").arg(n)).SetValue(txtNumber[n]->text());
            shares.Fields(QStringLiteral("Date %1").arg(n)).SetValue(txtDate[n]->text());
            shares.Fields(QStringLiteral("Dividend %1").arg(n)).SetValue(txtDividend[n]->text());
        }
        shares.Update();
    } catch (const std::exception& error) {
        Report(kModule, QStringLiteral("SaveShare"), error);
    }
}

// A list click that may not leave the shown share puts the selection back.
void frmDividends::ShowSelectionOfShownShare() {
    const QSignalBlocker quiet(lstShares);
    lstShares->setCurrentRow(
        RowOf(ShareEntry({lblCompany->text(), lblStock->text(), !lblFID->text().isEmpty()})));
}

void frmDividends::SelectShare() {
    if (DatesOutsideYear()) {
        ShowSelectionOfShownShare();
        return;
    }
    WaitPointer wait;
    SaveShare();
    const ShareKey key = ShareOfEntry(SelectedEntry());
    try {
        dao::Database db = OpenYear();
        dao::Recordset shares = SharesByName(db);
        // A share gone meanwhile is told, and the first is shown instead.
        SeekDividendByListText(key.company + QStringLiteral(", ") + key.stock, key.fid, shares);
        const ShareKey shown{NullToEmpty(shares.Fields(QStringLiteral("Company"))),
                             NullToEmpty(shares.Fields(QStringLiteral("Stock"))),
                             NullToFalse(shares.Fields(QStringLiteral("FID")))};
        lblCompany->setText(shown.company);
        lblStock->setText(shown.stock);
        lblFID->setText(shown.fid ? kFidCaption : QString());
        for (int n = 1; n <= kPayments; ++n) {
            txtNumber[n]->setText(NullToEmpty(shares.Fields(QStringLiteral("Number %1").arg(n))));
            txtDate[n]->setText(NullToEmpty(shares.Fields(QStringLiteral("Date %1").arg(n))));
            txtDividend[n]->setText(
                NullToEmpty(shares.Fields(QStringLiteral("Dividend %1").arg(n))));
        }
        CurrentCompany = shown.company;
        CurrentStock = shown.stock;
        CurrentFID = shown.fid;
    } catch (const std::exception& error) {
        Report(kModule, QStringLiteral("SelectShare"), error);
    }
}

void frmDividends::cm3Save_Click() {
    if (!DatesOutsideYear()) {
        SaveShare();
    }
}

void frmDividends::cm3New_Click() {
    if (!DatesOutsideYear()) {
        ShowModal(QStringLiteral("frmNewDividend"));
    }
}

// What was typed is saved first: the rename changes the key it is saved under.
void frmDividends::cm3Rename_Click() {
    if (DatesOutsideYear()) {
        return;
    }
    SaveShare();
    ShowModal(QStringLiteral("frmRenameDividend"));
}

void frmDividends::cm3Delete_Click() {
    const ShareKey share{lblCompany->text(), lblStock->text(), !lblFID->text().isEmpty()};
    const int answer = MsgBox(
        QStringLiteral("Delete share:") + QLatin1Char('\n') + share.company + QLatin1Char('\n') +
            share.stock + (share.fid ? QStringLiteral(" (FID)") : QString()),
        vbYesNo | vbQuestion | vbDefaultButton2, QStringLiteral("Delete Share"));
    if (answer != vbYes) {
        return;
    }
    try {
        bool found = false;
        {
            WaitPointer wait;
            dao::Database db = OpenYear();
            dao::Recordset shares = SharesByName(db);
            shares.Seek(QStringLiteral("="), {share.company, share.stock, share.fid});
            found = !shares.NoMatch();
            if (found) {
                shares.Delete();
            }
        }
        if (!found) {
            Beep();
            MsgBox(QStringLiteral("Record not found"), vbOKOnly, QStringLiteral("Delete Share"));
            return;
        }
        RemoveSelectedEntry();
    } catch (const std::exception& error) {
        Report(kModule, QStringLiteral("cm3Delete_Click"), error);
    }
}

// The pair of files is fixed, whatever the year chosen on the screen.
void frmDividends::cm3Transfer_Click() {
    try {
        WaitPointer wait;
        TransferShares(TransferSourcePath(), TransferDestinationPath());
    } catch (const std::exception& error) {
        Report(kModule, QStringLiteral("cm3Transfer_Click"), error);
        return;
    }
    MsgBox(QStringLiteral("Transfer OK"), vbOKOnly, Title());
}

void frmDividends::tmrNew_Timer() {
    tmrNew->stop();
    lstShares->addItem(ShareEntry({CurrentCompany, CurrentStock, CurrentFID}));
    SelectEntry(lstShares->count() - 1);
    txtNumber[1]->setFocus();
}

void frmDividends::tmrRename_Timer() {
    tmrRename->stop();
    const QString entry = ShareEntry({CurrentCompany, CurrentStock, CurrentFID});
    OpenDDB();
    SelectEntryText(entry);
}

}  // namespace quillon
