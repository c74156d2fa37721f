#pragma once
// Prints address labels of the tax offices selected in the list.

#include "correspondence/label_picker_gui.h"

namespace quillon {

class frmOfficeLabels : public LabelPicker {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmOfficeLabels";
    explicit frmOfficeLabels(QWidget* parent = nullptr);

    QListWidget* lstOffices = nullptr;

protected:
    QStringList LoadEntries() override;
    void PrintLabels(const QStringList& entries, int copies, int row, int column) override;
};

}  // namespace quillon
