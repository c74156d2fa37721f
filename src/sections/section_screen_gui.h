#pragma once
// What the eight section screens have in common. A screen shows one client's
// row of its table; it reads the row whenever it is activated and saves it
// whenever it is left: deactivated, unloaded, or moved to another client. There
// is no Save button. Only a bad date stops a save, and then the user stays in
// the bad box until it is mended or emptied.
//
// A screen is described by its row of the sections table (sections.h) and by
// tables of its boxes (field_table.h): it builds its boxes from those tables
// with FieldGroup, FieldGrid and OptionGroupBox, places them in Body(), and
// overrides the few hooks below where it differs.

#include "data/client_rows.h"
#include "sections/field_table.h"
#include "sections/record_image_gui.h"
#include "sections/sections.h"

#include <QLineEdit>
#include <QPointer>
#include <QString>
#include <QWidget>

#include <functional>
#include <memory>
#include <span>
#include <vector>

class QCheckBox;
class QGroupBox;
class QHBoxLayout;
class QLabel;
class QMdiSubWindow;
class QPushButton;
class QScrollArea;
class QSpinBox;

namespace quillon {

// The line of the font the section screens were first laid out in, in
// pixels at 96 dpi.
inline constexpr double kDesignLineHeight = 13.0;

// Whether a FocusIn or FocusOut is the user's own move between controls, and
// not a message box, a menu or another program taking the focus for a while.
bool FocusMovedByUser(const QEvent* event);

class SectionScreen : public QWidget {
    Q_OBJECT

public:
    // True from loading until the end of the first activation: a screen that
    // has read nothing must never write its empty boxes over a row.
    bool Loading = true;
    // True while a read fills the boxes, so that check boxes which write at
    // once can tell a read from a click.
    bool Reading = false;

    QWidget* picRecord = nullptr;
    QPushButton* cm3First = nullptr;
    QPushButton* cm3Previous = nullptr;
    QPushButton* cm3Next = nullptr;
    QPushButton* cm3Last = nullptr;
    QPushButton* cm3Help = nullptr;

    void Form_Activate();
    // False when a bad date refuses the save and takes the screen back.
    bool Form_Deactivate();
    void Form_Resize();
    // True when the unload is cancelled: a bad date keeps the screen open.
    bool Form_Unload();
    void ReadCRecord();
    void WriteCRecord();
    // True when a box fails its check; that box has then been rejected.
    bool CheckDates();
    // RejectDate(box): tells the user, keeps this screen the one shown, and puts
    // the focus back in `box`.
    void RejectDate(QLineEdit* box);
    // A move button: saves, moves the current client one step in `direction`
    // ("First", "Previous", "Next", "Last") and reads the new one.
    void MoveRecord(const QString& direction);

    // The page of a paged screen, 1 to 4; 1 for the others.
    int Page() const;
    // A page spin button: saves, turns to the page before (-1) or after (+1),
    // 4 following 1 and 1 following 4, and reads it.
    void ChangePage(int step);

    // The box named `name` ("txtDOB", "txtAddress(1)"), or nullptr.
    QLineEdit* Box(const QString& name) const;

protected:
    SectionScreen(SectionNumber section, QWidget* parent);

    const SectionRow& Row() const { return row_; }
    QWidget* Body() const { return body_; }
    RecordImage& Image() { return image_; }
    // The table shown, which is also the move key.
    QString TableName() const { return SectionTableName(row_, Page()); }
    ClientName Shown() const { return {*row_.shownFirst, *row_.shownLast}; }
    // A routine of this screen, for the failure report.
    Routine RoutineOf(const QString& procedure) const { return {name_, procedure}; }
    QString Caption() const;

