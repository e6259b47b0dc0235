#pragma once

#include <QByteArray>
#include <QString>

namespace welmo::controller {

/// Keeps a second program out of a store, by a lock on a file beside it that the system holds for
/// the process: it is gone when its holder is, however that ended, and what the file contains
/// means nothing.
class StoreLock
{
public:
    enum class Outcome { Taken, Held, Failed };

    StoreLock() = default;
    ~StoreLock();
    StoreLock(const StoreLock &) = delete;
    StoreLock &operator=(const StoreLock &) = delete;

    /// Takes the lock at once or not at all: Held, when another program has it.
    Outcome take(const QString &file);
    /// What the system said when take() failed.
    QString errorText() const { return m_errorText; }

private:
    Outcome failed();
    bool isStillThere() const;
    void close();

    QByteArray m_file;
    int m_descriptor = -1;
    QString m_errorText;
};

} // namespace welmo::controller
