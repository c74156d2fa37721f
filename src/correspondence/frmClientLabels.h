#pragma once
// Prints address labels of the clients selected in the list, with the
// personal address or that of the first business.

#include "correspondence/label_picker_gui.h"

namespace quillon {

class frmClientLabels : public LabelPicker {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmClientLabels";
    explicit frmClientLabels(QWidget* parent = nullptr);

    QListWidget* lstClients = nullptr;

protected:
    QStringList LoadEntries() override;
    void PrintLabels(const QStringList& entries, int copies, int row, int column) override;
};

}  // namespace quillon
