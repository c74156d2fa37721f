#include "sections/frmContributions.h"

#include "platform/widgets_gui.h"
#include "sections/label_click_gui.h"
#include "shell/forms_gui.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

namespace quillon {

namespace {

using Rule = FieldRule;

const QString kRap = QStringLiteral("RAP");
const QString kPpc = QStringLiteral("PPC");
const QString kFsavc = QStringLiteral("FSAVC");

// Line i stores txtCProvider(i) in `Provider i`, txtCContract(i) in
// `Contract i`, lblCType(i) in `Type i`, lblCSR(i) in `SR i`, lblCNG(i) in
// `NG i`, txtCDate(i) in `Date i` and txtCAmount(i) in `Amount i`, in this
// order.
const GridColumn kLinesTable[] = {
    {"txtCProvider", "Provider %1", Rule::Text, "Provider"},
    {"txtCContract", "Contract %1", Rule::Text, "Contract No."},
    {"lblCType", "Type %1", Rule::Caption, "Type"},
    {"lblCSR", "SR %1", Rule::Caption, "S/R"},
    {"lblCNG", "NG %1", Rule::Caption, "N/G"},
    {"txtCDate", "Date %1", Rule::Date, "Date"},
    {"txtCAmount", "Amount %1", Rule::Text, "Amount (\xa3)"},
};

// The columns that go round at a click; each is as wide as its longest value.
const struct {
    const char* column;
    const char* widest;
    void (frmContributions::*click)(int line);
} kCycles[] = {
    {"lblCType", "FSAVC", &frmContributions::lblCType_Click},
    {"lblCSR", "S", &frmContributions::lblCSR_Click},
    {"lblCNG", "N", &frmContributions::lblCNG_Click},
};

}  // namespace

frmContributions::frmContributions(QWidget* parent) : SectionScreen(kContributionsSection, parent) {
    setWindowTitle(QStringLiteral("Pension Contributions"));
    QWidget* lines = FieldGrid(kLinesTable, 1, kLines);
    auto* grid = static_cast<QGridLayout*>(lines->layout());
    grid->setColumnStretch(0, 3);
    grid->setColumnStretch(1, 2);
    for (const auto& cycle : kCycles) {
        for (int line = 1; line <= kLines; ++line) {
            QLabel* cell = Cell(cycle.column, line);
            cell->setMinimumWidth(
                cell->fontMetrics().horizontalAdvance(QString::fromLatin1(cycle.widest)) +
                2 * cell->frameWidth() + 6);
            ConnectClick(cell, [this, click = cycle.click, line] { (this->*click)(line); });
        }
    }
    FitShortBoxes(lines);
    TightenRows(lines);
    Arrange({{lines}});
    connect(cm3Help, &QPushButton::clicked, this, &frmContributions::cm3Help_Click);
}

QLabel* frmContributions::Cell(const char* column, int line) const {
    return Control<QLabel>(this, QString::fromLatin1(column) + QStringLiteral("(%1)").arg(line));
}

// A retirement annuity is paid gross and an FSAVC net, by the rules of those
// schemes; the value of net or gross from before stays for a personal pension.
void frmContributions::lblCType_Click(int line) {
    QLabel* type = Cell("lblCType", line);
    QLabel* netGross = Cell("lblCNG", line);
    const QString now = type->text();
    if (now.isEmpty()) {
        type->setText(kRap);
        netGross->setText(QStringLiteral("G"));
    } else if (now == kRap) {
        type->setText(kPpc);
    } else if (now == kPpc) {
        type->setText(kFsavc);
        netGross->setText(QStringLiteral("N"));
    } else {
        type->clear();
        netGross->clear();
        Cell("lblCSR", line)->clear();
    }
}

void frmContributions::lblCSR_Click(int line) {
    QLabel* box = Cell("lblCSR", line);
    const QString now = box->text();
    box->setText(now.isEmpty()               ? QStringLiteral("S")
                 : now == QLatin1String("S") ? QStringLiteral("R")
                                             : QString());
}

void frmContributions::lblCNG_Click(int line) {
    if (Cell("lblCType", line)->text() != kPpc) {
        return;
    }
    QLabel* box = Cell("lblCNG", line);
    const QString now = box->text();
    box->setText(now.isEmpty()               ? QStringLiteral("N")
                 : now == QLatin1String("N") ? QStringLiteral("G")
                                             : QString());
}

void frmContributions::cm3Help_Click() {
    ShowModal(QStringLiteral("frmHelpContribs"));
}

}  // namespace quillon
