#include "book/records/database.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <QSqlError>
#include <QUuid>
#include <QVariant>
#include <algorithm>

#include "book/records/columns.h"

namespace welmo::book {

namespace {

constexpr int busyMs = 5000;

} // namespace

const Schema &weldBookSchema()
{
    static const Schema schema{
        0x776C626B, // "wlbk"
        1,
        {
            QStringLiteral("seam (id INTEGER PRIMARY KEY,"
                           " course_rate INTEGER NOT NULL DEFAULT 10)"),
            QStringLiteral("course (seam INTEGER NOT NULL,"
                           " part INTEGER NOT NULL, data BLOB NOT NULL, PRIMARY KEY (seam, part))"),
            QStringLiteral("limits (file TEXT PRIMARY KEY, content TEXT NOT NULL) WITHOUT ROWID"),
            QStringLiteral("version (file TEXT NOT NULL,"
                           " number INTEGER NOT NULL, time INTEGER NOT NULL, user TEXT,"
                           " content TEXT, PRIMARY KEY (file, number)) WITHOUT ROWID"),
            QStringLiteral("setting (name TEXT PRIMARY KEY, value TEXT) WITHOUT ROWID"),
        },
        // For the filters, newest first, and for finding open and old records.
        {
            QStringLiteral("seam_started ON seam (started)"),
            QStringLiteral("seam_program ON seam (program, started)"),
            QStringLiteral("seam_file ON seam (weld_file, started)"),
            QStringLiteral("seam_verdict ON seam (verdict, started)"),
            QStringLiteral("seam_open ON seam (id) WHERE ended IS NULL"),
            QStringLiteral("seam_rate ON seam (course_rate, started)"),
        },
        true};
    return schema;
}

std::unique_ptr<Database> Database::open(const QString &file, Access access, QString *problem,
                                         const Schema &schema)
{
    std::unique_ptr<Database> database(new Database);
    QString reason;
    if (access == ReadOnly && !QFileInfo::exists(file))
        reason = tr("there is no such file");
    else
        reason = database->openFile(file);
    if (reason.isEmpty())
        reason = database->inspect(access, schema);
    if (reason.isEmpty())
        return database;
    *problem = QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(file), reason);
    return nullptr;
}

Database::~Database()
{
    m_database.close();
    m_database = {};
    QSqlDatabase::removeDatabase(m_name);
}

QString Database::openFile(const QString &file)
{
    if (!QDir().mkpath(QFileInfo(file).absolutePath()))
        return tr("the folder cannot be created");
    m_name = QUuid::createUuid().toString();
    m_database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_name);
    m_database.setDatabaseName(file);
    m_database.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1").arg(busyMs));
    if (!m_database.open())
        return tr("cannot be opened (%1)").arg(m_database.lastError().text().simplified());
    return {};
}

QString Database::inspect(Access access, const Schema &schema)
{
    m_error.clear();
    const qint64 id = value(QStringLiteral("PRAGMA application_id")).toLongLong();
    const qint64 version = value(QStringLiteral("PRAGMA user_version")).toLongLong();
    const int count = value(QStringLiteral("SELECT count(*) FROM sqlite_master")).toInt();
    if (!m_error.isEmpty())
        return tr("is damaged or no such database (%1)").arg(m_error);
    if (id != schema.applicationId && (count > 0 || access == ReadOnly))
        return tr("belongs to another program");
    if (version > schema.version)
        return tr("was written by a newer version (format %1, known is %2)")
            .arg(version)
            .arg(schema.version);
    if (access == ReadOnly)
        return run(QStringLiteral("PRAGMA query_only = 1")) ? QString() : m_error;
    // EXTRA first: before there is a log, a removed journal must not come back after a power cut.
    if (!run(QStringLiteral("PRAGMA synchronous = EXTRA"))
        || !run(QStringLiteral("PRAGMA journal_mode = WAL"))
        || !atOnce([&] { return makeTables(schema); }))
        return tr("cannot be written (%1)").arg(m_error);
    return {};
}

// Writes before it reads the version: from then on nobody else makes the same tables.
bool Database::makeTables(const Schema &schema)
{
    if (!run(QStringLiteral("PRAGMA application_id = %1").arg(schema.applicationId)))
        return false;
    const qint64 version = value(QStringLiteral("PRAGMA user_version")).toLongLong();
    for (const QString &table : schema.tables) {
        if (!run(QStringLiteral("CREATE TABLE IF NOT EXISTS ") + table))
            return false;
    }
    if (schema.hasSeams && !addMissingColumns())
        return false;
    for (const QString &index : schema.indices) {
        if (!run(QStringLiteral("CREATE INDEX IF NOT EXISTS ") + index))
            return false;
    }
    return std::all_of(
               schema.fills.begin(), schema.fills.end(),
               [&](const Schema::Fill &fill) { return fill.version <= version || run(fill.sql); })
        && run(QStringLiteral("PRAGMA user_version = %1").arg(schema.version));
}

// A column that an older book lacks is added; its value is null in existing records.
bool Database::addMissingColumns()
{
    QSqlQuery present = query();
    if (!present.exec(QStringLiteral("PRAGMA table_info(seam)")))
        return fail(present.lastError().text().simplified());
    QSet<QString> names;
    while (present.next())
        names.insert(present.value(1).toString());
    for (const Column &column : seamColumns()) {
        if (!names.contains(column.name)
            && !run(
                QStringLiteral("ALTER TABLE seam ADD COLUMN %1 %2").arg(column.name, column.type)))
            return false;
    }
    return true;
}

bool Database::run(const QString &sql, const QVariantList &values)
{
    QSqlQuery statement = query();
    if (!statement.prepare(sql))
        return fail(statement.lastError().text().simplified());
    for (const QVariant &value : values)
        statement.addBindValue(value);
    return run(statement);
}

bool Database::run(QSqlQuery &query)
{
    return query.exec() || fail(query.lastError().text().simplified());
}

bool Database::next(QSqlQuery &query)
{
    if (query.next())
        return true;
    if (query.lastError().isValid())
        fail(query.lastError().text().simplified());
    return false;
}

QVariant Database::value(const QString &sql)
{
    QSqlQuery statement = query();
    statement.setForwardOnly(true);
    if (!statement.exec(sql)) {
        fail(statement.lastError().text().simplified());
        return {};
    }
    return statement.next() ? statement.value(0) : QVariant();
}

QSqlQuery Database::select(const QString &sql, const QVariantList &values)
{
    QSqlQuery statement = query();
    statement.setForwardOnly(true);
    if (!statement.prepare(sql)) {
        fail(statement.lastError().text().simplified());
        return statement;
    }
    for (const QVariant &value : values)
        statement.addBindValue(value);
    run(statement);
    return statement;
}

qint64 Database::bytes() const
{
    return QFileInfo(m_database.databaseName()).size();
}

bool Database::fail(const QString &error)
{
    m_error = error;
    return false;
}

} // namespace welmo::book
