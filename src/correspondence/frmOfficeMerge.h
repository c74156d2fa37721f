#pragma once
// Writes the merge data file of the tax offices selected in the list.

#include "correspondence/merge_picker_gui.h"

namespace quillon {

class frmOfficeMerge : public MergePicker {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmOfficeMerge";
    explicit frmOfficeMerge(QWidget* parent = nullptr);

    QListWidget* lstOffices = nullptr;

protected:
    QStringList LoadEntries() override;
    void WriteMerge(const QString& path, const QStringList& entries,
                    const MergeProgress& progress) override;
};

}  // namespace quillon
