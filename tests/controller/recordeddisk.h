#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>
#include <functional>

/// Stands between SQLite and the disk while it exists: keeps a list of everything that reached the
/// files, so that the disk can be rebuilt as a cut at any point of the list would have left it. One
/// at a time. Nothing is really synchronised, which makes opening a store again and again cheap.
class RecordedDisk
{
public:
    struct Operation
    {
        enum Kind { Write, Truncate, Remove, Sync };
        Kind kind;
        QString file; ///< without its folder
        qint64 offset; ///< of a write; new size when truncating; removed for good: not 0
        QByteArray bytes;
    };
    /// What of the operations that no sync has confirmed is on the disk after the cut.
    enum Cut {
        Killed, ///< all of them: the system goes on, the last write got half-way
        PowerLost, ///< none of them
        Reordered, ///< every other one, the later before the earlier
    };

    RecordedDisk();
    ~RecordedDisk();
    RecordedDisk(const RecordedDisk &) = delete;
    RecordedDisk &operator=(const RecordedDisk &) = delete;

    /// The rows of a test that is run for each kind of cut.
    static void addCuts();
    int operations() const { return m_operations.size(); }
    /// Whatever came before this is kept through every cut.
    void acknowledge() { m_acknowledged.append(m_operations.size()); }
    /// Forgets what was recorded and lets the operation at @p failing fail, once.
    void start(int failing = -1);
    /// Hands on the folder that a cut of the row's kind would have left, for a cut before each
    /// operation, and how often was acknowledged by then. Stops where the test fails.
    void cutAnywhere(const std::function<void(const QString &folder, int acknowledged)> &check);

    /// For the file system below: false when this operation has to fail.
    bool record(const Operation &operation);

private:
    static void rebuild(const QString &folder, const QVector<Operation> &operations, int end,
                        Cut cut);

    QVector<Operation> m_operations;
    QVector<int> m_acknowledged; // operations at each time
    int m_failing = -1;
};
