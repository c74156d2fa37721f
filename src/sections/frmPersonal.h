#pragma once
// The personal section: the client's name as printed, title, date of birth,
// address, telephones, sex, marital status, spouse and up to four children.
// The spouse can be picked from the other clients, which writes the link into
// the partner's row as well (frmSpouseList).

#include "sections/section_screen_gui.h"

#include <array>
#include <memory>

class QLineEdit;
class QPushButton;
class QRadioButton;

namespace quillon {

class frmPersonal : public SectionScreen {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmPersonal";

    explicit frmPersonal(QWidget* parent = nullptr);
    ~frmPersonal() override;

    QLineEdit* txtFullName = nullptr;
    QLineEdit* txtTitle = nullptr;
    QLineEdit* txtCalled = nullptr;
    QLineEdit* txtDOB = nullptr;
    std::array<QLineEdit*, 7> txtAddress{};    // 1 to 6, 6 the postcode
    std::array<QLineEdit*, 4> txtTelephone{};  // home, work, fax, mobile
    std::array<QLineEdit*, 2> txtSpouse{};     // first names, last name
    QLineEdit* txtSpouseDOB = nullptr;
    std::array<QLineEdit*, 4> txtChild{};
    std::array<QLineEdit*, 4> txtChildDOB{};
    std::array<QRadioButton*, 3> op3Sex{};      // 1 male, 2 female
    std::array<QRadioButton*, 6> op3Marital{};  // 1 to 5
    QPushButton* cmdClearSex = nullptr;
    QPushButton* cmdClearMarital = nullptr;
    QPushButton* cm3Spouse = nullptr;
    // Opens the client's indicators (frmIPersonal) once that screen exists.
    QPushButton* cm3Indicators = nullptr;

    void cm3Spouse_Click();

protected:
    void TellBadDate(QLineEdit* box) override;

private:
    QWidget* BuildNames();
    QWidget* BuildAddress();
    QWidget* BuildTelephones();
    QWidget* BuildFamily();
    QWidget* BuildOptions();
    void BindFields();

    std::unique_ptr<OptionGroup> sex_;
    std::unique_ptr<OptionGroup> marital_;
};

}  // namespace quillon
