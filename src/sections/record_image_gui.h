#pragma once
// The read image of a section screen: which box shows which field of the
// section's row, and what each box held when the row was last read. A save
// compares box and image and assigns only the fields that differ, so that a
// field another user changed meanwhile survives unless this user changed it too.

#include "platform/dao.h"

#include <QString>

#include <functional>
#include <memory>
#include <vector>

class QAbstractButton;
class QCheckBox;
class QLineEdit;
class QPlainTextEdit;

namespace quillon {

// Option buttons of one field, numbered from 1; at most one is on, and none
// on stands for "not stated" (0).
class OptionGroup {
public:
    explicit OptionGroup(std::vector<QAbstractButton*> buttons);
    // The index of the button that is on, or 0.
    int Selected() const;
    // Turns on button `index`; any index outside 1..count turns all off.
    void Select(int index);
    void Clear() { Select(0); }
    int Count() const { return static_cast<int>(buttons_.size()); }

private:
    std::vector<QAbstractButton*> buttons_;
};

class RecordImage {
public:
    // How a stored text is shown in its box; the image keeps the stored text.
    using Shown = std::function<QString(const QString&)>;

    // `table` gives the widths that the boxes are held to.
    explicit RecordImage(QString table) : table_(std::move(table)) {}

    void BindText(QLineEdit* box, const QString& field, Shown shown = nullptr);
    void BindText(QPlainTextEdit* box, const QString& field);
    // A text kept in some other control, such as a caption that cycles at a click.
    void BindText(const QString& field, std::function<QString()> text,
                  std::function<void(const QString&)> show);
    // Makes the group of `buttons` and binds it; the image keeps it.
    OptionGroup* BindOptions(std::vector<QAbstractButton*> buttons, const QString& field);
    // A Boolean field that is shown when read but written elsewhere, at its click.
    void BindFlag(QCheckBox* box, const QString& field);

    // Fills every box and the image from the row `row` stands on.
    void Fill(const dao::Recordset& row);
    // Assigns the fields whose box differs from the image; between Edit and Update.
    void AssignChanged(dao::Recordset& row) const;

private:
    struct TextBinding {
        QString field;
        std::function<QString()> text;
        std::function<void(const QString&)> show;
        Shown shown;
        QString image;
    };
    struct OptionBinding {
        QString field;
        std::unique_ptr<OptionGroup> group;
        int image = 0;
    };
    struct FlagBinding {
        QString field;
        QCheckBox* box;
    };

    int FieldWidth(const QString& field) const;

    QString table_;
    std::vector<TextBinding> texts_;
    std::vector<OptionBinding> options_;
    std::vector<FlagBinding> flags_;
};

}  // namespace quillon
