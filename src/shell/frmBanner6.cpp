#include "shell/frmBanner6.h"

#include "platform/widgets_gui.h"
#include "shell/artwork_gui.h"
#include "shell/configuration.h"
#include "shell/forms_gui.h"
#include "shell/variables.h"

#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>

namespace quillon {

frmBanner6::frmBanner6(QWidget* parent)
    : QWidget(parent, Qt::SplashScreen | Qt::FramelessWindowHint) {
    setWindowTitle(QStringLiteral("Quillon"));
    picBanner_ = Named<QLabel>(QStringLiteral("picBanner"), this);
    picBanner_->setPixmap(SplashPicture());
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(picBanner_);
    setFixedSize(picBanner_->sizeHint());
    if (const QScreen* screen = QGuiApplication::primaryScreen()) {
        move(screen->geometry().center() - rect().center());
    }

    tmrInit = Named<QTimer>(QStringLiteral("tmrInit"), this);
    tmrInit->setSingleShot(true);
    tmrInit->setInterval(kInitInterval);
    connect(tmrInit, &QTimer::timeout, this, &frmBanner6::tmrInit_Timer);
    tmrGo = Named<QTimer>(QStringLiteral("tmrGo"), this);
    tmrGo->setSingleShot(true);
    tmrGo->setInterval(kGoInterval);
    connect(tmrGo, &QTimer::timeout, this, &frmBanner6::tmrGo_Timer);
    tmrInit->start();
}

void frmBanner6::tmrInit_Timer() {
    tmrInit->stop();
    ReadConfiguration();
    tmrGo->start();
}

void frmBanner6::tmrGo_Timer() {
    tmrGo->stop();
    if (BackupWarning != 0) {
        // A negative value switches the reminder off and stays as it is.
        if (BackupWarning > 0) {
            --BackupWarning;
        }
        LoadForm(QStringLiteral("frmQuillon"));
    } else {
        LoadForm(QStringLiteral("frmBackupWarning"))->show();
    }
    UnloadForm(QString::fromLatin1(kFormName));
}

}  // namespace quillon
