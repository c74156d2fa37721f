#include "sections/frmUser.h"

#include "data/data_access.h"
#include "data/database_schema.h"
#include "sections/common_texts_gui.h"
#include "shell/forms_gui.h"
#include "shell/frmQuillon.h"
#include "shell/variables.h"

#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QVBoxLayout>

namespace quillon {

namespace {

const QString kCommonRow = QStringLiteral("User");
const QString kTitle = QStringLiteral("Title");

// The description of each line is the common row's; the two values are the client's.
const GridColumn kLinesTable[] = {
    {"txtCommon", nullptr},
    {"txtLeft", "Left %1"},
    {"txtRight", "Right %1"},
};

const FieldRow kTitleRow[] = {{"txtUserFormTitle", nullptr, FieldRule::Text, "Title"}};

const FieldRow kNotes[] = {
    {"txtNoteLeft", "Note Left", FieldRule::Note, ""},
    {"txtNoteRight", "Note Right", FieldRule::Note, nullptr},
};

}  // namespace

frmUser::frmUser(QWidget* parent) : SectionScreen(kUserSection, parent) {
    QGroupBox* title = FieldGroup(QString(), kTitleRow);
    QWidget* lines = FieldGrid(kLinesTable, 1, kLines);
    QGroupBox* notes = FieldGroup(QString(), kNotes);
    txtUserFormTitle = Box(QStringLiteral("txtUserFormTitle"));
    txtUserFormTitle->setMaxLength(ClientFieldWidth(QStringLiteral("Common"), kTitle));
    txtUserFormTitle->installEventFilter(this);
    common_ = new CommonTexts(
        this, [] { return kCommonRow; }, QStringLiteral("You have changed a common description."),
        [this] { return txtUserFormTitle->text(); }, QString::fromLatin1(kFormName));
    for (int i = 1; i <= kLines; ++i) {
        common_->Add(i, Box(QStringLiteral("txtCommon(%1)").arg(i)),
                     QStringLiteral("txtCommon_LostFocus"));
    }
    Arrange({{title, lines, notes}});
    connect(txtUserFormTitle, &QLineEdit::textChanged, this, &frmUser::txtUserFormTitle_Change);
}

QString frmUser::CaptionDetail() const {
    return txtUserFormTitle->text();
}

void frmUser::ReadMore() {
    ReadCommon();
    setWindowTitle(Caption());
}

void frmUser::ReadCommon() {
    common_->Read(QStringLiteral("ReadCommon"), [this](const dao::Recordset& row) {
        txtUserFormTitle->setText(NullToEmpty(row.Fields(kTitle)));
    });
}

void frmUser::txtUserFormTitle_Change() {
    UserTitle = txtUserFormTitle->text();
    setWindowTitle(Caption());
    if (auto* main = LoadedForm<frmQuillon>()) {
        main->ShowUserTitle();
    }
}

// Stored only on leaving the box, though shown everywhere since the first key.
void frmUser::WriteTitle() {
    const QString title = txtUserFormTitle->text();
    ChangeCommonRow(RoutineOf(QStringLiteral("WriteTitle")), kCommonRow,
                    [&title](dao::Recordset& row) { row.Fields(kTitle).SetValue(title); });
}

bool frmUser::eventFilter(QObject* watched, QEvent* event) {
    if (watched == txtUserFormTitle && event->type() == QEvent::FocusOut &&
        FocusMovedByUser(event)) {
        WriteTitle();
    }
    return SectionScreen::eventFilter(watched, event);
}

}  // namespace quillon
