#include "support/sqlite_probe.h"

#include <sqlite3.h>

namespace quillon::test {

namespace {

bool bind(sqlite3_stmt* statement, const QVariantList& parameters) {
    for (int i = 0; i < parameters.size(); ++i) {
        const QVariant& value = parameters[i];
        int result = SQLITE_OK;
        if (value.isNull()) {
            result = sqlite3_bind_null(statement, i + 1);
        } else if (value.typeId() == QMetaType::Int || value.typeId() == QMetaType::LongLong ||
                   value.typeId() == QMetaType::Bool) {
            result = sqlite3_bind_int64(statement, i + 1, value.toLongLong());
        } else {
            const QByteArray text = value.toString().toUtf8();
            result = sqlite3_bind_text(statement, i + 1, text.constData(), int(text.size()),
                                       SQLITE_TRANSIENT);
        }
        if (result != SQLITE_OK) {
            return false;
        }
    }
    return true;
}

QVariant column(sqlite3_stmt* statement, int i) {
    switch (sqlite3_column_type(statement, i)) {
        case SQLITE_NULL:
            return {};
        case SQLITE_INTEGER:
            return QVariant(qint64(sqlite3_column_int64(statement, i)));
        case SQLITE_FLOAT:
            return QVariant(sqlite3_column_double(statement, i));
        default:
            return QString::fromUtf8(
                reinterpret_cast<const char*>(sqlite3_column_text(statement, i)));
    }
}

}  // namespace

SqliteProbe::SqliteProbe(const QString& path, Access access) {
    const int flags = access == Access::ReadOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
    if (sqlite3_open_v2(path.toUtf8().constData(), &db_, flags, nullptr) != SQLITE_OK) {
        lastError_ = QString::fromUtf8(sqlite3_errmsg(db_));
        sqlite3_close(db_);
        db_ = nullptr;
    }
}

SqliteProbe::~SqliteProbe() {
    sqlite3_close(db_);
}

QList<QVariantList> SqliteProbe::Rows(const QString& sql, const QVariantList& parameters) {
    QList<QVariantList> rows;
    lastError_.clear();
    sqlite3_stmt* statement = nullptr;
    if (!db_ ||
        sqlite3_prepare_v2(db_, sql.toUtf8().constData(), -1, &statement, nullptr) != SQLITE_OK ||
        !bind(statement, parameters)) {
        lastError_ = db_ ? QString::fromUtf8(sqlite3_errmsg(db_)) : QStringLiteral("not open");
        sqlite3_finalize(statement);
        return rows;
    }
    int result = SQLITE_ROW;
    while ((result = sqlite3_step(statement)) == SQLITE_ROW) {
        QVariantList row;
        for (int i = 0; i < sqlite3_column_count(statement); ++i) {
            row << column(statement, i);
        }
        rows << row;
    }
    if (result != SQLITE_DONE) {
        lastError_ = QString::fromUtf8(sqlite3_errmsg(db_));
    }
    sqlite3_finalize(statement);
    return rows;
}

QVariant SqliteProbe::Value(const QString& sql, const QVariantList& parameters) {
    const QList<QVariantList> rows = Rows(sql, parameters);
    return rows.isEmpty() || rows.first().isEmpty() ? QVariant() : rows.first().first();
}

bool SqliteProbe::Exec(const QString& sql, const QVariantList& parameters) {
    Rows(sql, parameters);
    return lastError_.isEmpty();
}

QStringList SqliteProbe::TableNames() {
    QStringList names;
    for (const QVariantList& row :
         Rows(QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table'"))) {
        names << row.first().toString();
    }
    return names;
}

QString Quoted(const QString& name) {
    QString escaped = name;
    escaped.replace(QLatin1Char('"'), QStringLiteral("\"\""));
    return QLatin1Char('"') + escaped + QLatin1Char('"');
}

}  // namespace quillon::test
