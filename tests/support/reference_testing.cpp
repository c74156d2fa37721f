#include "support/reference_testing.h"

#include "platform/dao.h"
#include "reference/reference_dialogs_gui.h"
#include "shell/forms_gui.h"
#include "support/section_testing.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QImage>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

namespace quillon::testing {

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

void SetVersion(const QString& path, const QString& version) {
    dao::OpenDatabase(path).Execute(
        QStringLiteral("UPDATE Version SET Version = '%1'").arg(version));
}

void OfficeDialogOK(const std::function<void()>& open, const QString& number, const QString& name) {
    WithModal(open, [&](QWidget* dialog) {
        auto* office = qobject_cast<OfficeDialog*>(dialog);
        office->txtNumber->clear();
        office->txtName->clear();
        QTest::keyClicks(office->txtNumber, number);
        QTest::keyClicks(office->txtName, name);
        office->cm3OK->click();
    });
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
