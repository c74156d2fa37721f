#include "sections/earnings_screen_gui.h"

#include "platform/services.h"
#include "platform/widgets_gui.h"
#include "shell/forms_gui.h"

#include <QGridLayout>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

namespace quillon {

namespace {

const QString kScrollTitle = QStringLiteral("Net Relevant Earnings");

QString LineName(const char* prefix, int line) {
    return QString::fromLatin1(prefix) + QStringLiteral("(%1)").arg(line);
}

}  // namespace

EarningsScreen::EarningsScreen(SectionNumber section, const char* indicators, QWidget* parent)
    : SectionScreen(section, parent) {
    cm3Indicators = Named<QPushButton>(QStringLiteral("cm3Indicators"), tr("Indicators"), Body());
    const QString form = QString::fromLatin1(indicators);
    // The indicators screen reads the page and the shown client for itself.
    connect(cm3Indicators, &QPushButton::clicked, this, [form] { ShowModal(form); });
}

QWidget* EarningsScreen::EarningsList(const EarningsNames& names) {
    // "Tax Year" and "Net Relevant Earnings (£)" stand over their columns in
    // two lines each.
    const GridColumn columns[] = {
        {names.years, "Tax Year %1", FieldRule::Text, "Tax\nYear"},
        {names.earnings, "NRE %1", FieldRule::Digits, "Net Relevant\nEarnings (\xa3)"},
    };
    QWidget* grid = FieldGrid(columns, 1, kEarningsLines);
    for (int line = 1; line <= kEarningsLines; ++line) {
        years_[line - 1] = Box(LineName(names.years, line));
        earnings_[line - 1] = Box(LineName(names.earnings, line));
        EarningsBox(line)->setAlignment(Qt::AlignRight);
    }
    auto* buttons = new QVBoxLayout;
    const QStyle::StandardPixmap icons[] = {QStyle::SP_ArrowUp, QStyle::SP_ArrowDown};
    const QString tips[] = {tr("Scroll up"), tr("Scroll down")};
    for (int index = 0; index < 2; ++index) {
        auto* button = Named<QPushButton>(LineName(names.buttons, index), grid);
        button->setIcon(style()->standardIcon(icons[index]));
        button->setToolTip(tips[index]);
        buttons->addWidget(button);
        connect(button, &QPushButton::clicked, this, [this, index] { ScrollEarnings(index); });
    }
    buttons->addStretch(1);
    auto* layout = static_cast<QGridLayout*>(grid->layout());
    layout->addLayout(buttons, 1, 2, kEarningsLines, 1);
    FitShortBoxes(grid);
    return grid;
}

void EarningsScreen::ScrollEarnings(int index) {
    const bool up = index == 0;
    const int lost = up ? 1 : kEarningsLines;
    if (!YearBox(lost)->text().isEmpty() || !EarningsBox(lost)->text().isEmpty()) {
        Beep();
        const QString warning =
            up ? QStringLiteral("If you scroll up, the first entry in the list will be lost.")
               : QStringLiteral("If you scroll down, the last entry in the list will be lost.");
        const QString question = warning + QStringLiteral("\n\nDo you wish to continue?");
        if (MsgBox(question, vbYesNo | vbQuestion | vbDefaultButton2, kScrollTitle) != vbYes) {
            return;
        }
    }
    const int step = up ? 1 : -1;
    const int emptied = up ? kEarningsLines : 1;
    for (int line = lost; line != emptied; line += step) {
        YearBox(line)->setText(YearBox(line + step)->text());
        EarningsBox(line)->setText(EarningsBox(line + step)->text());
    }
    YearBox(emptied)->clear();
    EarningsBox(emptied)->clear();
}

}  // namespace quillon