    // Building from tables. Each makes its boxes as children of the group it
    // returns, binds them to their fields and lists its checked boxes, in the
    // order of the rows; the screen places the groups.
    QGroupBox* FieldGroup(const QString& title, std::span<const FieldRow> rows);
    // Given the grid of an earlier call as `continued`, the rows go on below
    // its own, in the same columns and under the same heads.
    QWidget* FieldGrid(std::span<const GridColumn> columns, int first, int last,
                       QWidget* continued = nullptr);
    QGroupBox* OptionGroupBox(const OptionField& options);
    // One box, made and bound as the tables make theirs, for a screen to place.
    QWidget* MakeBox(const QString& name, const QString& field, FieldRule rule, QWidget* parent);
    // A check box of a Boolean field that is read with the row but written at
    // once at its click, reported as `procedure`.
    QCheckBox* FlagBox(const char* control, const char* caption, const char* field,
                       const char* procedure);
    // The spin button and the "PAGE n" label of a paged screen.
    QWidget* PageControls(const char* spin, const char* label);
    // Lays the groups out in columns, left to right, each top to bottom. The
    // room over is shared by `stretch`, a factor a column; equally without.
    void Arrange(std::initializer_list<std::initializer_list<QWidget*>> columns,
                 std::initializer_list<int> stretch = {});
    // Puts `widget` on the bottom line, beside the move buttons and Help.
    void AddCommand(QWidget* widget);
    // Makes each box of a date, a year or a figure under `container` as wide
    // as what it holds, no wider, so that the room goes to the longer texts.
    void FitShortBoxes(QWidget* container);
    // Sets the rows of a grid as close as the screens were first laid out, in
    // their font, so that a list of twenty lines fits the screen's height.
    void TightenRows(QWidget* grid);

    // A check of its own, after the date boxes: `valid` tells whether it
    // passes, `tell` beeps and shows its message, and the focus goes back to
    // `focusBox`. Leaving any of `leaving` runs all the checks.
    void AddCheck(QLineEdit* focusBox, std::function<bool()> valid, std::function<void()> tell,
                  std::vector<QLineEdit*> leaving);

    // The part of the caption that a screen fills in itself.
    virtual QString CaptionDetail() const { return QString(); }
    // Reads beyond the row, after ReadCRecord at activation.
    virtual void ReadMore() {}
    // What goes with every read of the row, found or not: figures computed
    // from it.
    virtual void ReadAlongside() {}
    // A row of `Common` that every read of the row also reads, found or not,
    // through the same opening of the file.
    void ReadCommonAlongside(CommonAlongside common) { commonAlongside_ = std::move(common); }
    // Before a save compares the boxes: finishes what the user is typing, as
    // leaving its box would, for the move buttons take no focus.
    virtual void BeforeWrite() {}
    // Around a page change: before the page left is saved, and after the new
    // page is read.
    virtual void PageLeaving() {}
    virtual void PageEntered() {}

    QSize sizeHint() const override;
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Check {
        QLineEdit* focusBox;
        std::function<bool()> valid;
        std::function<void()> tell;
    };

    void BuildFrame();
    void AddDateBox(QLineEdit* box, FieldRule rule);
    void ShowPage();
    void AttachToChildWindow();
    void SubWindowActivated(QMdiSubWindow* window);
    void ChildWindowStateChanged(Qt::WindowStates oldState, Qt::WindowStates newState);
    void BringBack();
    bool LeftForAnotherBox(const QEvent* event) const;
    void BoxLeft(QObject* box);

    const SectionRow& row_;
    QString name_;
    RecordImage image_;
    CommonAlongside commonAlongside_;
    QScrollArea* scroller_ = nullptr;
    QWidget* body_ = nullptr;
    QHBoxLayout* bottom_ = nullptr;
    std::vector<Check> checks_;
    // Boxes whose leaving runs a check: the date box itself, or all checks.
    std::vector<std::pair<QLineEdit*, int>> checkedOnLeaving_;  // -1: all
    QSpinBox* pageSpin_ = nullptr;
    QLabel* pageLabel_ = nullptr;
    QMdiSubWindow* frame_ = nullptr;
    QPointer<QLineEdit> rejectedBox_;
    bool active_ = false;
    bool rejecting_ = false;
    bool unloaded_ = false;
};

}  // namespace quillon
