#include "controller/core/database.h"

#include <sqlite3.h>

namespace welmo::controller {

namespace {

constexpr char aboutSql[] = "SELECT value FROM about WHERE name = ?1";
constexpr char setAboutSql[] = "INSERT INTO about (name, value) VALUES (?1, ?2)"
                               " ON CONFLICT (name) DO UPDATE SET value = excluded.value";

} // namespace

void Database::close()
{
    sqlite3_close(m_handle);
    m_handle = nullptr;
}

bool Database::execute(const char *sql)
{
    return sqlite3_exec(m_handle, sql, nullptr, nullptr, nullptr) == SQLITE_OK;
}

QString Database::errorText() const
{
    return QString::fromUtf8(sqlite3_errmsg(m_handle));
}

bool Database::readNumber(const char *sql, qint64 *number)
{
    Statement statement(*this, sql);
    if (statement.step() != SQLITE_ROW)
        return false;
    *number = statement.number(0);
    return true;
}

QString Database::readText(const char *sql)
{
    Statement statement(*this, sql);
    return statement.step() == SQLITE_ROW ? QString::fromUtf8(statement.utf8(0)) : QString();
}

QString Database::about(const char *name)
{
    Statement statement(*this, aboutSql);
    return statement.bind(1, QByteArray(name)).step() == SQLITE_ROW ? statement.text(0) : QString();
}

bool Database::setAbout(const char *name, const QString &value)
{
    return Statement(*this, setAboutSql).bind(1, QByteArray(name)).bind(2, value).run();
}

void Database::rollBack()
{
    if (sqlite3_get_autocommit(m_handle) == 0)
        execute("ROLLBACK");
}

Transaction::Transaction(Database &database)
    : m_database(database)
{
    database.rollBack(); // undoes an earlier transaction that could not be ended
    m_isOpen = database.execute("BEGIN IMMEDIATE");
}

Transaction::~Transaction()
{
    if (m_isOpen)
        m_database.rollBack();
}

bool Transaction::commit()
{
    if (!m_database.execute("COMMIT"))
        return false;
    m_isOpen = false;
    return true;
}

Statement::Statement(const Database &database, const char *sql)
{
    sqlite3_prepare_v2(database.handle(), sql, -1, &m_handle, nullptr);
}

Statement::~Statement()
{
    sqlite3_finalize(m_handle);
}

Statement &Statement::bind(int index, const QString &text)
{
    return bind(index, text.toUtf8());
}

Statement &Statement::bind(int index, const QByteArray &utf8)
{
    return bound(
        sqlite3_bind_text(m_handle, index, utf8.constData(), utf8.size(), SQLITE_TRANSIENT));
}

Statement &Statement::bind(int index, qint64 number)
{
    return bound(sqlite3_bind_int64(m_handle, index, number));
}

Statement &Statement::bindNull(int index)
{
    return bound(sqlite3_bind_null(m_handle, index));
}

Statement &Statement::bound(int result)
{
    m_incomplete = m_incomplete || result != SQLITE_OK;
    return *this;
}

int Statement::step()
{
    return m_handle && !m_incomplete ? sqlite3_step(m_handle) : SQLITE_ERROR;
}

bool Statement::run()
{
    const int result = step();
    reset();
    return result == SQLITE_DONE;
}

void Statement::reset()
{
    sqlite3_reset(m_handle);
    m_incomplete = false;
}

bool Statement::isNull(int column) const
{
    return sqlite3_column_type(m_handle, column) == SQLITE_NULL;
}

qint64 Statement::number(int column) const
{
    return sqlite3_column_int64(m_handle, column);
}

QByteArray Statement::utf8(int column) const
{
    const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(m_handle, column));
    return QByteArray(text, sqlite3_column_bytes(m_handle, column));
}

} // namespace welmo::controller
