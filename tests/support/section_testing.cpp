#include "support/section_testing.h"

#include "data/data_access.h"
#include "data/database_schema.h"
#include "data/delivered_databases.h"
#include "platform/dao.h"
#include "sections/frmPersonal.h"
#include "sections/sections.h"
#include "shell/configuration.h"
#include "shell/forms_gui.h"
#include "shell/frmQuillon.h"
#include "shell/variables.h"
#include "support/shell_testing.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QFile>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>
#include <QRadioButton>
#include <QTimer>
#include <QtTest>

namespace quillon::testing {

namespace {

dao::Recordset SeekRow(dao::Database& db, const QString& table, const ClientName& client) {
    dao::Recordset row = db.OpenRecordset(table);
    row.SetIndex(QStringLiteral("Name"));
    row.Seek(QStringLiteral("="), {client.last, client.first});
    if (row.NoMatch()) {
        QTest::qFail(
            qPrintable(QStringLiteral("no row of ") + client.last + QStringLiteral(" in ") + table),
            __FILE__, __LINE__);
    }
    return row;
}

}  // namespace

SectionWorld::SectionWorld(const QList<ClientName>& clients) {
    PrepareShellTests();
    SetDefaults();
    QFile::remove(DatabasePath());
    MakeClientDatabase(DatabasePath());
    dao::Database db = dao::OpenDatabase(DatabasePath());
    for (const QString& table : ClientTableNames()) {
        // Only the test's own clients, so that moves go where the test expects.
        db.Execute(QStringLiteral("DELETE FROM [%1]").arg(table));
        dao::Recordset rows = db.OpenRecordset(table);
        for (const ClientName& client : clients) {
            rows.AddNew();
            rows.Fields(QStringLiteral("First Names")).SetValue(client.first);
            rows.Fields(QStringLiteral("Last Name")).SetValue(client.last);
            rows.Update();
        }
    }
    db.Close();
    CurrentFirst = clients.value(0).first;
    CurrentLast = clients.value(0).last;
    ActiveSection = 0;
    auto* main = LoadForm<frmQuillon>();
    QApplication::setActiveWindow(main);
}

SectionWorld::~SectionWorld() {
    CloseMainWindow();
}

QString SectionWorld::DatabasePath() const {
    return folder_.File(QStringLiteral("QUILL020.MDB"));
}

QWidget* SectionWorld::MainWindow() const {
    return LoadedForm<frmQuillon>();
}

QVariant FieldOf(const QString& table, const ClientName& client, const QString& field) {
    dao::Database db = dao::OpenDatabase(ClientDatabasePath());
    dao::Recordset row = SeekRow(db, table, client);
    return row.NoMatch() ? QVariant() : row.Fields(field).Value();
}

void SetFields(const QString& table, const ClientName& client,
               const QList<QPair<QString, QVariant>>& values) {
    dao::Database db = dao::OpenDatabase(ClientDatabasePath());
    dao::Recordset row = SeekRow(db, table, client);
    row.Edit();
    for (const auto& [field, value] : values) {
        row.Fields(field).SetValue(value);
    }
    row.Update();
}

QVariant CommonField(const QString& name, const QString& field) {
    dao::Database db = dao::OpenDatabase(ClientDatabasePath());
    dao::Recordset row = db.OpenRecordset(QStringLiteral("Common"));
    row.SetIndex(QStringLiteral("Name"));
    row.Seek(QStringLiteral("="), {name});
    return row.NoMatch() ? QVariant() : row.Fields(field).Value();
}

void ActivateChild(QWidget* form) {
    auto* frame = qobject_cast<QMdiSubWindow*>(ChildWindow(form));
    QVERIFY(frame && frame->mdiArea());
    frame->mdiArea()->setActiveSubWindow(frame);
}

QWidget* OtherChildWindow() {
    auto* other = new QWidget;
    other->setObjectName(QStringLiteral("otherWindow"));
    other->setAttribute(Qt::WA_DeleteOnClose);
    ShowForm(other);
    return other;
}

void Trigger(const QString& command) {
    auto* main = LoadedForm<frmQuillon>();
    QVERIFY(main);
    main->Command(command)->trigger();
}

void Focus(QWidget* widget) {
    widget->setFocus(Qt::MouseFocusReason);
    QApplication::processEvents();
}

void Leave(QWidget* box) {
    if (box->hasFocus()) {
        QTest::keyClick(box, Qt::Key_Tab);
    }
}

void TypeInto(QLineEdit* box, const QString& text) {
    Focus(box);
    box->selectAll();
    if (text.isEmpty()) {
        QTest::keyClick(box, Qt::Key_Delete);
    } else {
        QTest::keyClicks(box, text);
    }
    Leave(box);
}

SectionScreen* OpenSection(const QString& command) {
    Trigger(command);
    const SectionRow* section = Section(ActiveSection);
    return section ? qobject_cast<SectionScreen*>(LoadedForm(QString::fromLatin1(section->form)))
                   : nullptr;
}

frmPersonal* OpenPersonal() {
    Trigger(QStringLiteral("cm3Personal"));
    return LoadedForm<frmPersonal>();
}

void WithModal(const std::function<void()>& open, const std::function<void(QWidget*)>& use) {
    bool reached = false;
    QTimer::singleShot(0, [&] {
        QPointer<QWidget> modal = QApplication::activeModalWidget();
        if ((reached = modal)) {
            use(modal);
        }
        if (modal && modal->isVisible()) {
            modal->close();
        }
    });
    open();
    QVERIFY(reached);
}

void Click(QWidget* widget) {
    // A tick or option is hit on its box, which a wide one has at its left.
    const bool box = qobject_cast<QCheckBox*>(widget) || qobject_cast<QRadioButton*>(widget);
    const QPoint at = box ? QPoint(6, widget->height() / 2) : widget->rect().center();
    QTest::mouseClick(widget, Qt::LeftButton, {}, at);
}

}  // namespace quillon::testing
