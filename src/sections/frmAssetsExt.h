#pragma once
// The ten lines of details behind one of the asset lines 16 to 19, kept in its
// own table (`Asset 16` to `Asset 19`) for the client that frmAssets shows.
// Closing it saves the lines, unless a date is bad, and puts their total into
// the asset line's value on frmAssets, which stores it with its own save.

#include "sections/record_image_gui.h"

#include <QDialog>

#include <vector>

class QLineEdit;
class QPushButton;

namespace quillon {

class MoneyBox;

class frmAssetsExt : public QDialog {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmAssetsExt";
    static constexpr int kLines = 10;

    explicit frmAssetsExt(QWidget* parent = nullptr);

    bool Loading = true;
    QPushButton* cm3Close = nullptr;

    void ReadCRecord();
    void WriteCRecord();
    // True when a date is bad; it has then been told and has the focus.
    bool CheckDates();
    // The total of the ten values into the asset line's value on frmAssets.
    void ShowTotal();
    // The box named `name` ("txtAValue(3)"), or nullptr.
    QLineEdit* Box(const QString& name) const;

    // Escape closes as the close button does.
    void reject() override;

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildLines();
    void CentreOverAssets();
    void RejectDate(QLineEdit* box);

    int line_;
    RecordImage image_;
    std::vector<QLineEdit*> dates_;
    std::vector<MoneyBox*> values_;
};

}  // namespace quillon
