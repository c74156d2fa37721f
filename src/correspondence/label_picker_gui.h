#pragma once
// A picker that prints address labels of the names selected: the frame
// "Print options" with the first row and column on the sheet and the number of
// copies, and `cm3Print`.

#include "correspondence/labels.h"
#include "correspondence/name_picker_gui.h"

class QLineEdit;

namespace quillon {

class LabelPicker : public NamePicker {
    Q_OBJECT

public:
    QLineEdit* txtRow = nullptr;
    QLineEdit* txtColumn = nullptr;
    QLineEdit* txtCopies = nullptr;
    QPushButton* cm3Print = nullptr;

    void cm3Print_Click();

protected:
    // `status` stands in the status bar while printing; `errorTitle` heads a
    // failure.
    LabelPicker(const PickerTexts& texts, const char* status, const char* errorTitle,
                QWidget* parent);
    // Prints the labels of `entries` from the sheet's cell; throws what fails.
    virtual void PrintLabels(const QStringList& entries, int copies, int row, int column) = 0;

private:
    const char* status_;
    const char* errorTitle_;
};

// Tells a failure of the printer or the database in the picker's way: false
// when `work` failed. The pages not yet sent are dropped on a failure.
bool PrintedLabels(const std::function<void()>& work, ErrorDetails& failure);

}  // namespace quillon
