#pragma once
// The splash shown at start. Its two one-shot timers carry the start on: the
// first reads the ConfigFile once the picture is up, the second opens the main
// window or the backup reminder.

#include <QWidget>

class QLabel;
class QTimer;

namespace quillon {

class frmBanner6 : public QWidget {
    Q_OBJECT
public:
    static constexpr const char* kFormName = "frmBanner6";
    static constexpr int kInitInterval = 100;
    static constexpr int kGoInterval = 3000;

    explicit frmBanner6(QWidget* parent = nullptr);

    QTimer* tmrInit = nullptr;
    QTimer* tmrGo = nullptr;

    void tmrInit_Timer();
    void tmrGo_Timer();

private:
    QLabel* picBanner_ = nullptr;
};

}  // namespace quillon
