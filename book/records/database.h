#pragma once

#include <QCoreApplication>
#include <QScopedValueRollback>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <memory>
#include <vector>

#include "book/records/dialect.h"
#include "book/records/place.h"

namespace welmo::book {

/// The tables of one kind of file.
struct Schema
{
    qint64 applicationId = 0; ///< tells this kind of file from others
    qint64 version = 0; ///< a file of a newer one is refused
    QStringList tables; ///< each as after CREATE TABLE, with SQLite's types
    QStringList indices; ///< each as after CREATE INDEX
    bool hasSeams = false; ///< the table "seam" gets a column for each of seamColumns()
    /// What fills the tables that a version brought; run once on a file of an older one.
    struct Fill
    {
        qint64 version;
        QString sql;
    };
    std::vector<Fill> fills = {};
};

const Schema &weldBookSchema();

/// A database of records: SQLite with a write-ahead log and full synchronisation, so that committed
/// data survives any crash, or PostgreSQL. One thread uses a Database; a file may be open in
/// several. A lost server is asked for again with the next statement or transaction.
class Database
{
    Q_DECLARE_TR_FUNCTIONS(welmo::book::Database)
public:
    enum Access { ReadWrite, ReadOnly };

    /// Opens the database and makes or completes its tables; null, with a line in @p problem, if it
    /// is damaged, another program's, of a newer version, or cannot be written.
    static std::unique_ptr<Database> open(const Place &place, Access access, QString *problem,
                                          const Schema &schema = weldBookSchema());
    ~Database();
    Database(const Database &) = delete;
    Database &operator=(const Database &) = delete;

    /// Runs a statement; its rows can be read once with next(). Not active on failure, with
    /// errorText().
    QSqlQuery select(const QString &sql, const QVariantList &values = {});
    /// Runs a statement without rows; on failure false, with errorText().
    bool run(const QString &sql, const QVariantList &values = {})
    {
        return select(sql, values).isActive();
    }
    /// The first value of the first row.
    QVariant value(const QString &sql, const QVariantList &values = {});
    /// The query's next row; false at the end, or on failure with errorText().
    bool next(QSqlQuery &query);
    /// Runs @p work in a transaction, which is rolled back if it returns false.
    template<typename Work>
    bool atOnce(const Work &work)
    {
        if (!comeBack() || (!m_database.transaction() && !fail(m_database.lastError())))
            return false;
        const QScopedValueRollback<bool> within(m_isWithin, true);
        const bool worked = work();
        if (worked && m_database.commit())
            return true;
        if (worked)
            fail(m_database.lastError());
        if (m_database.isOpen())
            m_database.rollback();
        return false;
    }
    bool isServer() const { return m_place.isServer(); }
    /// Of the file; 0 at a server.
    qint64 bytes() const;
    QString errorText() const { return m_error; }

private:
    Database(Place place, Access access);
    QString connect();
    void disconnect();
    bool comeBack();
    QString inspect(const Schema &schema);
    bool runAll(const QStringList &statements);
    bool makeTables(const Schema &schema);
    bool addMissingColumns();
    bool fail(const QSqlError &error);

    const Place m_place;
    const Access m_access;
    const Dialect &m_dialect;
    QString m_name;
    QSqlDatabase m_database;
    QString m_error;
    bool m_isWithin = false; // a transaction
    bool m_isLost = false; // perhaps
    QVector<QSqlQuery> m_failed; // Qt's driver complains about those that end before a lost server
};

} // namespace welmo::book
