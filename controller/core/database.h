#pragma once

#include <QCoreApplication>
#include <QLockFile>
#include <QString>
#include <memory>

struct sqlite3;
struct sqlite3_stmt;

namespace welmo::controller {

/// An SQLite connection to a file that is known to be ours. One thread, one owner: a lock file
/// beside the database keeps a second controller out, while readers may look on.
class Database
{
    Q_DECLARE_TR_FUNCTIONS(welmo::controller::Database)
public:
    /// Opens or creates @p file. Null when that cannot be done, with one line in @p problem that
    /// names the file and the reason; a file that is not ours is left exactly as it was.
    static std::unique_ptr<Database> open(const QString &file, QString *problem);
    static std::unique_ptr<Database> inMemory();
    ~Database();
    Database(const Database &) = delete;
    Database &operator=(const Database &) = delete;

    bool execute(const char *sql);
    /// What the last failed operation said.
    QString errorText() const;
    sqlite3 *handle() const { return m_handle; }

private:
    Database() = default;
    QString openFile(const QString &file);
    QString lockFile(const QString &file);
    QString inspect();
    QString inspectHeader(bool *isNew);
    QString unreadable() const;
    bool configure();
    bool createTables();
    bool readNumber(const char *sql, qint64 *number);
    QString readText(const char *sql);

    sqlite3 *m_handle = nullptr;
    std::unique_ptr<QLockFile> m_lock;
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
    /// Runs to the next row: SQLITE_ROW, SQLITE_DONE, or an error.
    int step();
    /// Runs a statement without rows to its end and makes it ready for the next time.
    bool run();
    /// Ready for the next time; the bound values stay.
    void reset();

    bool isNull(int column) const;
    qint64 number(int column) const;
    QByteArray utf8(int column) const;

private:
    sqlite3_stmt *m_handle = nullptr;
};

} // namespace welmo::controller
