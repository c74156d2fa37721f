#include "shell/frmTip.h"

#include "platform/widgets_gui.h"
#include "shell/forms_gui.h"

#include <QFrame>
#include <QLabel>
#include <QVBoxLayout>

namespace quillon {

frmTip::frmTip(QWidget* parent) : QWidget(parent, Qt::ToolTip) {
    picTip = Named<QFrame>(QStringLiteral("picTip"), this);
    picTip->setFrameShape(QFrame::Box);
    lblTip = Named<QLabel>(QStringLiteral("lblTip"), picTip);
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
