#pragma once

#include <QByteArray>
#include <QString>

namespace welmo::controller {

/// Keeps a second program out of a store by a system lock on a file beside it. The system releases
/// the lock when the process ends, however it ends; the file's content does not matter.
class StoreLock
{
public:
    enum class Outcome { Taken, Held, Failed };

    StoreLock() = default;
    ~StoreLock();
    StoreLock(const StoreLock &) = delete;
    StoreLock &operator=(const StoreLock &) = delete;

    /// Takes the lock without waiting; Held if another program has it.
    Outcome take(const QString &file);
    /// The system's error text when take() failed.
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
