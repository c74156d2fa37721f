#include "reports/frmVSPrint.h"

#include "data/convert.h"
#include "platform/widgets_gui.h"
#include "reports/frmVSPrintDialog.h"
#include "reports/vsprint.h"
#include "shell/variables.h"

#include <QComboBox>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>

#include <algorithm>

namespace quillon {

namespace {

constexpr qint32 kMinimumWidthTwips = 9600;
constexpr qint32 kMinimumHeightTwips = 4800;

double TwipsPerPixel(const QWidget* widget) {
    const QScreen* screen = widget->screen();
    const double dpi = screen != nullptr ? screen->logicalDotsPerInch() : 96.0;
    return kTwipsPerInch / dpi;
}

QPushButton* MakeButton(const QString& name, const QString& caption, QWidget* parent) {
    auto* button = Named<QPushButton>(name, caption, parent);
    button->setAutoDefault(false);
    return button;
}

QComboBox* MakeList(const QString& name, const QStringList& items, QWidget* parent) {
    auto* list = Named<QComboBox>(name, parent);
    list->addItems(items);
    return list;
}

}  // namespace

frmVSPrint::frmVSPrint(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmVSPrint"));
    setWindowTitle(QStringLiteral("Print Preview"));
    setWindowFlags(windowFlags() | Qt::WindowMaximizeButtonHint | Qt::WindowMinimizeButtonHint);
    vp = Named<PreviewView>(QStringLiteral("vp"), VSDocumentControl(), this);
    tmrLastPage = Named<QTimer>(QStringLiteral("tmrLastPage"), this);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(BuildToolbar());
    layout->addWidget(vp, 1);

    cmbPercent->setCurrentIndex(2);
    cmbZoomMode->setCurrentIndex(zmPageWidth);
    cmbPrint->setCurrentIndex(ReportReverse ? 1 : 0);
    cmbZoomMode_Click();
    connect(cmdFirst, &QPushButton::clicked, this, &frmVSPrint::cmdFirst_Click);
    connect(cmdPrevious, &QPushButton::clicked, this, &frmVSPrint::cmdPrevious_Click);
    connect(cmdNext, &QPushButton::clicked, this, &frmVSPrint::cmdNext_Click);
    connect(cmdLast, &QPushButton::clicked, this, &frmVSPrint::cmdLast_Click);
    connect(cmbZoomMode, &QComboBox::activated, this, &frmVSPrint::cmbZoomMode_Click);
    connect(cmbPercent, &QComboBox::activated, this, &frmVSPrint::cmbPercent_Click);
    connect(cmdPrint, &QPushButton::clicked, this, &frmVSPrint::cmdPrint_Click);
    connect(cmdClose, &QPushButton::clicked, this, &frmVSPrint::cmdClose_Click);
    connect(tmrLastPage, &QTimer::timeout, this, &frmVSPrint::tmrLastPage_Timer);
    PlaceWindow();
}

QWidget* frmVSPrint::BuildToolbar() {
    // A tool bar folds what doesn't fit, so the window can be made small.
    auto* bar = new QToolBar(this);
    cmdFirst = MakeButton(QStringLiteral("cmdFirst"), QStringLiteral("|<"), bar);
    cmdPrevious = MakeButton(QStringLiteral("cmdPrevious"), QStringLiteral("<"), bar);
    lblPage = Named<QLabel>(QStringLiteral("lblPage"), bar);
    lblPage->setMinimumWidth(90);
    lblPage->setAlignment(Qt::AlignCenter);
    cmdNext = MakeButton(QStringLiteral("cmdNext"), QStringLiteral(">"), bar);
    cmdLast = MakeButton(QStringLiteral("cmdLast"), QStringLiteral(">|"), bar);
    cmbZoomMode = MakeList(
        QStringLiteral("cmbZoomMode"),
        {QStringLiteral("Percentage"), QStringLiteral("Thumbnail"), QStringLiteral("TwoPages"),
         QStringLiteral("WholePage"), QStringLiteral("PageWidth"), QStringLiteral("Stretch")},
        bar);
    cmbPercent = MakeList(QStringLiteral("cmbPercent"),
                          {QStringLiteral("25%"), QStringLiteral("50%"), QStringLiteral("75%"),
                           QStringLiteral("100%"), QStringLiteral("150%"), QStringLiteral("200%"),
                           QStringLiteral("400%")},
                          bar);
    cmbPrint = MakeList(QStringLiteral("cmbPrint"),
                        {QStringLiteral("Normal"), QStringLiteral("Reverse")}, bar);
    cmdPrint = MakeButton(QStringLiteral("cmdPrint"), QStringLiteral("&Print..."), bar);
    cmdClose = MakeButton(QStringLiteral("cmdClose"), QStringLiteral("&Close"), bar);
    for (QWidget* widget : std::initializer_list<QWidget*>{cmdFirst, cmdPrevious, lblPage, cmdNext,
                                                           cmdLast, cmbZoomMode, cmbPercent}) {
        bar->addWidget(widget);
    }
    bar->addSeparator();
    bar->addWidget(new QLabel(QStringLiteral("Page Order") + QLatin1Char(' '), bar));
    bar->addWidget(cmbPrint);
    bar->addSeparator();
    bar->addWidget(cmdPrint);
    bar->addWidget(cmdClose);
    return bar;
}

void frmVSPrint::PlaceWindow() {
    if (VSPreviewMaximised) {
        setWindowState(windowState() | Qt::WindowMaximized);
        return;
    }
    const double twips = TwipsPerPixel(this);
    const int width = static_cast<int>(std::max(VSPreviewWidth, kMinimumWidthTwips) / twips);
    const int height = static_cast<int>(std::max(VSPreviewHeight, kMinimumHeightTwips) / twips);
    int left = static_cast<int>(VSPreviewLeft / twips);
    int top = static_cast<int>(VSPreviewTop / twips);
    const QScreen* screen = this->screen();
    const QRect desk = screen != nullptr ? screen->availableGeometry() : QRect(0, 0, 1024, 768);
    if (left < 0 || left + width > desk.right()) {
        left = 0;
    }
    if (top < 0 || top + height > desk.bottom()) {
        top = 0;
    }
    resize(width, height);
    move(left, top);
}

void frmVSPrint::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    UpdateNavigation();
    if (QGuiApplication::overrideCursor() != nullptr) {
        QGuiApplication::restoreOverrideCursor();
    }
}

