#pragma once
// The practice's directory of tax offices: every office by name and number,
// the details of the one selected, which are saved when it is left, and the
// commands to add, renumber or rename, delete and find an office by its
// number. The file is opened for each action and closed again.

#include "platform/dao.h"
#include "reference/reference_screen_gui.h"

#include <QStringList>

#include <array>

class QLabel;
class QLineEdit;

namespace quillon {

class frmOffices : public ReferenceScreen {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmOffices";

    explicit frmOffices(QWidget* parent = nullptr);

    QListWidget* lstOffices = nullptr;
    QLabel* pnlCount = nullptr;
    QLabel* lblTOfficeName = nullptr;
    QLabel* lblTOfficeNo = nullptr;
    // txtTAddress(1) to (5) the address lines, (6) the postcode; 0 unused.
    std::array<QLineEdit*, 7> txtTAddress{};
    QLineEdit* txtTPhone = nullptr;
    QLineEdit* txtTFax = nullptr;
    QLabel* lblOffNo = nullptr;
    QLineEdit* txtTOfficeNo = nullptr;
    QLabel* lblOffEmail = nullptr;
    QLineEdit* txtTEmail = nullptr;
    QLineEdit* txtGoto = nullptr;
    QPushButton* cm3Goto = nullptr;

    // Writes the boxes to the office the labels name; one that has gone
    // meanwhile is passed over in silence.
    void SaveOffice();
    // Saves, then shows the office of the selected entry.
    void SelectOffice();
    void cm3Goto_Click();
    void cm3New_Click();
    void cm3Rename_Click();
    void cm3Delete_Click();
    void tmrNew_Timer();
    void tmrRename_Timer();

protected:
    void ListClick() override { SelectOffice(); }
    void ClearShown() override;
    void Form_Activate() override;
    bool Form_Deactivate() override;
    bool Form_Unload() override;

private:
    struct Office {
        QString number;
        QString name;
        QStringList details;
    };

    QWidget* BuildDetails();
    QWidget* BuildGoto();
    void Form_Load();
    // Offices of a layout from 2001 on have a second number and an e-mail address.
    bool LaterLayout() const;
    QList<QLineEdit*> DetailBoxes() const;
    Office OfficeOfRow(const dao::Recordset& office) const;
    void ShowOffice(const Office& office);
    void FillList();
    void ShowCount();

    float version_ = 0;
};

}  // namespace quillon
