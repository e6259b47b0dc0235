#include "controller/core/database.h"

#include <QDir>
#include <QFileInfo>
#include <sqlite3.h>

namespace welmo::controller {

namespace {

constexpr int applicationId = 0x776C6D6F; // "wlmo"
constexpr int schemaVersion = 1;

// A removed entry keeps its row without a value, so that its revision never starts again.
constexpr char createSql[] = "BEGIN IMMEDIATE;"
                             "CREATE TABLE entry (path TEXT NOT NULL, key TEXT NOT NULL,"
                             " value TEXT, revision INTEGER NOT NULL,"
                             " PRIMARY KEY (path, key)) WITHOUT ROWID;"
                             "PRAGMA application_id = %d;"
                             "PRAGMA user_version = %d;"
                             "COMMIT;";

} // namespace

std::unique_ptr<Database> Database::open(const QString &file, QString *problem)
{
    std::unique_ptr<Database> database(new Database);
    const QString reason = database->openFile(file);
    if (reason.isEmpty())
        return database;
    *problem = QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(file), reason);
    return nullptr;
}

std::unique_ptr<Database> Database::inMemory()
{
    std::unique_ptr<Database> database(new Database);
    if (sqlite3_open(":memory:", &database->m_handle) != SQLITE_OK || !database->createTables())
        return nullptr;
    return database;
}

Database::~Database()
{
    sqlite3_close(m_handle);
}

QString Database::openFile(const QString &file)
{
    if (QString reason = lockFile(file); !reason.isEmpty())
        return reason;
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX;
    if (sqlite3_open_v2(QFile::encodeName(file).constData(), &m_handle, flags, nullptr)
        != SQLITE_OK)
        return tr("cannot be opened (%1)").arg(errorText());
    if (sqlite3_db_readonly(m_handle, "main") == 1)
        return tr("cannot be written");
    // Until the file is known to be ours, the log that somebody left is not merged into it.
    const bool hasLog = QFile::exists(file + QStringLiteral("-wal"));
    sqlite3_db_config(m_handle, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, hasLog ? 1 : 0, nullptr);
    if (QString reason = inspect(); !reason.isEmpty())
        return reason;
    sqlite3_db_config(m_handle, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 0, nullptr);
    return {};
}

QString Database::lockFile(const QString &file)
{
    const QString folder = QFileInfo(file).absolutePath();
    if (!QDir().mkpath(folder))
        return tr("the folder cannot be created");
    m_lock = std::make_unique<QLockFile>(file + QStringLiteral(".lock"));
    m_lock->setStaleLockTime(0); // held for hours; only a dead owner makes it stale
    if (m_lock->tryLock(0))
        return {};
    return m_lock->error() == QLockFile::LockFailedError ? tr("is in use by another program")
                                                         : tr("the folder cannot be written");
}

QString Database::inspect()
{
    bool isNew = false;
    if (QString reason = inspectHeader(&isNew); !reason.isEmpty())
        return reason;
    if (const QString verdict = readText("PRAGMA quick_check(1)"); verdict != QLatin1String("ok"))
        return tr("is damaged (%1)").arg(verdict.isEmpty() ? errorText() : verdict.simplified());
    if (!configure() || (isNew && !createTables()))
        return tr("cannot be set up (%1)").arg(errorText());
    return {};
}

QString Database::inspectHeader(bool *isNew)
{
    qint64 id = 0;
    qint64 version = 0;
    qint64 tables = 0;
    if (!readNumber("PRAGMA application_id", &id) || !readNumber("PRAGMA user_version", &version)
        || !readNumber("SELECT count(*) FROM sqlite_master", &tables))
        return unreadable();
    *isNew = id == 0 && version == 0 && tables == 0;
    if (*isNew)
        return {};
    if (id != applicationId)
        return tr("belongs to another program");
    if (version > schemaVersion)
        return tr("was written by a newer version (format %1, known is %2)")
            .arg(version)
            .arg(schemaVersion);
    return {};
}

QString Database::unreadable() const
{
    const QString reason = sqlite3_errcode(m_handle) == SQLITE_NOTADB
        ? tr("is not a controller store (%1)")
        : tr("is damaged (%1)");
    return reason.arg(errorText());
}

bool Database::configure()
{
    // EXTRA is FULL once there is a log. Until then it sees to it that a journal which was removed
    // does not come back after a power cut, to undo what was acknowledged since.
    return execute("PRAGMA synchronous = EXTRA")
        && readText("PRAGMA journal_mode = WAL") == QLatin1String("wal");
}

bool Database::createTables()
{
    return execute(QString::asprintf(createSql, applicationId, schemaVersion).toUtf8().constData());
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
    sqlite3_bind_text(m_handle, index, utf8.constData(), utf8.size(), SQLITE_TRANSIENT);
    return *this;
}

int Statement::step()
{
    return m_handle ? sqlite3_step(m_handle) : SQLITE_ERROR;
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
