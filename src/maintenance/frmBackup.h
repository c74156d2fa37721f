#pragma once
// Saves a backup copy of the selected client database to a file the user
// chooses, named by default after the database and today's date.

#include <QDialog>

class QLabel;
class QPushButton;

namespace quillon {

class frmBackup : public QDialog {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmBackup";
    explicit frmBackup(QWidget* parent = nullptr);

    QLabel* lblSource = nullptr;
    QPushButton* cmdSave = nullptr;
    QPushButton* cmdCancel = nullptr;

    void cmdSave_Click();
    void cmdCancel_Click();

private:
    QString cdgSave(const QString& source) const;
    void Finish();
};

}  // namespace quillon
