#pragma once
// The practice's own data on a client: references, staff, notes, and the
// client's tax office. Only the office's number is kept on the client; the
// office's name, address and numbers are shown live from the tax offices
// file, so a renamed office shows its new name and a renumbered one none.

#include "sections/section_screen_gui.h"

#include <array>

class QLabel;
class QLineEdit;
class QPushButton;

namespace quillon {

class frmAdministration : public SectionScreen {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmAdministration";

    explicit frmAdministration(QWidget* parent = nullptr);

    QLineEdit* txtTOfficeNo = nullptr;
    QLineEdit* txtTOfficeName = nullptr;
    // txtTAddress(1) to (5) the address lines, (6) the postcode; 0 unused.
    std::array<QLineEdit*, 7> txtTAddress{};
    QLineEdit* txtTPhone = nullptr;
    QLineEdit* txtTFax = nullptr;
    QLabel* lblIROffice = nullptr;
    QLineEdit* txtIROffice = nullptr;
    QPushButton* cm3Select = nullptr;

    // Shows the office whose number txtTOfficeNo holds, or none.
    void ReadOffice();
    // A new number, typed or picked, shows its office at once.
    void txtTOfficeNo_Change();
    void cm3Select_Click();

protected:
    void ReadAlongside() override;

private:
    QList<QLineEdit*> OfficeBoxes() const;

    // Offices of a layout from 2001 on have their second number.
    bool laterLayout_ = false;
};

}  // namespace quillon
