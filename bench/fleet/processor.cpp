#include "bench/fleet/processor.h"

#include <QDir>
#include <QRegularExpression>
#include <unistd.h>

namespace fleet {

namespace {

struct Usage
{
    QString name;
    double seconds = 0;
};

Usage read(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    // The fields after the name in parentheses; the 12th and 13th are the ticks in user and system
    // mode.
    const QByteArray line = file.readAll();
    const int end = line.lastIndexOf(')');
    const QList<QByteArray> fields = line.mid(end + 1).simplified().split(' ');
    const int start = line.indexOf('(') + 1;
    return {QString::fromUtf8(line.mid(start, end - start)),
            double(fields.value(11).toLong() + fields.value(12).toLong())
                / double(sysconf(_SC_CLK_TCK))};
}

} // namespace

QMap<QString, double> processorSeconds()
{
    static const QRegularExpression rest(QStringLiteral("[-0-9].*"));
    QMap<QString, double> seconds;
    const QDir tasks(QStringLiteral("/proc/self/task"));
    for (const QString &task : tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const Usage usage = read(tasks.filePath(task) + QStringLiteral("/stat"));
        seconds[QString(usage.name).remove(rest)] += usage.seconds;
    }
    return seconds;
}

double processorSeconds(qint64 process)
{
    return read(QStringLiteral("/proc/%1/stat").arg(process)).seconds;
}

} // namespace fleet
