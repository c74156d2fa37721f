#pragma once
// The program's pictures, drawn rather than loaded: the splash picture and the
// toolbar's button pictures.

#include <QColor>
#include <QIcon>
#include <QPixmap>
#include <QString>

namespace quillon {

QPixmap SplashPicture();
// A rounded tile in `colour` bearing `mark`, one or two letters.
QIcon ButtonPicture(const QString& mark, const QColor& colour);
// The program's own window icon.
QIcon ProgramIcon();

}  // namespace quillon
