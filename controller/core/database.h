#pragma once

#include <QString>

struct sqlite3;
struct sqlite3_stmt;

namespace welmo::controller {

/// An SQLite connection to the tables of a store. One thread.
class Database
{
public:
    Database(const Database &) = delete;
    Database &operator=(const Database &) = delete;

    bool execute(const char *sql);
    bool readNumber(const char *sql, qint64 *number);
    QString readText(const char *sql);
    /// What the store says about itself, by name; empty for what it does not.
    QString about(const char *name);
    /// Undoes what was begun and not committed.
    void rollBack();
    bool setAbout(const char *name, const QString &value);
    /// What the last failed operation said.
    QString errorText() const;
    sqlite3 *handle() const { return m_handle; }

protected:
    Database() = default;
    ~Database() { close(); }
    void close();

    sqlite3 *m_handle = nullptr;
};

/// Changes that count together; undone, whatever the reason, unless they were committed.
class Transaction
{
public:
    explicit Transaction(Database &database);
    ~Transaction();
    Transaction(const Transaction &) = delete;
    Transaction &operator=(const Transaction &) = delete;

    bool hasBegun() const { return m_isOpen; }
    bool commit();

private:
    Database &m_database;
    bool m_isOpen;
};

/// A prepared statement, used again and again; it must not outlive its database.
class Statement
{
public:
    Statement(const Database &database, const char *sql);
    ~Statement();
    Statement(const Statement &) = delete;
    Statement &operator=(const Statement &) = delete;

    /// Fills the place @p index, counted from 1.
    Statement &bind(int index, const QString &text);
    Statement &bind(int index, const QByteArray &utf8);
    Statement &bind(int index, qint64 number);
    Statement &bindNull(int index);
    /// Runs to the next row: SQLITE_ROW, SQLITE_DONE, or an error.
    int step();
    /// Runs a statement without rows to its end and makes it ready for the next time.
    bool run();
    /// Ready for the next time; the bound values stay.
    void reset();

    bool isNull(int column) const;
    qint64 number(int column) const;
    QByteArray utf8(int column) const;
    QString text(int column) const { return QString::fromUtf8(utf8(column)); }

private:
    Statement &bound(int result);

    sqlite3_stmt *m_handle = nullptr;
    bool m_incomplete = false; // a place could not be filled: it must not run with what was there
};

} // namespace welmo::controller
