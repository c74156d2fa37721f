#include "data/currency.h"

#include "data/convert.h"

#include <cmath>

namespace quillon {

Currency Currency::FromText(const QString& text) {
    const double scaled = std::round(Val(text) * kScale);  // std::round: halves away from zero
    if (!std::isfinite(scaled) || std::fabs(scaled) > 9.2e18)
        return Currency();
    return Currency(static_cast<std::int64_t>(scaled));
}

QString MoneyText(Currency value) {
    const std::int64_t pounds = value.RoundedPounds();
    if (pounds == 0)
        return QString();
    if (pounds < 0)
        return RightAlign9(QStringLiteral("(%1)").arg(-pounds));
    return RightAlign8(QString::number(pounds));
}

QString MoneyTotalText(Currency value) {
    if (value < Currency::FromPounds(-9999999) || value > Currency::FromPounds(99999999))
        return QStringLiteral("********");
    return MoneyText(value);
}

}  // namespace quillon
