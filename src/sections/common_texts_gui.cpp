#include "sections/common_texts_gui.h"

#include "data/data_access.h"
#include "data/database_schema.h"
#include "platform/services.h"
#include "sections/section_screen_gui.h"

#include <QEvent>
#include <QLineEdit>

namespace quillon {

CommonTexts::CommonTexts(QObject* parent, std::function<QString()> row, QString firstLine,
                         std::function<QString()> title, QString module)
    : QObject(parent),
      row_(std::move(row)),
      firstLine_(std::move(firstLine)),
      title_(std::move(title)),
      module_(std::move(module)) {}

void CommonTexts::Add(int index, QLineEdit* box, const QString& procedure) {
    box->setMaxLength(
        ClientFieldWidth(QStringLiteral("Common"), QStringLiteral("Text %1").arg(index)));
    entries_[index] = {box, procedure, QString()};
    box->installEventFilter(this);
}

void CommonTexts::Read(const QString& procedure, const RowReader& more) {
    ReadCommonRow({module_, procedure}, row_(), [this, &more](const dao::Recordset& row) {
        Fill(row);
        if (more) {
            more(row);
        }
    });
}

void CommonTexts::Fill(const dao::Recordset& row) {
    for (auto& [index, entry] : entries_) {
        entry.image = NullToEmpty(row.Fields(QStringLiteral("Text %1").arg(index)));
        entry.box->setText(entry.image);
    }
}

void CommonTexts::FinishTyping() {
    for (auto& [index, entry] : entries_) {
        if (entry.box->hasFocus()) {
            Left(index, entry);
        }
    }
}

bool CommonTexts::eventFilter(QObject* watched, QEvent* event) {
    const bool in = event->type() == QEvent::FocusIn;
    const bool out = event->type() == QEvent::FocusOut;
    if ((in || out) && FocusMovedByUser(event)) {
        for (auto& [index, entry] : entries_) {
            if (entry.box != watched) {
                continue;
            }
            if (in) {
                entry.image = entry.box->text();
            } else {
                Left(index, entry);
            }
        }
    }
    return QObject::eventFilter(watched, event);
}

void CommonTexts::Left(int index, Entry& entry) {
    const QString text = entry.box->text();
    if (text == entry.image) {
        return;
    }
    const QString question =
        firstLine_ + QLatin1Char('\n') +
        QStringLiteral("The change will apply to all records in the database.") +
        QLatin1Char('\n') + QStringLiteral("Are you sure you wish to make this change?");
    if (MsgBox(question, vbYesNo | vbQuestion | vbDefaultButton2, title_()) != vbYes) {
        entry.box->setText(entry.image);
        return;
    }
    const bool written =
        ChangeCommonRow({module_, entry.procedure}, row_(), [index, &text](dao::Recordset& row) {
            row.Fields(QStringLiteral("Text %1").arg(index)).SetValue(text);
        });
    if (written) {
        entry.image = text;
    }
}

}  // namespace quillon
