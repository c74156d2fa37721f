#include "sections/help_screen_gui.h"

#include "platform/widgets_gui.h"

#include <QPushButton>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace quillon {

HelpScreen::HelpScreen(const char* name, const QString& caption, const QString& html,
                       QWidget* parent)
    : QDialog(parent) {
    setObjectName(QString::fromLatin1(name));
    setWindowTitle(caption);
    txtHelp = Named<QTextBrowser>(QStringLiteral("txtHelp"), this);
    txtHelp->setHtml(html);
    cm3Close = Named<QPushButton>(QStringLiteral("cm3Close"), tr("&Close"), this);
    cm3Close->setDefault(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(txtHelp, 1);
    AddButtonRow(layout, {cm3Close});
    resize(520, 420);
    connect(cm3Close, &QPushButton::clicked, this, &QDialog::close);
}

}  // namespace quillon
