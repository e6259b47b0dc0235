#pragma once

#include <QCoreApplication>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <memory>
#include <vector>

namespace welmo::book {

/// The tables of one kind of file.
struct Schema
{
    qint64 applicationId; ///< tells this kind of file from others
    qint64 version; ///< a file of a newer one is refused
    QStringList tables; ///< each as after CREATE TABLE
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

/// A file of records: SQLite with a write-ahead log and full synchronisation, so that committed
/// data survives any crash. One thread uses a Database; a file may be open in several.
class Database
{
    Q_DECLARE_TR_FUNCTIONS(welmo::book::Database)
public:
    enum Access { ReadWrite, ReadOnly };

    /// Opens the file and makes or completes its tables; null, with a line in @p problem, if it is
    /// damaged, another program's, of a newer version, or cannot be written.
    static std::unique_ptr<Database> open(const QString &file, Access access, QString *problem,
                                          const Schema &schema = weldBookSchema());
    ~Database();
    Database(const Database &) = delete;
    Database &operator=(const Database &) = delete;

    QSqlQuery query() const { return QSqlQuery(m_database); }
    /// Runs a statement without results; on failure false, with errorText().
    bool run(const QString &sql, const QVariantList &values = {});
    QVariant value(const QString &sql);
    /// The rows that a question has, to be read once with next(); none on failure, with
    /// errorText().
    QSqlQuery select(const QString &sql, const QVariantList &values = {});
    /// Runs the query with its bound values; on failure false, with errorText().
    bool run(QSqlQuery &query);
    /// The query's next row; false at the end, or on failure with errorText().
    bool next(QSqlQuery &query);
    /// Runs @p work in a transaction, which is rolled back if it returns false.
    template<typename Work>
    bool atOnce(const Work &work)
    {
        if (!m_database.transaction())
            return fail(m_database.lastError().text());
        const bool worked = work();
        if (worked && m_database.commit())
            return true;
        if (worked)
            m_error = m_database.lastError().text().simplified();
        m_database.rollback();
        return false;
    }
    qint64 bytes() const;
    QString errorText() const { return m_error; }

private:
    Database() = default;
    QString openFile(const QString &file);
    QString inspect(Access access, const Schema &schema);
    bool makeTables(const Schema &schema);
    bool addMissingColumns();
    bool fail(const QString &error);

    QString m_name;
    QSqlDatabase m_database;
    QString m_error;
};

} // namespace welmo::book
