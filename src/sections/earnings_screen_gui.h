#pragma once
// What the employment and business screens share beyond every section screen:
// four pages, one table each; a list of eight tax years with their net
// relevant earnings that the user slides up or down one line as the years go
// by; and a button to the indicators of the page.

#include "sections/section_screen_gui.h"

#include <array>

class QPushButton;

namespace quillon {

// The names of a screen's earnings list: its year and earnings boxes, which
// take the line number ("txtEYear" gives txtEYear(1) to txtEYear(8)), and its
// two buttons, (0) up and (1) down.
struct EarningsNames {
    const char* years;
    const char* earnings;
    const char* buttons;
};

class EarningsScreen : public SectionScreen {
    Q_OBJECT

public:
    static constexpr int kEarningsLines = 8;

    QPushButton* cm3Indicators = nullptr;

    // Index 0 moves every line up one, losing the first; index 1 down, losing
    // the last. A line that would be lost with something in it is asked about
    // first. Only the boxes change: the next save writes what moved.
    void ScrollEarnings(int index);

protected:
    // `indicators` is the form that cm3Indicators opens for the page.
    EarningsScreen(SectionNumber section, const char* indicators, QWidget* parent);

    // The list with its heads and its two buttons.
    QWidget* EarningsList(const EarningsNames& names);

private:
    QLineEdit* YearBox(int line) const { return years_[line - 1]; }
    QLineEdit* EarningsBox(int line) const { return earnings_[line - 1]; }

    std::array<QLineEdit*, kEarningsLines> years_{};
    std::array<QLineEdit*, kEarningsLines> earnings_{};
};

}  // namespace quillon