void frmVSPrint::UpdateNavigation() {
    VSPrinterControl& control = vp->control();
    lblPage->setText(QString::number(control.PreviewPage) + QStringLiteral(" of ") +
                     QString::number(control.PageCount()));
    // Page 1 is tested first, so a single page leaves Next and Last enabled.
    const bool onFirst = control.PreviewPage == 1;
    const bool onLast = !onFirst && control.PreviewPage == control.PageCount();
    cmdFirst->setEnabled(!onFirst);
    cmdPrevious->setEnabled(!onFirst);
    cmdNext->setEnabled(!onLast);
    cmdLast->setEnabled(!onLast);
    vp->Refresh();
}

void frmVSPrint::GoToPage(int page) {
    VSPrinterControl& control = vp->control();
    control.PreviewPage = std::clamp(page, 1, std::max(1, control.PageCount()));
    UpdateNavigation();
}

void frmVSPrint::cmdFirst_Click() {
    GoToPage(1);
}

void frmVSPrint::cmdPrevious_Click() {
    GoToPage(vp->control().PreviewPage - 1);
}

void frmVSPrint::cmdNext_Click() {
    GoToPage(vp->control().PreviewPage + 1);
}

void frmVSPrint::cmdLast_Click() {
    GoToPage(vp->control().PageCount());
}

void frmVSPrint::cmbZoomMode_Click() {
    const int mode = cmbZoomMode->currentIndex();
    cmbPercent->setEnabled(mode == zmPercentage);
    if (mode == zmPercentage) {
        vp->control().ZoomMode = zmPercentage;
        cmbPercent_Click();
        return;
    }
    vp->control().ZoomMode = mode;
    vp->Refresh();
}

void frmVSPrint::cmbPercent_Click() {
    vp->control().Zoom = Val(cmbPercent->currentText());  // "75%" is 75
    vp->Refresh();
}

bool frmVSPrint::ReverseOrder() const {
    return cmbPrint->currentIndex() == 1;
}

void frmVSPrint::cmdPrint_Click() {
    frmVSPrintDialog dialog(*this);
    dialog.exec();
    UpdateNavigation();
}

void frmVSPrint::cmdClose_Click() {
    close();
}

void frmVSPrint::tmrLastPage_Timer() {
    tmrLastPage->stop();
    cmdLast_Click();
}

void frmVSPrint::StoreWindowSettings() {
    // Size and place are kept even when maximised, for the next normal window.
    const double twips = TwipsPerPixel(this);
    VSPreviewMaximised = isMaximized();
    VSPreviewLeft = static_cast<qint32>(pos().x() * twips);
    VSPreviewTop = static_cast<qint32>(pos().y() * twips);
    VSPreviewWidth = static_cast<qint32>(width() * twips);
    VSPreviewHeight = static_cast<qint32>(height() * twips);
    ReportReverse = ReverseOrder();
}

void frmVSPrint::done(int result) {
    if (!unloaded_) {
        unloaded_ = true;
        StoreWindowSettings();
    }
    QDialog::done(result);
}

}  // namespace quillon
