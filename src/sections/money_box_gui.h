#pragma once
// A box of money, as the asset lines have them: it takes what MoneyKeyFilter
// lets through, and when the user leaves it its text is read as a figure and
// written back as the money text (currency.h), whole pounds right-aligned in 8
// characters or, bracketed, in 9. The font has a fixed pitch, so that the
// figures of a column line up with or without their brackets.

#include "data/currency.h"

#include <QObject>

#include <functional>

class QLineEdit;

namespace quillon {

class MoneyBox : public QObject {
public:
    // `left` runs after each rewriting of the text, such as to show a total.
    MoneyBox(QLineEdit* box, std::function<void()> left);

    QLineEdit* Box() const { return box_; }
    // The figure the box stands for, as a total reads it.
    Currency Value() const;
    // Rewrites the text as leaving the box does, if the user is in the box and
    // has typed in it since it was last rewritten.
    void FinishTyping();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Left();

    QLineEdit* box_;
    std::function<void()> left_;
};

// The fixed-pitch font of money boxes and their totals.
void UseMoneyFont(QLineEdit* box);

}  // namespace quillon
