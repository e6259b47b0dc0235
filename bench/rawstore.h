#pragma once

#include <QByteArray>
#include <QString>

struct sqlite3;
struct sqlite3_stmt;

namespace bench {

/// The floor of every store: one table, prepared statements, write-ahead log, full synchronisation.
class RawStore
{
public:
    explicit RawStore(const QString &file);
    ~RawStore();
    RawStore(const RawStore &) = delete;
    RawStore &operator=(const RawStore &) = delete;

    QByteArray read(const QByteArray &path, const QByteArray &key);
    void write(const QByteArray &path, const QByteArray &key, const QByteArray &value);

private:
    sqlite3_stmt *prepare(const char *sql);

    sqlite3 *m_database = nullptr;
    sqlite3_stmt *m_read = nullptr;
    sqlite3_stmt *m_write = nullptr;
};

} // namespace bench
