#pragma once
// Small helpers for building forms: every control carries the name the
// program's routines and tests know it by, and long work shows the hourglass.

#include "platform/wait_pointer.h"

#include <QAbstractButton>
#include <QBoxLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QString>
#include <QWidget>

#include <initializer_list>
#include <utility>

namespace quillon {

// A new control of type Widget, made from `args`, with `name` as its objectName.
template <typename Widget, typename... Args>
Widget* Named(const QString& name, Args&&... args) {
    auto* widget = new Widget(std::forward<Args>(args)...);
    widget->setObjectName(name);
    return widget;
}

// The control of `form` named `name`, or nullptr.
template <typename Widget>
Widget* Control(const QWidget* form, const QString& name) {
    return form->findChild<Widget*>(name);
}

// Puts `buttons` in a row at the right-hand end of a new line of `layout`.
inline void AddButtonRow(QBoxLayout* layout, std::initializer_list<QAbstractButton*> buttons) {
    auto* row = new QHBoxLayout;
    layout->addLayout(row);
    row->addStretch();
    for (QAbstractButton* button : buttons) {
        row->addWidget(button);
    }
}

// A new row of `grid`: the button `name` with its caption, and beside it the
// text that tells what it does.
inline QPushButton* AddChoiceRow(QGridLayout* grid, QWidget* form, const char* name,
                                 const QString& caption, const QString& explanation) {
    constexpr int kChoiceButtonWidth = 110;
    const int row = grid->rowCount();
    auto* button = Named<QPushButton>(QString::fromLatin1(name), caption, form);
    button->setFixedWidth(kChoiceButtonWidth);
    auto* text = new QLabel(explanation, form);
    text->setWordWrap(true);
    text->setBuddy(button);
    grid->addWidget(button, row, 0);
    grid->addWidget(text, row, 1);
    return button;
}

}  // namespace quillon
