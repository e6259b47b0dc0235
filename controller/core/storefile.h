#pragma once

#include <QCoreApplication>
#include <memory>

#include "controller/core/database.h"
#include "controller/core/storelock.h"

namespace welmo::controller {

/// A database file that is verified to be ours, from opening to a clean close. It has one owner: a
/// lock file beside it keeps a second controller out, while readers are allowed.
class StoreFile : public Database
{
    Q_DECLARE_TR_FUNCTIONS(welmo::controller::StoreFile)
public:
    /// Opens or creates @p file, and updates one of an earlier version. Null if that fails, with
    /// one line in @p problem that names the file and the reason; a file that is not ours is not
    /// changed.
    static std::unique_ptr<StoreFile> open(const QString &file, QString *problem);
    /// Opens a file that no program writes, such as a backup, for reading only.
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
    qint64 m_version = 0; // of the file's format; 0 for an empty file
    bool m_wasKilled = false; // the last owner left its lock file behind
    bool m_marked = false;
};

} // namespace welmo::controller
