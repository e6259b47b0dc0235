#pragma once

#include <QCoreApplication>
#include <memory>

#include "controller/core/database.h"
#include "controller/core/storelock.h"

namespace welmo::controller {

/// A database file that is known to be ours, from its first look to its proper end. One owner: a
/// lock file beside it keeps a second controller out, while readers may look on.
class StoreFile : public Database
{
    Q_DECLARE_TR_FUNCTIONS(welmo::controller::StoreFile)
public:
    /// Opens or creates @p file, and brings one of an earlier version up to date. Null when that
    /// cannot be done, with one line in @p problem that names the file and the reason; a file that
    /// is not ours is left exactly as it was.
    static std::unique_ptr<StoreFile> open(const QString &file, QString *problem);
    /// Opens a file that nobody writes, such as a backup; not for writing.
    static std::unique_ptr<StoreFile> openToRead(const QString &file, QString *problem);
    static std::unique_ptr<StoreFile> inMemory();
    ~StoreFile();

private:
    StoreFile() = default;
    QString openFile(const QString &file);
    QString lockFile(const QString &file);
    QString prepare(bool hasLog);
    QString inspect();
    QString inspectHeader();
    QString unreadable() const;
    bool configure();
    bool markOpen();
    void markClosed();

    StoreLock m_lock;
    qint64 m_version = 0; // of the format in the file; 0: there is nothing in it
    bool m_wasKilled = false; // its last owner, which left its lock behind
    bool m_marked = false;
};

} // namespace welmo::controller
