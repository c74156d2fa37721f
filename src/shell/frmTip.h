#pragma once
// The tool-tip window: loaded at start and kept out of sight. Tool tips are the
// platform's own on each control; this window only has to stay hidden.

#include <QWidget>

class QFrame;
class QLabel;

namespace quillon {

class frmTip : public QWidget {
    Q_OBJECT
public:
    static constexpr const char* kFormName = "frmTip";

    explicit frmTip(QWidget* parent = nullptr);

    QFrame* picTip = nullptr;
    QLabel* lblTip = nullptr;
};

// Clears the last tip and puts the tip window out of sight, behind the others.
void HideTip();

}  // namespace quillon
