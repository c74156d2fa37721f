#pragma once
// The notes of the business on the business screen's page, for the client that
// screen shows. They are read when the window opens and written, if changed,
// when it closes: apart from the screen's own save.

#include "sections/record_image_gui.h"

#include <QDialog>

class QPlainTextEdit;
class QPushButton;

namespace quillon {

class frmNBusiness : public QDialog {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmNBusiness";

    explicit frmNBusiness(QWidget* parent = nullptr);

    QPlainTextEdit* txtNotes = nullptr;
    QPushButton* cm3Close = nullptr;

    void Form_Activate();
    void Form_Unload();

    // Escape closes as the close button does, saving the notes.
    void reject() override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    QString table_;
    RecordImage image_;
};

}  // namespace quillon
