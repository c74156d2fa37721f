#pragma once
// The business section: up to four businesses of a client, one a page and one
// table a page (`Business 1` to `Business 4`), each with its own year end,
// kind of business, contacts and earnings list. Its notes are kept in a
// window of their own (frmNBusiness); the businesses of all clients by year
// end are listed by frmYearEnd.

#include "sections/earnings_screen_gui.h"

class QCheckBox;

namespace quillon {

class frmBusiness : public EarningsScreen {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmBusiness";

    explicit frmBusiness(QWidget* parent = nullptr);

    QCheckBox* chkMain = nullptr;
    QPushButton* cm3Notes = nullptr;
    QPushButton* cm3List = nullptr;

    void cm3Notes_Click();
    void cm3List_Click();

private:
    // Whether the year end is one: either half empty, or a day of a month
    // counting February as 28 days in every year.
    bool ValidYearEnd() const;
    void InvalidYearEnd();
};

}  // namespace quillon
