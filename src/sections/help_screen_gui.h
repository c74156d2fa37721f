#pragma once
// A help screen with fixed text: a page of explanation and a Close button.

#include <QDialog>

class QPushButton;
class QTextBrowser;

namespace quillon {

class HelpScreen : public QDialog {
    Q_OBJECT

public:
    QTextBrowser* txtHelp = nullptr;
    QPushButton* cm3Close = nullptr;

protected:
    // `html` is the help text; the form's name is `name`.
    HelpScreen(const char* name, const QString& caption, const QString& html, QWidget* parent);
};

}  // namespace quillon
