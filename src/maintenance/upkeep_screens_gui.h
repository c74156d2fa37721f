#pragma once
// The screens of an operation on the whole client database file: one that
// asks (back up first, go on, or cancel) and one that asks the user to wait
// while its timer does the work. Compact and repair differ only in their texts
// and their work, which an UpkeepTexts row gives.

#include "maintenance/database_upkeep.h"

#include <QDialog>

class QLabel;
class QPushButton;
class QTimer;

namespace quillon {

struct UpkeepTexts {
    const char* confirmForm;
    const char* confirmCaption;
    const char* about;  // the paragraph after the file's path
    const char* backupFirst;
    const char* backupExplanation;
    const char* goCaption;
    const char* goExplanation;
    const char* cancelExplanation;
    const char* waitForm;
    const char* waitText;
    const char* errorTitle;
    UpkeepResult (*work)(const QString& live);
};

class UpkeepConfirm : public QDialog {
    Q_OBJECT

public:
    QLabel* lblWarning = nullptr;
    QLabel* lblText = nullptr;
    QPushButton* cmdBackup = nullptr;
    QPushButton* cmdContinue = nullptr;
    QPushButton* cmdCancel = nullptr;

    void cmdBackup_Click();
    void cmdContinue_Click();
    void cmdCancel_Click();

protected:
    UpkeepConfirm(const UpkeepTexts& texts, QWidget* parent);
    // Goes on with the operation: by default to its wait screen.
    virtual void Continue();
    void CloseThenShow(const char* form);
    const UpkeepTexts& Texts() const { return texts_; }

private:
    const UpkeepTexts& texts_;
};

class UpkeepWait : public QDialog {
    Q_OBJECT

public:
    QLabel* lblFile = nullptr;
    QTimer* Timer1 = nullptr;

    void Timer1_Timer();

protected:
    UpkeepWait(const UpkeepTexts& texts, QWidget* parent);
    void showEvent(QShowEvent* event) override;

private:
    const UpkeepTexts& texts_;
};

}  // namespace quillon
