#include "shell/twips.h"

#include <QGuiApplication>
#include <QScreen>

#include <cmath>

namespace quillon {

namespace {
constexpr double kTwipsPerInch = 1440.0;
constexpr double kStandardDpi = 96.0;
}  // namespace

double TwipsPerPixel() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    const double dpi =
        screen && screen->logicalDotsPerInchX() > 0 ? screen->logicalDotsPerInchX() : kStandardDpi;
    return kTwipsPerInch / dpi;
}

int PixelsToTwips(int pixels) {
    return static_cast<int>(std::lround(pixels * TwipsPerPixel()));
}

int TwipsToPixels(int twips) {
    return static_cast<int>(std::lround(twips / TwipsPerPixel()));
}

}  // namespace quillon
