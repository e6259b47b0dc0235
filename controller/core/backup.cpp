#include "controller/core/backup.h"

#include <QDateTime>
#include <QFile>
#include <memory>
#include <sqlite3.h>

#include "controller/core/store.h"
#include "controller/core/storeformat.h"

namespace welmo::controller {

namespace {

using Connection = std::unique_ptr<sqlite3, decltype(&sqlite3_close)>;

Connection connect(const QString &file, int flags)
{
    sqlite3 *handle = nullptr;
    sqlite3_open_v2(QFile::encodeName(file).constData(), &handle, flags, nullptr);
    return {handle, &sqlite3_close};
}

QString about(const QString &file, const QString &reason)
{
    return QStringLiteral("%1: %2").arg(file, reason);
}

/// Copies one moment's content of @p from to the new file @p to; returns why that failed.
QString copy(const QString &from, const QString &to, const QString &sql)
{
    QFile::remove(to);
    // Opened read-only: closing as a writer would remove the log of a store that was killed.
    const Connection source = connect(from, SQLITE_OPEN_READONLY);
    const Connection target = connect(to, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    sqlite3_backup *work = sqlite3_backup_init(target.get(), "main", source.get(), "main");
    if (!work)
        return about(to, QString::fromUtf8(sqlite3_errmsg(target.get())));
    const int result = sqlite3_backup_step(work, -1);
    sqlite3_backup_finish(work);
    if (result != SQLITE_DONE)
        return about(from, QString::fromUtf8(sqlite3_errstr(result)));
    if (sqlite3_exec(target.get(), sql.toUtf8().constData(), nullptr, nullptr, nullptr)
        != SQLITE_OK)
        return about(to, QString::fromUtf8(sqlite3_errmsg(target.get())));
    return {};
}

QString setSql(const char *name, const QString &value)
{
    return QStringLiteral("PRAGMA journal_mode = DELETE;"
                          "UPDATE about SET value = '%2' WHERE name = '%1'")
        .arg(QLatin1String(name), value);
}

/// Why a closed file is not a whole store; empty if it is.
QString fault(const QString &file)
{
    QString problem;
    const auto store = Store::openToRead(file, &problem);
    if (store && !store->complaints().isEmpty())
        problem = about(file, store->complaints().first());
    return problem;
}

QString move(const QString &from, const QString &to)
{
    QFile file(from);
    return !file.exists() || file.rename(to) ? QString() : about(from, file.errorString());
}

} // namespace

QString backUp(const QString &file, const QString &backup)
{
    if (!QFile::exists(file))
        return about(file, QStringLiteral("there is no store"));
    if (QFile::exists(backup))
        return about(backup, QStringLiteral("is there already"));
    const QString part = backup + QStringLiteral(".part");
    QString problem = copy(file, part, setSql(storeformat::openName, QStringLiteral("0")));
    if (problem.isEmpty())
        problem = fault(part);
    if (problem.isEmpty())
        problem = move(part, backup);
    QFile::remove(part);
    return problem;
}

QString restore(const QString &file, const QString &backup)
{
    if (QString problem = fault(backup); !problem.isEmpty())
        return problem;
    StoreLock lock;
    if (const auto outcome = lock.take(file + QStringLiteral(".lock"));
        outcome != StoreLock::Outcome::Taken) {
        return about(file,
                     outcome == StoreLock::Outcome::Held
                         ? QStringLiteral("is in use by another program")
                         : QStringLiteral("cannot be locked (%1)").arg(lock.errorText()));
    }
    const QString part = file + QStringLiteral(".part");
    const QString kept = file + QStringLiteral(".replaced-")
        + QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-hhmmss-zzz"));
    const QString log = QStringLiteral("-wal");
    QString problem =
        copy(backup, part, setSql(storeformat::identityName, storeformat::newIdentity()));
    if (problem.isEmpty())
        problem = move(file, kept);
    if (problem.isEmpty())
        problem = move(file + log, kept + log);
    if (problem.isEmpty()) {
        QFile::remove(file + QStringLiteral("-shm"));
        problem = move(part, file);
    }
    QFile::remove(part);
    return problem;
}

} // namespace welmo::controller
