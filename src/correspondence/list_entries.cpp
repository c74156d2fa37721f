#include "correspondence/list_entries.h"

namespace quillon {

namespace {
const QString kSeparator = QStringLiteral(", ");
constexpr int kNumberTail = 6;  // " (", three digits, ")"
}  // namespace

ClientName ClientOfEntry(const QString& entry) {
    const qsizetype split = entry.indexOf(kSeparator);
    if (split < 0) {
        return {QString(), entry};
    }
    return {entry.mid(split + kSeparator.size()), entry.left(split)};
}

QString OfficeEntry(const QString& name, const QString& number) {
    return name + QStringLiteral(" (") + number + QLatin1Char(')');
}

OfficeKey OfficeOfEntry(const QString& entry) {
    if (entry.size() < kNumberTail) {
        return {entry, QString()};
    }
    return {entry.left(entry.size() - kNumberTail), entry.mid(entry.size() - 4, 3)};
}

}  // namespace quillon
