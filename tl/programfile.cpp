#include "tl/programfile.h"

#include <QFile>
#include <QSaveFile>
#include <unistd.h>

namespace welmo::tl {

namespace {

// In bytes; reading a device would never end.
constexpr qint64 largestProgram = qint64(64) * 1024 * 1024;

// The first line longer than longestLine, counted from 1; 0 if there is none.
int tooLongLine(const QByteArray &bytes)
{
    int start = 0;
    for (int line = 1; start < bytes.size(); ++line) {
        const int found = bytes.indexOf('\n', start);
        const int end = found < 0 ? bytes.size() : found;
        if (end - start > longestLine)
            return line;
        start = end + 1;
    }
    return 0;
}

} // namespace

std::optional<QByteArray> readProgram(const QString &name, QString *problem)
{
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) {
        *problem = file.errorString();
        return {};
    }
    const QByteArray bytes = file.read(largestProgram + 1);
    if (file.error() != QFileDevice::NoError)
        *problem = file.errorString();
    else if (bytes.size() > largestProgram)
        *problem = QStringLiteral("is too large for a program");
    else if (const int line = tooLongLine(bytes))
        *problem =
            QStringLiteral("line %1 has more than the %2 bytes that a line of a program may have")
                .arg(line)
                .arg(longestLine);
    else
        return bytes;
    return {};
}

bool writeProgram(const QString &name, const QByteArray &bytes, QString *problem)
{
    QSaveFile file(name);
    // Flushed and synchronised first: commit() does not notice if buffered bytes cannot be written,
    // and the rename may reach the disk before them.
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush()
        && ::fsync(file.handle()) == 0 && file.commit())
        return true;
    *problem = file.errorString();
    return false;
}

} // namespace welmo::tl
