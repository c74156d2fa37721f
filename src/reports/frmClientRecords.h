#pragma once
// Prints the stored records of the clients selected in the list, with the
// sections ticked under "Print options"; the ticks are kept in the settings.

#include "correspondence/name_picker_gui.h"

class QCheckBox;

namespace quillon {

class frmClientRecords : public NamePicker {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmClientRecords";
    explicit frmClientRecords(QWidget* parent = nullptr);

    QListWidget* lstClients = nullptr;
    QPushButton* cm3Print = nullptr;
    QCheckBox* Tick(const QString& name) const;

    void cm3Print_Click();

protected:
    QStringList LoadEntries() override;
};

}  // namespace quillon
