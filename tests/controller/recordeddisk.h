#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>
#include <functional>

/// Records everything that SQLite writes while it exists, and can rebuild the files as a power cut
/// at any point would have left them. There can only be one. It does not really synchronise the
/// disk, so that stores open fast.
class RecordedDisk
{
public:
    struct Operation
    {
        enum Kind { Write, Truncate, Remove, Sync };
        Kind kind;
        QString file; ///< its name without the folder
        qint64 offset; ///< of a write; the new size of a truncation; not 0 if a removal was
                       ///< synchronised
        QByteArray bytes;
    };
    /// Which of the operations that no sync has confirmed are on the disk after the cut.
    enum Cut {
        Killed, ///< all of them, and half of the last write
        PowerLost, ///< none of them
        Reordered, ///< every second one
    };

    RecordedDisk();
    ~RecordedDisk();
    RecordedDisk(const RecordedDisk &) = delete;
    RecordedDisk &operator=(const RecordedDisk &) = delete;

    /// Adds a row for each kind of cut.
    static void addCuts();
    int operations() const { return m_operations.size(); }
    /// Tells that what was written so far must survive every cut.
    void acknowledge() { m_acknowledged.append(m_operations.size()); }
    /// Forgets the recording; the operation number @p failing will fail once.
    void start(int failing = -1);
    /// Cuts before each operation, in the way of the current row, and calls @p check with the
    /// folder that is left and the number of acknowledgements until then. Stops when the test
    /// fails.
    void cutAnywhere(const std::function<void(const QString &folder, int acknowledged)> &check);

    /// Called by the file system; false if the operation is to fail.
    bool record(const Operation &operation);

private:
    static void rebuild(const QString &folder, const QVector<Operation> &operations, int end,
                        Cut cut);

    QVector<Operation> m_operations;
    QVector<int> m_acknowledged; // how many operations there were each time
    int m_failing = -1;
};
