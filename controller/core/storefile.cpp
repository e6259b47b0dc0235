#include "controller/core/storefile.h"

#include <QDir>
#include <QFileInfo>
#include <QUrl>
#include <sqlite3.h>

#include "controller/core/storeformat.h"

namespace welmo::controller {

std::unique_ptr<StoreFile> StoreFile::open(const QString &file, QString *problem)
{
    std::unique_ptr<StoreFile> database(new StoreFile);
    const QString reason = database->openFile(file);
    if (reason.isEmpty())
        return database;
    *problem = QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(file), reason);
    return nullptr;
}

std::unique_ptr<StoreFile> StoreFile::openToRead(const QString &file, QString *problem)
{
    std::unique_ptr<StoreFile> database(new StoreFile);
    const QByteArray uri = "file:" + QUrl::toPercentEncoding(file, "/") + "?immutable=1";
    QString reason;
    if (sqlite3_open_v2(uri.constData(), &database->m_handle,
                        SQLITE_OPEN_READONLY | SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX, nullptr)
        != SQLITE_OK)
        reason = tr("cannot be opened (%1)").arg(database->errorText());
    if (reason.isEmpty())
        reason = database->inspect();
    if (reason.isEmpty() && database->m_version == 0)
        reason = tr("is empty");
    if (reason.isEmpty() && database->m_version < storeformat::version)
        reason = tr("was written by an earlier version: start a controller on it once");
    if (reason.isEmpty())
        return database;
    *problem = QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(file), reason);
    return nullptr;
}

std::unique_ptr<StoreFile> StoreFile::inMemory()
{
    std::unique_ptr<StoreFile> database(new StoreFile);
    if (sqlite3_open(":memory:", &database->m_handle) != SQLITE_OK
        || !storeformat::create(*database))
        return nullptr;
    return database;
}

StoreFile::~StoreFile()
{
    if (m_marked)
        markClosed();
    close(); // while the lock is still held
}

QString StoreFile::openFile(const QString &file)
{
    if (QString reason = lockFile(file); !reason.isEmpty())
        return reason;
    // Checked before the file is opened, which creates one.
    const bool hasLog = QFile::exists(file + QStringLiteral("-wal"));
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX;
    if (sqlite3_open_v2(QFile::encodeName(file).constData(), &m_handle, flags, nullptr)
        != SQLITE_OK)
        return tr("cannot be opened (%1)").arg(errorText());
    if (sqlite3_db_readonly(m_handle, "main") == 1)
        return tr("cannot be written");
    // Until the file is known to be ours, closing it must not merge a log that was left beside it.
    sqlite3_db_config(m_handle, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, hasLog ? 1 : 0, nullptr);
    if (QString reason = prepare(hasLog); !reason.isEmpty())
        return reason;
    sqlite3_db_config(m_handle, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 0, nullptr);
    return {};
}

QString StoreFile::lockFile(const QString &file)
{
    const QString folder = QFileInfo(file).absolutePath();
    if (!QDir().mkpath(folder))
        return tr("the folder cannot be created");
    const QString lock = file + QStringLiteral(".lock");
    m_wasKilled = QFile::exists(lock);
    switch (m_lock.take(lock)) {
    case StoreLock::Outcome::Held:
        return tr("is in use by another program");
    case StoreLock::Outcome::Failed:
        return tr("cannot be locked (%1)").arg(m_lock.errorText());
    case StoreLock::Outcome::Taken:
        break;
    }
    return {};
}

QString StoreFile::prepare(bool hasLog)
{
    if (QString reason = inspect(); !reason.isEmpty())
        return reason;
    // A killed owner leaves the lock file behind; its log may have been merged by a reader since.
    if (m_version > 1 && !hasLog && !m_wasKilled
        && about(storeformat::openName) == QLatin1String("1"))
        return tr("is a copy of a store in use, without what was written last: "
                  "such a copy is made by controllerd backup");
    const bool isNew = m_version == 0;
    // EXTRA protects the set-up, before there is a log: after a power cut a removed journal cannot
    // come back and undo acknowledged writes. With a log EXTRA works as FULL. The tables are made
    // before the log, so that a file without tables is never one of ours.
    const bool ready = execute("PRAGMA synchronous = EXTRA")
        && (!isNew || storeformat::create(*this)) && configure()
        && (isNew || storeformat::migrate(*this, m_version)) && markOpen();
    return ready ? QString() : tr("cannot be set up (%1)").arg(errorText());
}

QString StoreFile::inspect()
{
    if (QString reason = inspectHeader(); !reason.isEmpty())
        return reason;
    const QString verdict = readText("PRAGMA quick_check(1)");
    if (verdict == QLatin1String("ok"))
        return {};
    return tr("is damaged (%1)").arg(verdict.isEmpty() ? errorText() : verdict.simplified());
}

QString StoreFile::inspectHeader()
{
    qint64 id = 0;
    qint64 tables = 0;
    qint64 pages = 0;
    if (!readNumber("PRAGMA application_id", &id) || !readNumber("PRAGMA user_version", &m_version)
        || !readNumber("SELECT count(*) FROM sqlite_master", &tables)
        || !readNumber("PRAGMA page_count", &pages))
        return unreadable();
    if (id == 0 && m_version == 0 && tables == 0) {
        return pages == 0 ? QString()
                          : tr("holds nothing, as a copy does that was made of a store in use");
    }
    if (id != storeformat::applicationId)
        return tr("belongs to another program");
    if (m_version > storeformat::version)
        return tr("was written by a newer version (format %1, known is %2)")
            .arg(m_version)
            .arg(storeformat::version);
    return {};
}

QString StoreFile::unreadable() const
{
    const QString reason = sqlite3_errcode(m_handle) == SQLITE_NOTADB
        ? tr("is not a controller store (%1)")
        : tr("is damaged (%1)");
    return reason.arg(errorText());
}

bool StoreFile::configure()
{
    return readText("PRAGMA journal_mode = WAL") == QLatin1String("wal");
}

// The mark is written to the file itself, not only to the log, so that a copy of the file alone is
// recognised as incomplete. The log is on the disk before it.
bool StoreFile::markOpen()
{
    m_marked = true;
    return setAbout(storeformat::openName, QStringLiteral("1"))
        && execute("PRAGMA wal_checkpoint(PASSIVE)");
}

// If the mark cannot be cleared, the log is kept with it.
void StoreFile::markClosed()
{
    rollBack(); // an open transaction would undo the mark with it
    if (!setAbout(storeformat::openName, QStringLiteral("0")))
        sqlite3_db_config(m_handle, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
}

} // namespace welmo::controller
