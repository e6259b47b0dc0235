#include "book/records/database.h"

#include <QDir>
#include <QFileInfo>
#include <QSqlError>
#include <QSqlRecord>
#include <QUuid>
#include <QVariant>
#include <algorithm>

#include "book/records/columns.h"

namespace welmo::book {

namespace {

constexpr int busyMs = 5000;

// What the database says, and else what Qt does.
QString told(const QSqlError &error)
{
    const QString text = error.databaseText().simplified();
    return text.isEmpty() ? error.driverText().simplified() : text;
}

// No text of PostgreSQL has them.
QVariant withoutZeros(const QVariant &value)
{
    return value.userType() == QMetaType::QString ? value.toString().remove(QChar(0)) : value;
}

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

Database::Database(Place place, Access access)
    : m_place(std::move(place))
    , m_access(access)
    , m_dialect(m_place.isServer() ? Dialect::postgresql() : Dialect::sqlite())
{ }

std::unique_ptr<Database> Database::open(const Place &place, Access access, QString *problem,
                                         const Schema &schema)
{
    std::unique_ptr<Database> database(new Database(place, access));
    QString reason;
    if (access == ReadOnly && !place.isServer() && !QFileInfo::exists(place.file))
        reason = tr("there is no such file");
    else
        reason = database->connect();
    if (reason.isEmpty())
        reason = database->inspect(schema);
    if (reason.isEmpty())
        return database;
    *problem = QStringLiteral("%1: %2").arg(place.text(), reason);
    return nullptr;
}

Database::~Database()
{
    disconnect();
}

QString Database::connect()
{
    if (!m_place.isServer() && !QDir().mkpath(QFileInfo(m_place.file).absolutePath()))
        return tr("the folder cannot be created");
    if (!QSqlDatabase::isDriverAvailable(m_dialect.driver))
        return tr("Qt's driver %1 is not installed").arg(m_dialect.driver);
    m_name = QUuid::createUuid().toString();
    m_database = QSqlDatabase::addDatabase(m_dialect.driver, m_name);
    if (m_place.isServer()) {
        m_place.describe(&m_database);
    } else {
        m_database.setDatabaseName(m_place.file);
        m_database.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1").arg(busyMs));
    }
    if (!m_database.open())
        return tr("cannot be opened (%1)").arg(told(m_database.lastError()));
    return {};
}

void Database::disconnect()
{
    m_database.close();
    m_database = {};
    QSqlDatabase::removeDatabase(m_name);
}

// After any failure, since a driver does not tell whether the server is still there.
bool Database::comeBack()
{
    if (!m_isLost || m_isWithin)
        return true;
    disconnect();
    m_failed.clear();
    m_isLost = false;
    m_error = connect();
    const bool isBack = m_error.isEmpty() && (m_access == ReadWrite || runAll(m_dialect.reading));
    m_isLost = !isBack;
    return isBack;
}

QString Database::inspect(const Schema &schema)
{
    m_error.clear();
    // Tables first: when there are some, whoever made them also said whose they are.
    const int count = value(m_dialect.tables).toInt();
    const bool isMarked = value(m_dialect.isMarked).toInt() != 0;
    const qint64 id = isMarked ? value(m_dialect.application).toLongLong() : 0;
    const qint64 version = isMarked ? value(m_dialect.version).toLongLong() : 0;
    if (!m_error.isEmpty())
        return tr("is damaged or no such database (%1)").arg(m_error);
    if (id != schema.applicationId && (count > 0 || m_access == ReadOnly))
        return tr("belongs to another program");
    if (version > schema.version)
        return tr("was written by a newer version (format %1, known is %2)")
            .arg(version)
            .arg(schema.version);
    if (m_access == ReadOnly)
        return runAll(m_dialect.reading) ? QString() : m_error;
    if (!runAll(m_dialect.writing) || !atOnce([&] { return makeTables(schema); }))
        return tr("cannot be written (%1)").arg(m_error);
    return {};
}

bool Database::runAll(const QStringList &statements)
{
    return std::all_of(statements.begin(), statements.end(),
                       [this](const QString &statement) { return run(statement); });
}

// Nobody else makes these tables from the lock on, so the version is read behind it.
bool Database::makeTables(const Schema &schema)
{
    const auto made = [&](QString statement) {
        statement.replace(QLatin1String("%1"), QString::number(schema.applicationId));
        return statement.replace(QLatin1String("%2"), QString::number(schema.version));
    };
    if (!run(made(m_dialect.lock)))
        return false;
    const bool isMarked = value(m_dialect.isMarked).toInt() != 0;
    const qint64 version = isMarked ? value(m_dialect.version).toLongLong() : 0;
    QStringList statements;
    for (const QString &table : schema.tables)
        statements.append(QStringLiteral("CREATE TABLE IF NOT EXISTS ")
                          + m_dialect.declared(table));
    if (!runAll(statements) || (schema.hasSeams && !addMissingColumns()))
        return false;
    statements.clear();
    for (const QString &index : schema.indices)
        statements.append(QStringLiteral("CREATE INDEX IF NOT EXISTS ") + index);
    for (const Schema::Fill &fill : schema.fills) {
        if (fill.version > version)
            statements.append(fill.sql);
    }
    for (const QString &statement : m_dialect.mark)
        statements.append(made(statement));
    return runAll(statements);
}

// A column that an older book lacks is added; its value is null in existing records.
bool Database::addMissingColumns()
{
    const QSqlRecord present = m_database.record(QStringLiteral("seam"));
    QStringList statements;
    for (const Column &column : seamColumns()) {
        if (!present.contains(column.name))
            statements.append(
                m_dialect.declared(QStringLiteral("ALTER TABLE seam ADD COLUMN \"%1\" %2")
                                       .arg(column.name, column.type)));
    }
    return runAll(statements);
}

QSqlQuery Database::select(const QString &sql, const QVariantList &values)
{
    if (!comeBack())
        return QSqlQuery(m_database);
    QSqlQuery statement(m_database);
    statement.setForwardOnly(true);
    const bool isPrepared = values.isEmpty() || statement.prepare(sql);
    for (const QVariant &value : values)
        statement.addBindValue(isServer() ? withoutZeros(value) : value);
    if (!isPrepared || !(values.isEmpty() ? statement.exec(sql) : statement.exec())) {
        fail(statement.lastError());
        if (isServer())
            m_failed.append(statement);
    }
    return statement;
}

bool Database::next(QSqlQuery &query)
{
    if (query.next())
        return true;
    if (query.lastError().isValid())
        fail(query.lastError());
    return false;
}

QVariant Database::value(const QString &sql, const QVariantList &values)
{
    QSqlQuery row = select(sql, values);
    return next(row) ? row.value(0) : QVariant();
}

qint64 Database::bytes() const
{
    return isServer() ? 0 : QFileInfo(m_place.file).size();
}

bool Database::fail(const QSqlError &error)
{
    m_error = told(error);
    m_isLost = isServer();
    return false;
}

} // namespace welmo::book
