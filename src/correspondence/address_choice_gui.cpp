#include "correspondence/address_choice_gui.h"

#include "platform/widgets_gui.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QRadioButton>

namespace quillon {

QGroupBox* MakeAddressChoice(QWidget* form, qint16& setting) {
    auto* frame = Named<QGroupBox>(QStringLiteral("fraAddress"), QObject::tr("Address"), form);
    auto* row = new QHBoxLayout(frame);
    const QString captions[] = {QObject::tr("Personal"), QObject::tr("Business")};
    for (int i = 0; i < 2; ++i) {
        auto* option =
            Named<QRadioButton>(QStringLiteral("optAddress(%1)").arg(i), captions[i], frame);
        option->setChecked(setting == i);
        row->addWidget(option);
        QObject::connect(option, &QRadioButton::clicked, form,
                         [&setting, i] { setting = qint16(i); });
    }
    return frame;
}

}  // namespace quillon
