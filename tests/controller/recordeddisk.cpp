#include "recordeddisk.h"

#include <QDir>
#include <QHash>
#include <QMap>
#include <QTemporaryDir>
#include <map>
#include <sqlite3.h>

#include "support/datarows.h"
#include "support/files.h"

using Operation = RecordedDisk::Operation;

namespace {

RecordedDisk *recorder = nullptr;
sqlite3_vfs *real = nullptr;
sqlite3_vfs recording;

// Files are opened by the real system; only some methods are replaced, in a copy of its table.
std::map<const sqlite3_io_methods *, sqlite3_io_methods> copies; // by the real tables
QHash<sqlite3_file *, std::pair<QString, const sqlite3_io_methods *>>
    files; // each file's name and real table

bool record(sqlite3_file *file, Operation::Kind kind, qint64 offset = 0,
            const QByteArray &bytes = {})
{
    return recorder->record({kind, files[file].first, offset, bytes});
}

int write(sqlite3_file *file, const void *bytes, int count, sqlite3_int64 offset)
{
    const auto content = QByteArray(static_cast<const char *>(bytes), count);
    if (!record(file, Operation::Write, offset, content))
        return SQLITE_FULL;
    return files[file].second->xWrite(file, bytes, count, offset);
}

int truncate(sqlite3_file *file, sqlite3_int64 size)
{
    if (!record(file, Operation::Truncate, size))
        return SQLITE_IOERR_TRUNCATE;
    return files[file].second->xTruncate(file, size);
}

int sync(sqlite3_file *file, int)
{
    return record(file, Operation::Sync) ? SQLITE_OK : SQLITE_IOERR_FSYNC;
}

int remove(sqlite3_vfs *, const char *name, int syncFolder)
{
    const QString file = QString::fromUtf8(name).section('/', -1);
    if (!recorder->record({Operation::Remove, file, syncFolder, {}}))
        return SQLITE_IOERR_DELETE;
    return real->xDelete(real, name, 0);
}

int openFile(sqlite3_vfs *, const char *name, sqlite3_file *file, int flags, int *outFlags)
{
    const int result = real->xOpen(real, name, file, flags, outFlags);
    if (result != SQLITE_OK)
        return result;
    files[file] = {QString::fromUtf8(name).section('/', -1), file->pMethods};
    sqlite3_io_methods &ours = copies.try_emplace(file->pMethods, *file->pMethods).first->second;
    ours.iVersion = 2; // version 3 has memory maps, whose writes cannot be recorded
    ours.xWrite = write;
    ours.xTruncate = truncate;
    ours.xSync = sync;
    file->pMethods = &ours;
    return result;
}

bool reached(const QVector<Operation> &operations, int operation, int end, RecordedDisk::Cut cut)
{
    if (operations[operation].kind == Operation::Remove && operations[operation].offset != 0)
        return true;
    for (int later = operation + 1; later < end; ++later)
        if (operations[later].kind == Operation::Sync
            && operations[later].file == operations[operation].file)
            return true;
    return cut == RecordedDisk::Killed
        || (cut == RecordedDisk::Reordered && operation % 2 == end % 2);
}

void apply(const Operation &operation, QMap<QString, QByteArray> *files)
{
    if (operation.kind == Operation::Remove) {
        files->remove(operation.file);
        return;
    }
    QByteArray &content = (*files)[operation.file];
    if (operation.kind == Operation::Truncate)
        content.resize(int(operation.offset));
    if (operation.kind != Operation::Write)
        return;
    const int end = int(operation.offset) + operation.bytes.size();
    if (content.size() < end)
        content.append(QByteArray(end - content.size(), '\0'));
    content.replace(int(operation.offset), operation.bytes.size(), operation.bytes);
}

} // namespace

RecordedDisk::RecordedDisk()
{
    recorder = this;
    real = sqlite3_vfs_find(nullptr);
    recording = *real;
    recording.zName = "recording";
    recording.xOpen = openFile;
    recording.xDelete = remove;
    sqlite3_vfs_register(&recording, 1);
}

RecordedDisk::~RecordedDisk()
{
    sqlite3_vfs_unregister(&recording);
    sqlite3_vfs_register(real, 1);
}

void RecordedDisk::start(int failing)
{
    m_operations.clear();
    m_failing = failing;
}

bool RecordedDisk::record(const Operation &operation)
{
    m_operations.append(operation);
    return m_operations.size() - 1 != m_failing;
}

void RecordedDisk::addCuts()
{
    testsupport::addRows<Cut>({{"process killed", Killed},
                               {"power lost", PowerLost},
                               {"writes out of order", Reordered}});
}

void RecordedDisk::cutAnywhere(const std::function<void(const QString &, int)> &check)
{
    const Cut cut = std::get<1>(testsupport::currentRow<Cut>());
    const QVector<Operation> operations = m_operations; // the check adds operations
    for (int end = 0; end <= operations.size(); ++end) {
        const QTemporaryDir folder;
        rebuild(folder.path(), operations, end, cut);
        const auto later = std::upper_bound(m_acknowledged.begin(), m_acknowledged.end(), end);
        check(folder.path(), int(later - m_acknowledged.begin()));
        if (QTest::currentTestFailed())
            return qInfo("cut at %d", end);
    }
}

void RecordedDisk::rebuild(const QString &folder, const QVector<Operation> &operations, int end,
                           Cut cut)
{
    QMap<QString, QByteArray> files;
    for (int i = 0; i < end; ++i)
        if (reached(operations, i, end, cut))
            apply(operations[i], &files);
    if (cut == Killed && end < operations.size()) {
        Operation last = operations[end];
        last.bytes.truncate(last.bytes.size() / 2);
        if (last.kind == Operation::Write)
            apply(last, &files);
    }
    for (auto file = files.cbegin(); file != files.cend(); ++file)
        testsupport::writeFile(QDir(folder).filePath(file.key()), *file);
}
