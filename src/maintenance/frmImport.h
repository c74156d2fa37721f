#pragma once
// Lists the clients of the chosen source database and imports those selected,
// each whole, into the selected client database.

#include <QDialog>

class QListWidget;
class QPushButton;

namespace quillon {

class frmImport : public QDialog {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmImport";
    explicit frmImport(QWidget* parent = nullptr);

    QListWidget* lstClients = nullptr;
    QPushButton* cmdAll = nullptr;
    QPushButton* cmdImport = nullptr;
    QPushButton* cmdCancel = nullptr;

    void LoadSourceClients();
    void cmdAll_Click();
    void cmdImport_Click();

private:
    // Imports the entries; false when a failure ended the import.
    bool ImportEntries(const QStringList& entries);
};

}  // namespace quillon
