#pragma once
// The practice's own section: eight lines, each a description shared by all
// clients with two values of the client's own, and two notes, under a title
// that the practice chooses and that also names the section in the main window.

#include "sections/section_screen_gui.h"

#include <array>

class QLineEdit;
class QPlainTextEdit;

namespace quillon {

class frmUser : public SectionScreen {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmUser";
    static constexpr int kLines = 8;

    explicit frmUser(QWidget* parent = nullptr);

    // Elements 1 to 8; element 0 is unused.
    std::array<QLineEdit*, kLines + 1> txtCommon{};
    std::array<QLineEdit*, kLines + 1> txtLeft{};
    std::array<QLineEdit*, kLines + 1> txtRight{};
    QPlainTextEdit* txtNoteLeft = nullptr;
    QPlainTextEdit* txtNoteRight = nullptr;
    QLineEdit* txtUserFormTitle = nullptr;

    void ReadCommon();
    void WriteTitle();
    void txtCommon_GotFocus(int index);
    void txtCommon_LostFocus(int index);
    void txtUserFormTitle_Change();
    void txtUserFormTitle_LostFocus();

protected:
    QString CaptionDetail() const override;
    void ReadMore() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildLines();
    void WriteCommonText(int index);

    std::array<QString, kLines + 1> commonImage_;
};

}  // namespace quillon
