#include "recordeddisk.h"

#include <QDir>
#include <QFile>
#include <QMap>
#include <new>
#include <sqlite3.h>

using Operation = RecordedDisk::Operation;

namespace {

RecordedDisk *recorder = nullptr;
sqlite3_vfs *real = nullptr;

// SQLite allocates szOsFile bytes: ours, and behind it the file of the real file system.
struct File : sqlite3_file
{
    QString *name;

    static sqlite3_file *under(sqlite3_file *file)
    {
        return reinterpret_cast<sqlite3_file *>(static_cast<File *>(file) + 1);
    }
    static bool record(sqlite3_file *file, Operation::Kind kind, qint64 offset = 0,
                       const QByteArray &bytes = {})
    {
        return recorder->record({kind, *static_cast<File *>(file)->name, offset, bytes});
    }
};

int closeFile(sqlite3_file *file)
{
    delete static_cast<File *>(file)->name;
    return File::under(file)->pMethods->xClose(File::under(file));
}

int write(sqlite3_file *file, const void *bytes, int count, sqlite3_int64 offset)
{
    const auto content = QByteArray(static_cast<const char *>(bytes), count);
    if (!File::record(file, Operation::Write, offset, content))
        return SQLITE_FULL;
    return File::under(file)->pMethods->xWrite(File::under(file), bytes, count, offset);
}

int truncate(sqlite3_file *file, sqlite3_int64 size)
{
    if (!File::record(file, Operation::Truncate, size))
        return SQLITE_IOERR_TRUNCATE;
    return File::under(file)->pMethods->xTruncate(File::under(file), size);
}

int sync(sqlite3_file *file, int)
{
    return File::record(file, Operation::Sync) ? SQLITE_OK : SQLITE_IOERR_FSYNC;
}

int remove(sqlite3_vfs *, const char *name, int syncFolder)
{
    const QString file = QString::fromUtf8(name).section('/', -1);
    if (!recorder->record({Operation::Remove, file, syncFolder, {}}))
        return SQLITE_IOERR_DELETE;
    return real->xDelete(real, name, 0);
}

// The rest goes to the real file, whatever its arguments are.
template<auto Method, typename... Arguments>
int pass(sqlite3_file *file, Arguments... arguments)
{
    sqlite3_file *under = File::under(file);
    return (under->pMethods->*Method)(under, arguments...);
}

void passBarrier(sqlite3_file *file)
{
    File::under(file)->pMethods->xShmBarrier(File::under(file));
}

using Methods = sqlite3_io_methods;
const Methods methods{2, // without the memory map of version 3, whose writes could not be seen
                      closeFile,
                      pass<&Methods::xRead, void *, int, sqlite3_int64>,
                      write,
                      truncate,
                      sync,
                      pass<&Methods::xFileSize, sqlite3_int64 *>,
                      pass<&Methods::xLock, int>,
                      pass<&Methods::xUnlock, int>,
                      pass<&Methods::xCheckReservedLock, int *>,
                      pass<&Methods::xFileControl, int, void *>,
                      pass<&Methods::xSectorSize>,
                      pass<&Methods::xDeviceCharacteristics>,
                      pass<&Methods::xShmMap, int, int, int, void volatile **>,
                      pass<&Methods::xShmLock, int, int, int>,
                      passBarrier,
                      pass<&Methods::xShmUnmap, int>,
                      nullptr,
                      nullptr};

int openFile(sqlite3_vfs *, const char *name, sqlite3_file *memory, int flags, int *outFlags)
{
    File *file = new (memory) File;
    const int result = real->xOpen(real, name, File::under(file), flags, outFlags);
    file->pMethods = result == SQLITE_OK ? &methods : nullptr;
    file->name =
        result == SQLITE_OK ? new QString(QString::fromUtf8(name).section('/', -1)) : nullptr;
    return result;
}

sqlite3_vfs recording;

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
    recording.szOsFile = int(sizeof(File)) + real->szOsFile;
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
    for (auto file = files.cbegin(); file != files.cend(); ++file) {
        QFile target(QDir(folder).filePath(file.key()));
        if (!target.open(QIODevice::WriteOnly) || target.write(*file) != file->size())
            qFatal("cannot write the test's own file");
    }
}
