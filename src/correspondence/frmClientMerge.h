#pragma once
// Writes the merge data file of the clients selected in the list, with the
// personal address or that of the first business.

#include "correspondence/merge_picker_gui.h"

namespace quillon {

class frmClientMerge : public MergePicker {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmClientMerge";
    explicit frmClientMerge(QWidget* parent = nullptr);

    QListWidget* lstClients = nullptr;

protected:
    QStringList LoadEntries() override;
    void WriteMerge(const QString& path, const QStringList& entries,
                    const MergeProgress& progress) override;
    bool LowerCaseFile() const override { return true; }
};

}  // namespace quillon
