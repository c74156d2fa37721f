#include "data/data_access.h"

#include "platform/services.h"
#include "shell/variables.h"

#include <stdexcept>

namespace quillon {

namespace {

const QString kListSeparator = QStringLiteral(", ");

// Tries each ", " of `text` as the split between the two leading keys.
bool seekBySplits(const QString& text, const QVariantList& trailingKeys,
                  dao::Recordset& recordset) {
    qsizetype from = 0;
    for (;;) {
        const qsizetype split = text.indexOf(kListSeparator, from);
        if (split < 0) {
            return false;
        }
        QVariantList keys{text.left(split), text.mid(split + kListSeparator.size())};
        keys += trailingKeys;
        recordset.Seek(QStringLiteral("="), keys);
        if (!recordset.NoMatch()) {
            return true;
        }
        from = split + kListSeparator.size();
    }
}

bool seekOrFirst(const QString& text, const QVariantList& trailingKeys, dao::Recordset& recordset,
                 const QString& notFoundMessage) {
    if (seekBySplits(text, trailingKeys, recordset)) {
        return true;
    }
    Beep();
    MsgBox(notFoundMessage, vbExclamation, QStringLiteral("Quillon"));
    recordset.MoveFirst();
    return false;
}

}  // namespace

QString NullToEmpty(const QVariant& value) {
    return value.isNull() ? QString() : value.toString();
}
QString NullToEmpty(const dao::Field& field) {
    return NullToEmpty(field.Value());
}

qint16 NullToZero(const QVariant& value) {
    return value.isNull() ? qint16(0) : static_cast<qint16>(value.toInt());
}
qint16 NullToZero(const dao::Field& field) {
    return NullToZero(field.Value());
}

bool NullToFalse(const QVariant& value) {
    return value.isNull() ? false : value.toBool();
}
bool NullToFalse(const dao::Field& field) {
    return NullToFalse(field.Value());
}

bool SeekClientByListText(const QString& text, dao::Recordset& recordset) {
    return seekOrFirst(text, {}, recordset, QStringLiteral("Client record not found"));
}

bool SeekDividendByListText(const QString& text, bool fid, dao::Recordset& recordset) {
    return seekOrFirst(text, {fid}, recordset, QStringLiteral("Dividend record not found"));
}

ErrorDetails DetailsOf(const std::exception& error) {
    if (const auto* daoError = dynamic_cast<const dao::DaoError*>(&error)) {
        return {daoError->Number(), daoError->Description()};
    }
    // An index outside a list of slots, say, as the old runtime numbered it.
    if (dynamic_cast<const std::out_of_range*>(&error)) {
        return {kErrSubscriptOutOfRange, QStringLiteral("Subscript out of range")};
    }
    return {0, QString::fromLocal8Bit(error.what())};
}

QString ErrorReportText(const QString& module, const QString& procedure,
                        const ErrorDetails& details) {
    return QStringLiteral("Module: ") + module + QLatin1Char('\n') + QStringLiteral("Procedure: ") +
           procedure + QLatin1Char('\n') + QStringLiteral("Error ") +
           QString::number(details.number) + QStringLiteral(": ") + details.description;
}

void ReportError(const QString& module, const QString& procedure, const std::exception& error) {
    ReportError(module, procedure, DetailsOf(error));
}

void ReportError(const QString& module, const QString& procedure, const ErrorDetails& details) {
    MsgBox(ErrorReportText(module, procedure, details), vbExclamation | vbOKOnly,
           CurrentFirst + QLatin1Char(' ') + CurrentLast);
}

}  // namespace quillon
