#include "bench/rawstore.h"

#include <QFile>
#include <sqlite3.h>

namespace bench {

namespace {

void demand(bool good)
{
    if (!good)
        qFatal("the plain store does not work");
}

void bind(sqlite3_stmt *statement, int place, const QByteArray &text)
{
    sqlite3_bind_text(statement, place, text.constData(), text.size(), SQLITE_STATIC);
}

} // namespace

RawStore::RawStore(const QString &file)
{
    demand(sqlite3_open(QFile::encodeName(file).constData(), &m_database) == SQLITE_OK);
    const char *setup = "PRAGMA journal_mode = WAL; PRAGMA synchronous = FULL;"
                        "CREATE TABLE entry (path TEXT, key TEXT, value TEXT,"
                        " PRIMARY KEY (path, key)) WITHOUT ROWID;";
    demand(sqlite3_exec(m_database, setup, nullptr, nullptr, nullptr) == SQLITE_OK);
    m_read = prepare("SELECT value FROM entry WHERE path = ?1 AND key = ?2");
    m_write = prepare("INSERT INTO entry VALUES (?1, ?2, ?3)"
                      " ON CONFLICT (path, key) DO UPDATE SET value = excluded.value");
}

RawStore::~RawStore()
{
    sqlite3_finalize(m_read);
    sqlite3_finalize(m_write);
    sqlite3_close(m_database);
}

sqlite3_stmt *RawStore::prepare(const char *sql)
{
    sqlite3_stmt *statement = nullptr;
    demand(sqlite3_prepare_v2(m_database, sql, -1, &statement, nullptr) == SQLITE_OK);
    return statement;
}

QByteArray RawStore::read(const QByteArray &path, const QByteArray &key)
{
    bind(m_read, 1, path);
    bind(m_read, 2, key);
    demand(sqlite3_step(m_read) == SQLITE_ROW);
    const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(m_read, 0));
    QByteArray value(text, sqlite3_column_bytes(m_read, 0));
    sqlite3_reset(m_read);
    return value;
}

void RawStore::write(const QByteArray &path, const QByteArray &key, const QByteArray &value)
{
    bind(m_write, 1, path);
    bind(m_write, 2, key);
    bind(m_write, 3, value);
    demand(sqlite3_step(m_write) == SQLITE_DONE);
    sqlite3_reset(m_write);
}

} // namespace bench
