#include "sections/section_screen_gui.h"

#include "data/client_data.h"
#include "data/data_access.h"
#include "data/validate.h"
#include "platform/dao.h"
#include "platform/files.h"
#include "sections/key_routine_filter_gui.h"
#include "shell/forms_gui.h"
#include "shell/twips.h"
#include "shell/variables.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QStyle>
#include <QVBoxLayout>

#include <exception>

namespace quillon {

namespace {

constexpr int kScreenWidth = 9480;   // twips
constexpr int kScreenHeight = 5430;  // twips

QPushButton* MoveButton(const char* name, QStyle::StandardPixmap icon, const QString& tip,
                        QWidget* parent) {
    auto* button = new QPushButton(parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setIcon(parent->style()->standardIcon(icon));
    button->setToolTip(tip);
    // A click must not first take the focus out of a box with a bad date: the
    // move's own check tells the user, once.
    button->setFocusPolicy(Qt::NoFocus);
    return button;
}

// Hourglass for as long as the object lives.
class WaitPointer {
public:
    WaitPointer() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitPointer() { QApplication::restoreOverrideCursor(); }
    WaitPointer(const WaitPointer&) = delete;
    WaitPointer& operator=(const WaitPointer&) = delete;
};

dao::Database OpenClientDatabase() {
    return dao::OpenDatabase(PathOnDisk(ClientDatabasePath()));
}

}  // namespace

SectionScreen::SectionScreen(int section, QWidget* parent)
    : QWidget(parent),
      section_(section),
      name_(SectionFormName(section)),
      shown_(SectionShownClient(section)),
      dateGate_(SectionHasDateGate(section)),
      image_(SectionTableName(section)) {
    setObjectName(name_);
    BuildFrame();
}

void SectionScreen::BuildFrame() {
    body_ = new QWidget(this);
    picRecord = new QWidget(this);
    picRecord->setObjectName(QStringLiteral("picRecord"));
    cm3First = MoveButton("cm3First", QStyle::SP_MediaSkipBackward, tr("First"), picRecord);
    cm3Previous =
        MoveButton("cm3Previous", QStyle::SP_MediaSeekBackward, tr("Previous"), picRecord);
    cm3Next = MoveButton("cm3Next", QStyle::SP_MediaSeekForward, tr("Next"), picRecord);
    cm3Last = MoveButton("cm3Last", QStyle::SP_MediaSkipForward, tr("Last"), picRecord);
    auto* moves = new QHBoxLayout(picRecord);
    moves->setContentsMargins(0, 0, 0, 0);
    for (QPushButton* button : {cm3First, cm3Previous, cm3Next, cm3Last}) {
        moves->addWidget(button);
    }
    cm3Help = new QPushButton(tr("Help"), this);
    cm3Help->setObjectName(QStringLiteral("cm3Help"));
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(picRecord);
    bottom->addStretch(1);
    bottom->addWidget(cm3Help);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(body_, 1);
    layout->addLayout(bottom);

    connect(cm3First, &QPushButton::clicked, this, [this] { MoveRecord(QStringLiteral("First")); });
    connect(cm3Previous, &QPushButton::clicked, this,
            [this] { MoveRecord(QStringLiteral("Previous")); });
    connect(cm3Next, &QPushButton::clicked, this, [this] { MoveRecord(QStringLiteral("Next")); });
    connect(cm3Last, &QPushButton::clicked, this, [this] { MoveRecord(QStringLiteral("Last")); });
}

void SectionScreen::AddDateBox(QLineEdit* box, DateTest test) {
    dateBoxes_.push_back({box, test});
    InstallKeyRoutine(box, DateKeyFilter);
    box->installEventFilter(this);
}

QString SectionScreen::ShownClientName() const {
    return *shown_.first + QLatin1Char(' ') + *shown_.last;
}

QString SectionScreen::Caption() const {
    return SectionCaption(section_, ShownClientName(), Page(), CaptionDetail());
}

void SectionScreen::Form_Activate() {
    WaitPointer wait;
    Reading = true;
    ReadCRecord();
    Reading = false;
    try {
        ReadMore();
    } catch (const std::exception& error) {
        ReportError(name_, QStringLiteral("Form_Activate"), error);
    }
    ActiveSection = static_cast<qint16>(section_);
    Loading = false;
}

void SectionScreen::Form_Deactivate() {
    if (dateGate_ && CheckDates()) {
        return;
    }
    WriteCRecord();
}

void SectionScreen::Form_Resize() {
    // A bad date is caught before the window can hide; nothing is saved here.
    if (dateGate_) {
        CheckDates();
    }
}

void SectionScreen::ReadCRecord() {
    *shown_.first = CurrentFirst;
    *shown_.last = CurrentLast;
    try {
        dao::Database db = OpenClientDatabase();
        dao::Recordset row = db.OpenRecordset(TableName(), dao::dbOpenTable);
        if (SeekClientRecord(row, *shown_.first, *shown_.last)) {
            image_.Fill(row);
            setWindowTitle(Caption());
        }
        row.Close();
        db.Close();
    } catch (const std::exception& error) {
        ReportError(name_, QStringLiteral("ReadCRecord"), error);
    }
}

void SectionScreen::WriteCRecord() {
    if (Loading) {
        return;
    }
    try {
        dao::Database db = OpenClientDatabase();
        dao::Recordset row = db.OpenRecordset(TableName(), dao::dbOpenTable);
        if (SeekClientRecord(row, *shown_.first, *shown_.last)) {
            // Edit and Update even when nothing differs: the row is touched as
            // every save always has.
            row.Edit();
            image_.AssignChanged(row);
            row.Update();
        }
        row.Close();
        db.Close();
    } catch (const std::exception& error) {
        ReportError(name_, QStringLiteral("WriteCRecord"), error);
    }
}

bool SectionScreen::CheckDates() {
    for (const DateBox& date : dateBoxes_) {
        if (!date.test(date.box->text())) {
            RejectDate(date.box);
            return true;
        }
    }
    return false;
}

void SectionScreen::TellBadDate(QLineEdit* /*box*/) {
    InvalidDate();
}

void SectionScreen::RejectDate(QLineEdit* box) {
    const QScopedValueRollback<bool> rejecting(rejecting_, true);
    TellBadDate(box);
    // This may run because another section was asked for: that one must go,
    // since it is this screen's refused save that stopped the switch.
    for (const QString& name : SectionFormNames()) {
        if (name != name_) {
            UnloadForm(name);
        }
    }
    QCoreApplication::processEvents();
    BringBack();
    box->setFocus();
}

void SectionScreen::BringBack() {
    QWidget* window = ChildWindow(this);
    if (!window->isVisible()) {
        ShowForm(this);
    }
    window->setWindowState(window->windowState() & ~(Qt::WindowMinimized | Qt::WindowMaximized));
    if (frame_ && frame_->mdiArea()) {
        frame_->mdiArea()->setActiveSubWindow(frame_);
    }
}

void SectionScreen::MoveRecord(const QString& direction) {
    if (dateGate_ && CheckDates()) {
        return;
    }
    WriteCRecord();
    MoveClientRecord(TableName(), direction);
    ReadCRecord();
}

bool SectionScreen::Form_Unload() {
    if (dateGate_ && CheckDates()) {
        return true;
    }
    WriteCRecord();
    unloaded_ = true;
    return false;
}

void SectionScreen::closeEvent(QCloseEvent* event) {
    event->setAccepted(!Form_Unload());
}

void SectionScreen::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    AttachToChildWindow();
}

// All section screens open at the place of the one open before.
void SectionScreen::AttachToChildWindow() {
    auto* frame = qobject_cast<QMdiSubWindow*>(parentWidget());
    if (!frame || frame == frame_ || !frame->mdiArea()) {
        return;
    }
    frame_ = frame;
    frame->setGeometry(TwipsToPixels(SectionLeft), TwipsToPixels(SectionTop),
                       TwipsToPixels(kScreenWidth), TwipsToPixels(kScreenHeight));
    // Never so small that the screen's own boxes are squeezed out of sight.
    frame->resize(frame->size().expandedTo(frame->sizeHint()));
    connect(frame->mdiArea(), &QMdiArea::subWindowActivated, this,
            &SectionScreen::SubWindowActivated);
    connect(frame, &QMdiSubWindow::windowStateChanged, this,
            &SectionScreen::ChildWindowStateChanged);
    if (frame->mdiArea()->currentSubWindow() == frame) {
        SubWindowActivated(frame);
    }
}

// Activation is that of a child window among the others; a window outside the
// main window (a message box, a modal list) neither activates nor deactivates.
void SectionScreen::SubWindowActivated(QMdiSubWindow* window) {
    if (!window || unloaded_) {
        return;
    }
    const bool nowActive = window == frame_;
    if (nowActive == active_) {
        return;
    }
    active_ = nowActive;
    if (rejecting_) {
        return;  // brought back to its bad box: nothing was left, nothing is reread
    }
    if (nowActive) {
        Form_Activate();
    } else {
        Form_Deactivate();
    }
}

void SectionScreen::ChildWindowStateChanged(Qt::WindowStates oldState, Qt::WindowStates newState) {
    if ((newState & Qt::WindowMinimized) && !(oldState & Qt::WindowMinimized) && !rejecting_) {
        Form_Resize();
    }
}

bool SectionScreen::FocusMovedByUser(const QEvent* event) {
    // A message box, a menu or another program taking the focus for a while is
    // not the user leaving the box.
    const Qt::FocusReason reason = static_cast<const QFocusEvent*>(event)->reason();
    return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason &&
           reason != Qt::MenuBarFocusReason;
}

bool SectionScreen::LostFocusIsChecked(const QEvent* event) const {
    return event->type() == QEvent::FocusOut && !rejecting_ && !unloaded_ &&
           FocusMovedByUser(event);
}

bool SectionScreen::eventFilter(QObject* watched, QEvent* event) {
    if (LostFocusIsChecked(event)) {
        for (const DateBox& date : dateBoxes_) {
            if (date.box == watched && !date.test(date.box->text())) {
                RejectDate(date.box);
                break;
            }
        }
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace quillon
