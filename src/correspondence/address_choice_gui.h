#pragma once
// The frame "Address" of the correspondence screens: the client's personal
// address or that of the first business.

#include <QtGlobal>

class QGroupBox;
class QWidget;

namespace quillon {

// `optAddress(0)` "Personal" and `optAddress(1)` "Business", checked by
// `setting` and keeping it at each click.
QGroupBox* MakeAddressChoice(QWidget* form, qint16& setting);

}  // namespace quillon
