#include "support/reference_testing.h"

#include "data/data_access.h"
#include "platform/dao.h"
#include "shell/forms_gui.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QImage>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

namespace quillon::testing {

void AddRows(const QString& path, const QString& table, const QList<FieldsOfRow>& rows) {
    dao::Database db = dao::OpenDatabase(path);
    dao::Recordset added = db.OpenRecordset(table);
    for (const FieldsOfRow& row : rows) {
        added.AddNew();
        for (const auto& [field, value] : row) {
            added.Fields(field).SetValue(value);
        }
        added.Update();
    }
}

QStringList Lines(const QString& path, const QString& table, const QStringList& fields,
                  const QString& index) {
    dao::Database db = dao::OpenDatabase(path);
    dao::Recordset rows = db.OpenRecordset(table);
    if (!index.isEmpty()) {
        rows.SetIndex(index);
    }
    QStringList lines;
    for (rows.MoveFirst(); !rows.IsEOF(); rows.MoveNext()) {
        QStringList values;
        for (const QString& field : fields) {
            const QVariant value = rows.Fields(field).Value();
            values << (value.isNull() ? QStringLiteral("~") : value.toString());
        }
        lines << values.join(QLatin1Char('|'));
    }
    return lines;
}

QStringList Contents(const QString& path) {
    dao::Database db = dao::OpenDatabase(path);
    QStringList lines;
    for (const QString& table : db.TableNames()) {
        dao::Recordset rows = db.OpenRecordset(table);
        QStringList fields;
        for (int i = 0; i < rows.FieldCount(); ++i) {
            fields << rows.Fields(i).Name();
        }
        lines << table + QLatin1Char(':') << Lines(path, table, fields);
    }
    return lines;
}

void SetVersion(const QString& path, const QString& version) {
    dao::Database db = dao::OpenDatabase(path);
    dao::Recordset row = db.OpenRecordset(QStringLiteral("Version"));
    row.MoveFirst();
    row.Edit();
    row.Fields(QStringLiteral("Version")).SetValue(version);
    row.Update();
}

void InModal(const std::function<void()>& open, const std::function<void(QWidget*)>& use) {
    bool reached = false;
    QTimer::singleShot(0, [&] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        QVERIFY(dialog);
        reached = true;
        use(dialog);
        if (dialog->isVisible()) {
            dialog->reject();
        }
    });
    open();
    QVERIFY(reached);
}

QStringList Entries(const QListWidget* list) {
    QStringList texts;
    for (int row = 0; row < list->count(); ++row) {
        texts << list->item(row)->text();
    }
    return texts;
}

void ClickEntry(QListWidget* list, int row) {
    list->scrollToItem(list->item(row));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->item(row)).center());
}

void SaveScreenshot(QWidget* form, const QString& name) {
    QWidget* window = ChildWindow(form);
    QVERIFY(QTest::qWaitForWindowExposed(window->window()));
    const QString folder = QStringLiteral(QUILLON_TEST_DATA_DIR "/../../docs/screenshots");
    QVERIFY(QDir().mkpath(folder));
    QVERIFY(window->grab().toImage().save(folder + QLatin1Char('/') + name));
}

}  // namespace quillon::testing
