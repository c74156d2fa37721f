#include "shell/frmTip.h"

#include "shell/forms_gui.h"

#include <QFrame>
#include <QLabel>
#include <QVBoxLayout>

namespace quillon {

frmTip::frmTip(QWidget* parent) : QWidget(parent, Qt::ToolTip) {
    picTip = new QFrame(this);
    picTip->setObjectName(QStringLiteral("picTip"));
    picTip->setFrameShape(QFrame::Box);
    lblTip = new QLabel(picTip);
    lblTip->setObjectName(QStringLiteral("lblTip"));
    auto* inner = new QVBoxLayout(picTip);
    inner->addWidget(lblTip);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(picTip);
}

void HideTip() {
    auto* tip = LoadedForm<frmTip>();
    if (!tip) {
        return;
    }
    tip->lblTip->clear();
    tip->picTip->hide();
    tip->hide();
    tip->lower();
}

}  // namespace quillon
