#pragma once
// The practice's own section: eight lines, each a description shared by all
// clients with two values of the client's own, and two notes, under a title
// that the practice chooses and that also names the section in the main window.

#include "sections/section_screen_gui.h"

class QLineEdit;

namespace quillon {

class CommonTexts;

class frmUser : public SectionScreen {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmUser";
    static constexpr int kLines = 8;

    explicit frmUser(QWidget* parent = nullptr);

    QLineEdit* txtUserFormTitle = nullptr;

    void ReadCommon();
    void WriteTitle();
    void txtUserFormTitle_Change();

protected:
    QString CaptionDetail() const override;
    void ReadMore() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    CommonTexts* common_ = nullptr;
};

}  // namespace quillon
