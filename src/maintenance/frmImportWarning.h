#pragma once
// Asks before clients are imported from another client database, and chooses
// that file.

#include "maintenance/upkeep_screens_gui.h"

namespace quillon {

class frmImportWarning : public UpkeepConfirm {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmImportWarning";
    explicit frmImportWarning(QWidget* parent = nullptr);

protected:
    void Continue() override;

private:
    QString cdgImport() const;
};

}  // namespace quillon
