#pragma once
// The assets section: a client's statement of assets and liabilities in 19
// lines of description, date, value and note, under the date of the statement,
// with the net value computed and never stored. The descriptions of lines 1 to
// 15 are shared by all clients (`Common` row "Assets") and asked about when
// changed; lines 16 to 19 have the client's own, and each has ten lines of
// details (frmAssetsExt) whose total becomes the line's value.

#include "sections/section_screen_gui.h"

#include <vector>

class QTimer;

namespace quillon {

class CommonTexts;
class MoneyBox;

class frmAssets : public SectionScreen {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmAssets";
    static constexpr int kLines = 19;
    static constexpr int kSharedLines = 15;

    explicit frmAssets(QWidget* parent = nullptr);

    QLineEdit* txtATotal = nullptr;
    // Shows the net total once the screen is up, and again after the details
    // have been closed.
    QTimer* tmrTotal = nullptr;

    // The net value of the 19 lines into txtATotal.
    void ShowTotal();
    void tmrTotal_Timer();
    // Opens the details of line `line`, 16 to 19.
    void lblADetails_Click(int line);

protected:
    void ReadAlongside() override;
    void BeforeWrite() override;

private:
    CommonTexts* common_ = nullptr;
    std::vector<MoneyBox*> values_;
};

}  // namespace quillon
