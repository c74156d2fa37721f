#pragma once
// The agent authorisation form: the user picks a client, the screen gathers
// what the client database knows, the user adds the rest, and the two pages go
// to the preview or to a PDF file. The agent's details are the practice's own
// and are kept in the settings.

#include "platform/letter_buttons_gui.h"
#include "reports/form64_8.h"

#include <QDialog>

class QCheckBox;
class QGroupBox;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace quillon {

class frmForm64_8 : public QDialog {
    Q_OBJECT

public:
    static constexpr const char* kFormName = "frmForm64_8";

    explicit frmForm64_8(QWidget* parent = nullptr);

    QListWidget* lstClients = nullptr;
    LetterButtons cmdSeek{};
    QPushButton* cmdPrint = nullptr;
    QPushButton* cmdSave = nullptr;
    QPushButton* cmdClose = nullptr;

    // The box or tick of the form named `name`.
    QLineEdit* Box(const QString& name) const;
    QCheckBox* Tick(const QString& name) const;

    void lstClients_Click();
    void SeekLetter(QChar letter);
    void RefreshForm64State();
    void cmdPrint_Click();
    void cmdSave_Click();

    void done(int result) override;

private:
    QGroupBox* MakeGroup(const QString& name, const QString& title);
    QGroupBox* ClientGroup();
    QGroupBox* AgentGroup();
    QWidget* MattersColumn();
    void LoadClientList();
    void ShowClient(const Form64Client& client);
    void TakeTypeTick(QCheckBox* tick, qint16 type);
    void EnableBox(const QString& name, bool enabled);
    void EnableTick(const QString& name, bool enabled);
    Form64Entries Entries() const;
    QString cdgSaveAsPDF() const;

    QString businessName_;
    qint16 clientType_ = ctIndividual;
    bool refreshing_ = false;
};

}  // namespace quillon
