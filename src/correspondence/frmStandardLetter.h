#pragma once
// The ten standard letters of the kind the letter screen asked for, each a
// description and a document file, with the folders of the word processors,
// and the opening of a letter in the word processor.

#include "correspondence/correspondence_state.h"

#include <QDialog>

#include <array>

class QGridLayout;
class QLineEdit;
class QPushButton;

namespace quillon {

class frmStandardLetter : public QDialog {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmStandardLetter";
    explicit frmStandardLetter(QWidget* parent = nullptr);

    std::array<QLineEdit*, kStandardLetters> txtDescription{};
    std::array<QLineEdit*, kStandardLetters> txtFile{};
    std::array<QPushButton*, kStandardLetters> cmdSelect{};
    std::array<QPushButton*, kStandardLetters> cmdOpen{};
    QLineEdit* txtWordFolder = nullptr;
    QLineEdit* txtWordPadFolder = nullptr;
    QPushButton* cmdFindWord = nullptr;
    QPushButton* cmdFindWordPad = nullptr;
    QPushButton* cmdCancel = nullptr;

    void cmdSelect_Click(int index);
    void cmdOpen_Click(int index);
    void cmdFindWord_Click();
    void cmdFindWordPad_Click();

private:
    void AddLetterRows(QGridLayout* grid);
    void FindProgram(QLineEdit* folder, const QString& program, const QString& kind);
    void EnableOpenButtons();
};

}  // namespace quillon
