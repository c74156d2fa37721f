#pragma once
// The small dialogs that add and rename a tax office or a share: two boxes,
// OK and Cancel. OK is enabled only while the boxes hold an acceptable key,
// and a dialog whose OK fails stays up to be pressed again.

#include <QDialog>

#include <exception>

class QCheckBox;
class QGridLayout;
class QLineEdit;
class QPushButton;

namespace quillon {

class ReferenceDialog : public QDialog {
    Q_OBJECT

public:
    QPushButton* cm3OK = nullptr;
    QPushButton* cm3Cancel = nullptr;

    virtual void cm3OK_Click() = 0;

protected:
    struct BoxRow {
        const char* name;
        const char* label;
        int width;
    };
    ReferenceDialog(const QString& caption, const BoxRow& first, const BoxRow& second,
                    QWidget* parent);

    QLineEdit* Box(int index) const { return boxes_[index]; }
    QGridLayout* Grid() const { return grid_; }
    // Whether OK may be pressed with the boxes as they stand.
    virtual bool Acceptable() const = 0;
    void UpdateOK();
    // Tells the failure of cm3OK_Click under `title`; the dialog stays.
    void ReportFailure(const QString& title, const std::exception& error) const;
    // Tells, under `title`, that the row to rename has gone.
    static void RecordGone(const QString& title);

    void showEvent(QShowEvent* event) override;

private:
    QLineEdit* boxes_[2] = {};
    QGridLayout* grid_ = nullptr;
    bool placed_ = false;
};

// The number and the name of a tax office.
class OfficeDialog : public ReferenceDialog {
    Q_OBJECT

public:
    QLineEdit* txtNumber = nullptr;
    QLineEdit* txtName = nullptr;

protected:
    OfficeDialog(const QString& caption, QWidget* parent);
    bool Acceptable() const override;
};

// The company, the stock and the FID tick of a share.
class ShareDialog : public ReferenceDialog {
    Q_OBJECT

public:
    QLineEdit* txtCompany = nullptr;
    QLineEdit* txtStock = nullptr;
    QCheckBox* chkFID = nullptr;

protected:
    ShareDialog(const QString& caption, QWidget* parent);
    bool Acceptable() const override;
};

}  // namespace quillon
