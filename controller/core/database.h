#pragma once

#include <QString>

struct sqlite3;
struct sqlite3_stmt;

namespace welmo::controller {

/// An SQLite connection to the tables of a store, for one thread.
class Database
{
public:
    Database(const Database &) = delete;
    Database &operator=(const Database &) = delete;

    bool execute(const char *sql);
    bool readNumber(const char *sql, qint64 *number);
    QString readText(const char *sql);
    /// A named value that describes the store; empty if it has none of that name.
    QString about(const char *name);
    /// Undoes a transaction that was not committed.
    void rollBack();
    bool setAbout(const char *name, const QString &value);
    /// The error of the last failed operation.
    QString errorText() const;
    sqlite3 *handle() const { return m_handle; }

protected:
    Database() = default;
    ~Database() { close(); }
    void close();

    sqlite3 *m_handle = nullptr;
};

/// Changes that are made together; undone by the destructor unless they were committed.
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

/// A prepared statement that is used many times; its database must outlive it.
class Statement
{
public:
    Statement(const Database &database, const char *sql);
    ~Statement();
    Statement(const Statement &) = delete;
    Statement &operator=(const Statement &) = delete;

    /// Binds the parameter @p index, counted from 1.
    Statement &bind(int index, const QString &text);
    Statement &bind(int index, const QByteArray &utf8);
    Statement &bind(int index, qint64 number);
    Statement &bindNull(int index);
    /// Runs to the next row: SQLITE_ROW, SQLITE_DONE, or an error.
    int step();
    /// Runs a statement without result rows to its end and resets it.
    bool run();
    /// Makes the statement ready to run again; the bound values stay.
    void reset();

    bool isNull(int column) const;
    qint64 number(int column) const;
    QByteArray utf8(int column) const;
    QString text(int column) const { return QString::fromUtf8(utf8(column)); }

private:
    Statement &bound(int result);

    sqlite3_stmt *m_handle = nullptr;
    bool m_incomplete = false; // a value could not be bound: the old one must not be used
};

} // namespace welmo::controller
