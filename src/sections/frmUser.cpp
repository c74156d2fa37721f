#include "sections/frmUser.h"

#include "data/data_access.h"
#include "platform/dao.h"
#include "platform/files.h"
#include "platform/services.h"
#include "shell/forms_gui.h"
#include "shell/frmQuillon.h"
#include "shell/variables.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

#include <exception>

namespace quillon {

namespace {

const QString kModule = QStringLiteral("frmUser");
const QString kCommonRow = QStringLiteral("User");
constexpr int kCommonWidth = 40;
constexpr int kTitleWidth = 20;

QLineEdit* NamedBox(const QString& name, QWidget* parent) {
    auto* box = new QLineEdit(parent);
    box->setObjectName(name);
    return box;
}

// The `Common` row "User", ready for Edit; the caller keeps `db` open.
dao::Recordset SeekUserCommon(dao::Database& db) {
    dao::Recordset common = db.OpenRecordset(QStringLiteral("Common"), dao::dbOpenTable);
    common.SetIndex(QStringLiteral("Name"));
    common.Seek(QStringLiteral("="), {kCommonRow});
    return common;
}

}  // namespace

frmUser::frmUser(QWidget* parent) : SectionScreen(kUserSection, parent) {
    BuildLines();
    for (int i = 1; i <= kLines; ++i) {
        Image().BindText(txtLeft[i], QStringLiteral("Left %1").arg(i));
        Image().BindText(txtRight[i], QStringLiteral("Right %1").arg(i));
    }
    Image().BindText(txtNoteLeft, QStringLiteral("Note Left"));
    Image().BindText(txtNoteRight, QStringLiteral("Note Right"));
    connect(txtUserFormTitle, &QLineEdit::textChanged, this, &frmUser::txtUserFormTitle_Change);
}

void frmUser::BuildLines() {
    auto* grid = new QGridLayout(Body());
    auto* titleLabel = new QLabel(QStringLiteral("Title"), Body());
    txtUserFormTitle = NamedBox(QStringLiteral("txtUserFormTitle"), Body());
    txtUserFormTitle->setMaxLength(kTitleWidth);
    titleLabel->setBuddy(txtUserFormTitle);
    txtUserFormTitle->installEventFilter(this);
    grid->addWidget(titleLabel, 0, 0);
    grid->addWidget(txtUserFormTitle, 0, 1);
    for (int i = 1; i <= kLines; ++i) {
        txtCommon[i] = NamedBox(QStringLiteral("txtCommon(%1)").arg(i), Body());
        txtCommon[i]->setMaxLength(kCommonWidth);
        txtCommon[i]->installEventFilter(this);
        txtLeft[i] = NamedBox(QStringLiteral("txtLeft(%1)").arg(i), Body());
        txtRight[i] = NamedBox(QStringLiteral("txtRight(%1)").arg(i), Body());
        grid->addWidget(txtCommon[i], i, 0);
        grid->addWidget(txtLeft[i], i, 1);
        grid->addWidget(txtRight[i], i, 2);
    }
    txtNoteLeft = new QPlainTextEdit(Body());
    txtNoteLeft->setObjectName(QStringLiteral("txtNoteLeft"));
    txtNoteRight = new QPlainTextEdit(Body());
    txtNoteRight->setObjectName(QStringLiteral("txtNoteRight"));
    grid->addWidget(txtNoteLeft, kLines + 1, 0, 1, 2);
    grid->addWidget(txtNoteRight, kLines + 1, 2);
}

QString frmUser::CaptionDetail() const {
    return txtUserFormTitle->text();
}

void frmUser::ReadMore() {
    ReadCommon();
    setWindowTitle(Caption());
}

void frmUser::ReadCommon() {
    try {
        dao::Database db = dao::OpenDatabase(PathOnDisk(ClientDatabasePath()));
        dao::Recordset common = SeekUserCommon(db);
        if (!common.NoMatch()) {
            for (int i = 1; i <= kLines; ++i) {
                commonImage_[i] = NullToEmpty(common.Fields(QStringLiteral("Text %1").arg(i)));
                txtCommon[i]->setText(commonImage_[i]);
            }
            txtUserFormTitle->setText(NullToEmpty(common.Fields(QStringLiteral("Title"))));
        }
        common.Close();
        db.Close();
    } catch (const std::exception& error) {
        ReportError(kModule, QStringLiteral("ReadCommon"), error);
    }
}

void frmUser::txtCommon_GotFocus(int index) {
    commonImage_[index] = txtCommon[index]->text();
}

void frmUser::txtCommon_LostFocus(int index) {
    if (txtCommon[index]->text() == commonImage_[index]) {
        return;
    }
    const QString question =
        QStringLiteral("You have changed a common description.") + QLatin1Char('\n') +
        QStringLiteral("The change will apply to all records in the database.") +
        QLatin1Char('\n') + QStringLiteral("Are you sure you wish to make this change?");
    const int answer =
        MsgBox(question, vbYesNo | vbQuestion | vbDefaultButton2, txtUserFormTitle->text());
    if (answer != vbYes) {
        txtCommon[index]->setText(commonImage_[index]);
        return;
    }
    WriteCommonText(index);
}

void frmUser::WriteCommonText(int index) {
    try {
        dao::Database db = dao::OpenDatabase(PathOnDisk(ClientDatabasePath()));
        dao::Recordset common = SeekUserCommon(db);
        if (!common.NoMatch()) {
            common.Edit();
            common.Fields(QStringLiteral("Text %1").arg(index)).SetValue(txtCommon[index]->text());
            common.Update();
            commonImage_[index] = txtCommon[index]->text();
        }
        common.Close();
        db.Close();
    } catch (const std::exception& error) {
        ReportError(kModule, QStringLiteral("txtCommon_LostFocus"), error);
    }
}

void frmUser::txtUserFormTitle_Change() {
    UserTitle = txtUserFormTitle->text();
    setWindowTitle(Caption());
    if (auto* main = LoadedForm<frmQuillon>()) {
        main->ShowUserTitle();
    }
}

void frmUser::txtUserFormTitle_LostFocus() {
    // Stored only now, though shown everywhere since the first key.
    WriteTitle();
}

void frmUser::WriteTitle() {
    try {
        dao::Database db = dao::OpenDatabase(PathOnDisk(ClientDatabasePath()));
        dao::Recordset common = SeekUserCommon(db);
        if (!common.NoMatch()) {
            common.Edit();
            common.Fields(QStringLiteral("Title")).SetValue(txtUserFormTitle->text());
            common.Update();
        }
        common.Close();
        db.Close();
    } catch (const std::exception& error) {
        ReportError(kModule, QStringLiteral("WriteTitle"), error);
    }
}

bool frmUser::eventFilter(QObject* watched, QEvent* event) {
    const bool focusIn = event->type() == QEvent::FocusIn;
    const bool focusOut = event->type() == QEvent::FocusOut;
    if ((focusIn || focusOut) && FocusMovedByUser(event)) {
        if (watched == txtUserFormTitle && focusOut) {
            txtUserFormTitle_LostFocus();
        }
        for (int i = 1; i <= kLines; ++i) {
            if (watched != txtCommon[i]) {
                continue;
            }
            if (focusIn) {
                txtCommon_GotFocus(i);
            } else {
                txtCommon_LostFocus(i);
            }
        }
    }
    return SectionScreen::eventFilter(watched, event);
}

}  // namespace quillon
