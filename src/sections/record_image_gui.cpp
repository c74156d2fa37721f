#include "sections/record_image_gui.h"

#include "data/data_access.h"
#include "data/database_schema.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace quillon {

OptionGroup::OptionGroup(std::vector<QAbstractButton*> buttons) : buttons_(std::move(buttons)) {
    // The group keeps one button on by itself; Select(0) must be able to clear it.
    for (QAbstractButton* button : buttons_) {
        button->setAutoExclusive(false);
        QObject::connect(button, &QAbstractButton::clicked, button, [this, button] {
            for (QAbstractButton* other : buttons_) {
                other->setChecked(other == button);
            }
        });
    }
}

int OptionGroup::Selected() const {
    for (int i = 0; i < Count(); ++i) {
        if (buttons_[i]->isChecked()) {
            return i + 1;
        }
    }
    return 0;
}

void OptionGroup::Select(int index) {
    for (int i = 0; i < Count(); ++i) {
        buttons_[i]->setChecked(i + 1 == index);
    }
}

int RecordImage::FieldWidth(const QString& field) const {
    return ClientFieldWidth(table_, field);
}

void RecordImage::BindText(QLineEdit* box, const QString& field, Shown shown) {
    if (const int width = FieldWidth(field); width > 0) {
        box->setMaxLength(width);
    }
    texts_.push_back({field,
                      [box] { return box->text(); },
                      [box](const QString& text) { box->setText(text); },
                      std::move(shown),
                      {}});
}

void RecordImage::BindText(QPlainTextEdit* box, const QString& field) {
    if (const int width = FieldWidth(field); width > 0) {
        // A note box has no length of its own; what the field can't hold is cut
        // off as it is typed rather than refused at the save.
        QObject::connect(box, &QPlainTextEdit::textChanged, box, [box, width] {
            if (box->toPlainText().size() > width) {
                box->setPlainText(box->toPlainText().left(width));
                box->moveCursor(QTextCursor::End);
            }
        });
    }
    texts_.push_back({field,
                      [box] { return box->toPlainText(); },
                      [box](const QString& text) { box->setPlainText(text); },
                      nullptr,
                      {}});
}

void RecordImage::BindText(const QString& field, std::function<QString()> text,
                           std::function<void(const QString&)> show) {
    texts_.push_back({field, std::move(text), std::move(show), nullptr, {}});
}

OptionGroup* RecordImage::BindOptions(std::vector<QAbstractButton*> buttons, const QString& field) {
    options_.push_back({field, std::make_unique<OptionGroup>(std::move(buttons)), 0});
    return options_.back().group.get();
}

void RecordImage::BindFlag(QCheckBox* box, const QString& field) {
    flags_.push_back({field, box});
}

void RecordImage::Fill(const dao::Recordset& row) {
    for (TextBinding& binding : texts_) {
        binding.image = NullToEmpty(row.Fields(binding.field));
        binding.show(binding.shown ? binding.shown(binding.image) : binding.image);
    }
    for (OptionBinding& binding : options_) {
        const int stored = NullToZero(row.Fields(binding.field));
        binding.image = stored >= 1 && stored <= binding.group->Count() ? stored : 0;
        binding.group->Select(binding.image);
    }
    for (const FlagBinding& binding : flags_) {
        binding.box->setChecked(NullToFalse(row.Fields(binding.field)));
    }
}

void RecordImage::AssignChanged(dao::Recordset& row) const {
    for (const TextBinding& binding : texts_) {
        const QString text = binding.text();
        if (text != binding.image) {
            // An emptied box stores an empty text, not Null.
            row.Fields(binding.field).SetValue(text.isEmpty() ? QStringLiteral("") : text);
        }
    }
    for (const OptionBinding& binding : options_) {
        const int selected = binding.group->Selected();
        if (selected != binding.image) {
            row.Fields(binding.field).SetValue(selected);
        }
    }
}

}  // namespace quillon
