#pragma once
// The year-end list: every client business whose accounting year ends in the
// month clicked, across the four business tables, to plan the year-end work.
// The list can be printed or turned into a merge data file.

#include <QDialog>

#include <array>

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace quillon {

class ClickLabel;

class frmYearEnd : public QDialog {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmYearEnd";
    static constexpr int kMonths = 12;

    explicit frmYearEnd(QWidget* parent = nullptr);

    std::array<ClickLabel*, kMonths> lblFilter{};
    QListWidget* lstClients = nullptr;
    QLabel* lblCount = nullptr;
    QLineEdit* txtTitle = nullptr;
    QPushButton* cm3Print = nullptr;
    QPushButton* cm3Merge = nullptr;
    QPushButton* cm3Help = nullptr;
    QPushButton* cm3Close = nullptr;

    void lblFilter_Click(int month);
    void UpdateList();
    void cm3Print_Click();
    void cm3Merge_Click();
    void cm3Help_Click();

protected:
    void showEvent(QShowEvent* event) override;
    void done(int result) override;

private:
    QWidget* MonthBoxes();
    void Form_Load();

    int month_ = 0;  // the month clicked, 1 to 12; 0 before the first click
    bool placed_ = false;
};

}  // namespace quillon
