#pragma once
// Reads and writes a database file straight through SQLite, beside the
// database layer, so that a test can see exactly what a file holds.

#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>

struct sqlite3;

namespace quillon::test {

class SqliteProbe {
public:
    enum class Access { ReadWrite, ReadOnly };
    explicit SqliteProbe(const QString& path, Access access = Access::ReadWrite);
    ~SqliteProbe();
    SqliteProbe(const SqliteProbe&) = delete;
    SqliteProbe& operator=(const SqliteProbe&) = delete;

    bool IsOpen() const { return db_ != nullptr; }

    // All rows of a query; Null is a null QVariant, integers are qint64, texts
    // are QString. A failing query gives no rows and sets LastError.
    QList<QVariantList> Rows(const QString& sql, const QVariantList& parameters = {});
    // The first column of the first row, or a null QVariant.
    QVariant Value(const QString& sql, const QVariantList& parameters = {});
    // Runs a statement; false, with LastError set, when SQLite refuses it.
    bool Exec(const QString& sql, const QVariantList& parameters = {});

    QString LastError() const { return lastError_; }
    QStringList TableNames();

private:
    sqlite3* db_ = nullptr;
    QString lastError_;
};

// `name` as an SQL identifier.
QString Quoted(const QString& name);

}  // namespace quillon::test
