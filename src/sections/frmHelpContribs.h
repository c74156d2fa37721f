#pragma once
// What the columns of the pension contributions section mean, and how the
// boxes that are clicked rather than typed go round.

#include <QDialog>

class QPushButton;

namespace quillon {

class frmHelpContribs : public QDialog {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmHelpContribs";

    explicit frmHelpContribs(QWidget* parent = nullptr);

    QPushButton* cm3Close = nullptr;
};

}  // namespace quillon
