#include "reference/reference_screen_gui.h"

#include "data/data_access.h"
#include "platform/services.h"
#include "platform/widgets_gui.h"
#include "shell/forms_gui.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QTimer>
#include <QVBoxLayout>

namespace quillon {

namespace {

QString Text(const char* text) {
    return QString::fromLatin1(text);
}

}  // namespace

ReferenceScreen::ReferenceScreen(const ReferenceTexts& texts, QWidget* parent)
    : QWidget(parent), texts_(texts) {
    setObjectName(Text(texts.form));
    list_ = Named<QListWidget>(Text(texts.list), this);
    list_->setSelectionMode(QAbstractItemView::SingleSelection);
    list_->setUniformItemSizes(true);
    cm3New = Named<QPushButton>(QStringLiteral("cm3New"), QStringLiteral("&New"), this);
    cm3Rename = Named<QPushButton>(QStringLiteral("cm3Rename"), QStringLiteral("&Rename"), this);
    cm3Delete = Named<QPushButton>(QStringLiteral("cm3Delete"), QStringLiteral("&Delete"), this);
    cm3Save = Named<QPushButton>(QStringLiteral("cm3Save"), QStringLiteral("&Save"), this);
    cm3Close = Named<QPushButton>(QStringLiteral("cm3Close"), QStringLiteral("&Close"), this);
    chkUpdate = Named<QCheckBox>(QStringLiteral("chkUpdate"), tr("Check for updates"), this);
    chkUpdate->setToolTip(Text(texts.updateTip));
    tmrNew = Named<QTimer>(QStringLiteral("tmrNew"), this);
    tmrRename = Named<QTimer>(QStringLiteral("tmrRename"), this);

    // A selection is a click; the current row alone moves when the list merely
    // takes the focus.
    connect(list_, &QListWidget::itemSelectionChanged, this, [this] {
        if (!list_->selectedItems().isEmpty()) {
            ListClick();
        }
    });
    connect(cm3Close, &QPushButton::clicked, this, [this] { UnloadForm(objectName()); });
    connect(chkUpdate, &QCheckBox::toggled, this, [this](bool ticked) {
        if (!Loading) {
            *texts_.updateSetting = ticked;
        }
    });
}

QString ReferenceScreen::Title() const {
    return Text(texts_.title);
}

void ReferenceScreen::Arrange(QWidget* top, QWidget* belowList, QWidget* details,
                              std::initializer_list<QWidget*> extraButtons) {
    auto* layout = new QVBoxLayout(this);
    if (top) {
        layout->addWidget(top);
    }
    layout->addLayout(MakeLetterButtons(this, QStringLiteral("cm3Seek"), cm3Seek,
                                        [this](int i) { cm3Seek_Click(i); }));
    auto* middle = new QHBoxLayout;
    layout->addLayout(middle, 1);
    auto* left = new QVBoxLayout;
    middle->addLayout(left, 1);
    left->addWidget(list_, 1);
    if (belowList) {
        left->addWidget(belowList);
    }
    middle->addWidget(details, 1);
    auto* buttons = new QHBoxLayout;
    layout->addLayout(buttons);
    buttons->addWidget(chkUpdate);
    for (QWidget* extra : extraButtons) {
        buttons->addWidget(extra);
    }
    buttons->addStretch(1);
    for (QPushButton* button : {cm3New, cm3Rename, cm3Delete, cm3Save, cm3Close}) {
        buttons->addWidget(button);
    }
}

QString ReferenceScreen::SelectedEntry() const {
    const int row = SelectedRow();
    return row < 0 ? QString() : list_->item(row)->text();
}

int ReferenceScreen::SelectedRow() const {
    const QList<QListWidgetItem*> selected = list_->selectedItems();
    return selected.isEmpty() ? -1 : list_->row(selected.first());
}

void ReferenceScreen::SelectEntry(int row) {
    if (row < 0 || row >= list_->count()) {
        return;
    }
    {
        const QSignalBlocker quiet(list_);
        list_->setCurrentRow(row);
    }
    ListClick();
}

int ReferenceScreen::RowOf(const QString& entry) const {
    for (int row = 0; row < list_->count(); ++row) {
        if (list_->item(row)->text() == entry) {
            return row;
        }
    }
    return -1;
}

bool ReferenceScreen::SelectEntryText(const QString& entry) {
    const int row = RowOf(entry);
    SelectEntry(row);
    return row >= 0;
}

void ReferenceScreen::RemoveSelectedEntry() {
    const int row = SelectedRow();
    if (row < 0) {
        return;
    }
    {
        const QSignalBlocker quiet(list_);
        delete list_->takeItem(row);
        list_->setCurrentRow(-1);
    }
    ClearShown();
    SelectEntry(qMin(row, list_->count() - 1));
}

void ReferenceScreen::cm3Seek_Click(int index) {
    const int row = RowForLetter(list_, index, Text(texts_.noLetter), Title());
    if (row < 0) {
        return;
    }
    // From the bottom, the entry found comes to the top of the list.
    list_->scrollToBottom();
    SelectEntry(row);
    list_->scrollToItem(list_->item(row), QAbstractItemView::PositionAtTop);
}

void ReferenceScreen::Report(const QString& module, const QString& procedure,
                             const std::exception& error) const {
    MsgBox(ErrorReportText(module, procedure, DetailsOf(error)), vbExclamation, Title());
}

void ReferenceScreen::Form_Activate() {
    Loading = false;
}

void ReferenceScreen::closeEvent(QCloseEvent* event) {
    const bool cancelled = !unloaded_ && Form_Unload();
    unloaded_ = !cancelled;
    event->setAccepted(!cancelled);
}

void ReferenceScreen::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    auto* frame = qobject_cast<QMdiSubWindow*>(parentWidget());
    if (!frame || frame == frame_ || !frame->mdiArea()) {
        return;
    }
    frame_ = frame;
    connect(frame->mdiArea(), &QMdiArea::subWindowActivated, this,
            &ReferenceScreen::SubWindowActivated);
    if (frame->mdiArea()->currentSubWindow() == frame) {
        SubWindowActivated(frame);
    }
}

// Activation is that of a child window among the others; a dialog or message
// box over the main window neither activates nor deactivates.
void ReferenceScreen::SubWindowActivated(QMdiSubWindow* window) {
    if (!window || unloaded_ || bringingBack_) {
        return;
    }
    const bool nowActive = window == frame_;
    if (nowActive == active_) {
        return;
    }
    active_ = nowActive;
    if (nowActive) {
        Form_Activate();
    } else if (!Form_Deactivate() && frame_ && frame_->mdiArea()) {
        // Brought back as it stands: nothing was left, so nothing is reread.
        const QScopedValueRollback<bool> back(bringingBack_, true);
        frame_->mdiArea()->setActiveSubWindow(frame_);
        active_ = true;
    }
}

}  // namespace quillon
