#pragma once
// The pension contributions section: twenty payments, each a contract with a
// provider, its date and amount, and three small boxes that the user clicks
// through their values rather than types: the kind of scheme, single or
// regular, net or gross. The kind of scheme decides net or gross where the
// rules of the scheme do.

#include "data/database_schema.h"
#include "sections/section_screen_gui.h"

class QLabel;

namespace quillon {

class frmContributions : public SectionScreen {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmContributions";
    static constexpr int kLines = kContributionLines;

    explicit frmContributions(QWidget* parent = nullptr);

    // "" to "RAP" (gross), to "PPC", to "FSAVC" (net), and back to "", which
    // clears the line's other two boxes as well.
    void lblCType_Click(int line);
    // Single or regular: "" to "S" to "R" to "".
    void lblCSR_Click(int line);
    // Net or gross, chosen by the user only for a personal pension: "" to "N"
    // to "G" to "".
    void lblCNG_Click(int line);
    void cm3Help_Click();

    QLabel* Cell(const char* column, int line) const;
};

}  // namespace quillon
