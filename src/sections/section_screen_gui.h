#pragma once
// What the eight section screens have in common. A screen shows one client's
// row of its table; it reads the row whenever it is activated and saves it
// whenever it is left: deactivated, unloaded, or moved to another client. There
// is no Save button. Only a bad date stops a save, and then the user stays in
// the bad box until it is mended or emptied.
//
// A screen adds its own boxes to Body(), binds them to fields through Image(),
// names its date boxes with AddDateBox() in the order they are checked, and
// overrides the few hooks below where it differs.

#include "sections/record_image_gui.h"
#include "sections/sections.h"

#include <QString>
#include <QStringList>
#include <QWidget>

#include <vector>

class QLineEdit;
class QMdiSubWindow;
class QPushButton;

namespace quillon {

class SectionScreen : public QWidget {
    Q_OBJECT

public:
    // True from loading until the end of the first activation: a screen that
    // has read nothing must never write its empty boxes over a row.
    bool Loading = true;
    // True while an activation reads the row, so that check boxes which write
    // at once can tell a read from a click.
    bool Reading = false;

    QWidget* picRecord = nullptr;
    QPushButton* cm3First = nullptr;
    QPushButton* cm3Previous = nullptr;
    QPushButton* cm3Next = nullptr;
    QPushButton* cm3Last = nullptr;
    QPushButton* cm3Help = nullptr;

    void Form_Activate();
    void Form_Deactivate();
    void Form_Resize();
    // True when the unload is cancelled: a bad date keeps the screen open.
    bool Form_Unload();
    void ReadCRecord();
    void WriteCRecord();
    // True when a date box holds a bad date; that box has then been rejected.
    bool CheckDates();
    // RejectDate(box): tells the user, keeps this screen the one shown, and puts
    // the focus back in `box`.
    void RejectDate(QLineEdit* box);
    // A move button: saves, moves the current client one step in `direction`
    // ("First", "Previous", "Next", "Last") and reads the new one.
    void MoveRecord(const QString& direction);

protected:
    using DateTest = bool (*)(const QString&);

    // `section` is the screen's number, a SectionNumber.
    SectionScreen(int section, QWidget* parent);

    QWidget* Body() const { return body_; }
    RecordImage& Image() { return image_; }
    // The table shown, which is also the move key.
    QString TableName() const { return SectionTableName(section_, Page()); }
    // A date box, checked after those added before it and when the focus leaves it.
    void AddDateBox(QLineEdit* box, DateTest test);
    // The shown client as a caption starts: first names, a blank, last name.
    QString ShownClientName() const;

    QString Caption() const;
    // The page of a paged screen.
    virtual int Page() const { return 1; }
    // The part of the caption that a screen fills in itself.
    virtual QString CaptionDetail() const { return QString(); }
    // Reads beyond the row, after ReadCRecord at activation.
    virtual void ReadMore() {}
    // The beep and message for a bad date in `box`.
    virtual void TellBadDate(QLineEdit* box);

    // Whether a FocusIn or FocusOut is the user's own move between controls.
    static bool FocusMovedByUser(const QEvent* event);

    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct DateBox {
        QLineEdit* box;
        DateTest test;
    };

    void BuildFrame();
    void AttachToChildWindow();
    void SubWindowActivated(QMdiSubWindow* window);
    void ChildWindowStateChanged(Qt::WindowStates oldState, Qt::WindowStates newState);
    void BringBack();
    bool LostFocusIsChecked(const QEvent* event) const;

    int section_;
    QString name_;
    ShownClient shown_;
    bool dateGate_;
    RecordImage image_;
    QWidget* body_ = nullptr;
    std::vector<DateBox> dateBoxes_;
    QMdiSubWindow* frame_ = nullptr;
    bool active_ = false;
    bool rejecting_ = false;
    bool unloaded_ = false;
};

}  // namespace quillon
