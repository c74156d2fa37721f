#pragma once
// A picker that writes the merge data file of the names selected: the frame
// "Data file options" with the quotes and the delimiter, and `cm3Merge`.

#include "correspondence/merge_file.h"
#include "correspondence/name_picker_gui.h"

class QCheckBox;
class QLineEdit;

namespace quillon {

class MergePicker : public NamePicker {
    Q_OBJECT

public:
    QCheckBox* chkUseQuotes = nullptr;
    QLineEdit* txtDelimiter = nullptr;
    QPushButton* cm3Merge = nullptr;

    void cm3Merge_Click();

protected:
    // `mergeErrorTitle` heads a failure of the merge itself.
    MergePicker(const PickerTexts& texts, const char* mergeErrorTitle, QWidget* parent);
    // Writes the entries to the file at `path`; throws what fails.
    virtual void WriteMerge(const QString& path, const QStringList& entries,
                            const MergeProgress& progress) = 0;
    // The client screen has always named its file in lower case.
    virtual bool LowerCaseFile() const { return false; }

private:
    const char* mergeErrorTitle_;
};

// The question before a merge file is written: OK to go on.
bool AskToWriteMergeFile(const QString& title);

}  // namespace quillon
