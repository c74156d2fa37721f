#include "sections/section_screen_gui.h"

#include "data/client_data.h"
#include "platform/widgets_gui.h"
#include "shell/forms_gui.h"
#include "shell/twips.h"
#include "shell/variables.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QStyle>
#include <QTimer>
#include <QVBoxLayout>

#include <cmath>

namespace quillon {

namespace {

// Every section screen opens at this size, given in twips for the font the
// screens were first laid out in (kDesignLineHeight); a larger font enlarges
// it in proportion, so that the boxes still fit.
constexpr int kScreenWidth = 9480;
constexpr int kScreenHeight = 5430;

QSize ScreenSize(const QWidget* screen) {
    const double scale = std::max(1.0, screen->fontMetrics().height() / kDesignLineHeight);
    return {TwipsToPixels(static_cast<int>(std::lround(kScreenWidth * scale))),
            TwipsToPixels(static_cast<int>(std::lround(kScreenHeight * scale)))};
}

QPushButton* MoveButton(const char* name, QStyle::StandardPixmap icon, const QString& tip,
                        QWidget* parent) {
    auto* button = Named<QPushButton>(QString::fromLatin1(name), parent);
    button->setIcon(parent->style()->standardIcon(icon));
    button->setToolTip(tip);
    // A click must not first take the focus out of a box with a bad date: the
    // move's own check tells the user, once.
    button->setFocusPolicy(Qt::NoFocus);
    return button;
}

int Wrapped(int page) {
    return (page - 1 + kSectionPages) % kSectionPages + 1;
}

}  // namespace

SectionScreen::SectionScreen(SectionNumber section, QWidget* parent)
    : QWidget(parent),
      row_(*Section(section)),
      name_(QString::fromLatin1(row_.form)),
      image_(SectionTableName(row_, 1)) {
    setObjectName(name_);
    BuildFrame();
}

void SectionScreen::BuildFrame() {
    body_ = new QWidget;
    // Should a large font need more room than the screen's size, the boxes
    // scroll rather than squeeze.
    scroller_ = new QScrollArea(this);
    scroller_->setFrameShape(QFrame::NoFrame);
    scroller_->setFocusPolicy(Qt::NoFocus);
    scroller_->setWidgetResizable(true);
    scroller_->setWidget(body_);
    picRecord = Named<QWidget>(QStringLiteral("picRecord"), this);
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
    cm3Help = Named<QPushButton>(QStringLiteral("cm3Help"), tr("Help"), this);
    bottom_ = new QHBoxLayout;
    bottom_->addWidget(picRecord);
    bottom_->addStretch(1);
    bottom_->addWidget(cm3Help);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(scroller_, 1);
    layout->addLayout(bottom_);

    connect(cm3First, &QPushButton::clicked, this, [this] { MoveRecord(QStringLiteral("First")); });
    connect(cm3Previous, &QPushButton::clicked, this,
            [this] { MoveRecord(QStringLiteral("Previous")); });
    connect(cm3Next, &QPushButton::clicked, this, [this] { MoveRecord(QStringLiteral("Next")); });
    connect(cm3Last, &QPushButton::clicked, this, [this] { MoveRecord(QStringLiteral("Last")); });
}

void SectionScreen::AddCommand(QWidget* widget) {
    bottom_->insertWidget(bottom_->indexOf(cm3Help), widget);
}

// The child window first takes this size, before it is given the screens'
// one: a scroll bar weighed at the boxes' own smaller size would stay after it
// was no longer needed.
QSize SectionScreen::sizeHint() const {
    return ScreenSize(this);
}

QLineEdit* SectionScreen::Box(const QString& name) const {
    return Control<QLineEdit>(this, name);
}

QString SectionScreen::Caption() const {
    return SectionCaption(row_, Shown().first + QLatin1Char(' ') + Shown().last, Page(),
                          CaptionDetail());
}

int SectionScreen::Page() const {
    return row_.page ? Wrapped(*row_.page) : 1;
}

void SectionScreen::Form_Activate() {
    WaitPointer wait;
    Reading = true;
    ReadCRecord();
    Reading = false;
    ReadMore();
    ActiveSection = row_.number;
    Loading = false;
}

bool SectionScreen::Form_Deactivate() {
    if (row_.dateGate && CheckDates()) {
        return false;
    }
    WriteCRecord();
    return true;
}

void SectionScreen::Form_Resize() {
    // A bad date is caught before the window can hide; nothing is saved here.
    if (row_.dateGate) {
        CheckDates();
    }
}

void SectionScreen::ReadCRecord() {
    *row_.shownFirst = CurrentFirst;
    *row_.shownLast = CurrentLast;
    ReadClientRow(
        RoutineOf(QStringLiteral("ReadCRecord")), TableName(), Shown(),
        [this](const dao::Recordset& row) {
            image_.Fill(row);
            setWindowTitle(Caption());
        },
        commonAlongside_);
    ReadAlongside();
}

void SectionScreen::WriteCRecord() {
    if (Loading) {
        return;
    }
    BeforeWrite();
    // Edit and Update even when nothing differs: the row is touched as every
    // save always has.
    ChangeClientRow(RoutineOf(QStringLiteral("WriteCRecord")), TableName(), Shown(),
                    [this](dao::Recordset& row) { image_.AssignChanged(row); });
}

bool SectionScreen::CheckDates() {
    for (const Check& check : checks_) {
        if (!check.valid()) {
            RejectDate(check.focusBox);
            return true;
        }
    }
    return false;
}

void SectionScreen::RejectDate(QLineEdit* box) {
    const QScopedValueRollback<bool> rejecting(rejecting_, true);
    for (const Check& check : checks_) {
        if (check.focusBox == box && !check.valid()) {
            check.tell();
            break;
        }
    }
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
    // Until the events of this attempt have run, whatever it still activates
    // is taken back without a word.
    rejectedBox_ = box;
    QTimer::singleShot(0, this, [this] { rejectedBox_ = nullptr; });
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
    if (row_.dateGate && CheckDates()) {
        return;
    }
    WriteCRecord();
    MoveClientRecord(TableName(), direction);
    ReadCRecord();
}

void SectionScreen::ChangePage(int step) {
    if (!row_.page) {
        return;
    }
    WaitPointer wait;
    WriteCRecord();
    PageLeaving();
    *row_.page = static_cast<quint8>(Wrapped(Page() + step));
    Reading = true;
    ReadCRecord();
    Reading = false;
    PageEntered();
    ShowPage();
}

void SectionScreen::ShowPage() {
    if (pageLabel_) {
        pageLabel_->setText(QStringLiteral("PAGE ") + QString::number(Page()));
    }
    if (pageSpin_) {
        const QSignalBlocker quiet(pageSpin_);
        pageSpin_->setValue(Page());
    }
    setWindowTitle(Caption());
}

bool SectionScreen::Form_Unload() {
    if (row_.dateGate && CheckDates()) {
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
    ShowPage();
    AttachToChildWindow();
}

// All section screens open at one size, at the place of the one open before.
void SectionScreen::AttachToChildWindow() {
    auto* frame = qobject_cast<QMdiSubWindow*>(parentWidget());
    if (!frame || frame == frame_ || !frame->mdiArea()) {
        return;
    }
    frame_ = frame;
    // A click on the frame or on a label is not the user leaving a box, and
    // the focus that the frame takes for itself goes back to the box.
    frame->setFocusPolicy(Qt::NoFocus);
    frame->installEventFilter(this);
    frame->setGeometry(
        QRect(QPoint(TwipsToPixels(SectionLeft), TwipsToPixels(SectionTop)), ScreenSize(this)));
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
    if (!nowActive && rejectedBox_) {
        // The child area goes on with the activation that a bad date has just
        // refused: the same attempt, told once already.
        const QScopedValueRollback<bool> rejecting(rejecting_, true);
        BringBack();
        rejectedBox_->setFocus();
        return;
    }
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

bool FocusMovedByUser(const QEvent* event) {
    const Qt::FocusReason reason = static_cast<const QFocusEvent*>(event)->reason();
    return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason &&
           reason != Qt::MenuBarFocusReason;
}

// A box is left when the focus goes to another control of this screen. Leaving
// the screen altogether is its deactivation or unload, which check for
// themselves.
bool SectionScreen::LeftForAnotherBox(const QEvent* event) const {
    if (event->type() != QEvent::FocusOut || rejecting_ || unloaded_ || !FocusMovedByUser(event)) {
        return false;
    }
    const QWidget* next = QApplication::focusWidget();
    return next && next != this && isAncestorOf(next);
}

void SectionScreen::BoxLeft(QObject* box) {
    for (const auto& [watched, check] : checkedOnLeaving_) {
        if (watched != box) {
            continue;
        }
        if (check < 0) {
            CheckDates();
        } else if (!checks_[check].valid()) {
            RejectDate(checks_[check].focusBox);
        }
        return;
    }
}

bool SectionScreen::eventFilter(QObject* watched, QEvent* event) {
    if (watched == frame_ && event->type() == QEvent::FocusIn && focusWidget()) {
        focusWidget()->setFocus();
    } else if (LeftForAnotherBox(event)) {
        BoxLeft(watched);
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace quillon
