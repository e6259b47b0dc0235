#include "bench/count.h"

#include <QFile>

#ifdef WELMO_EMULATED
#include <unistd.h>

#include "bench/emulator/marks.h"
#else
#include <valgrind/callgrind.h>
#endif

namespace bench::count {

namespace {

QByteArray read(const QString &name)
{
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("%s: no count", qPrintable(file.fileName()));
    return file.readAll();
}

} // namespace

bool isOn()
{
    return qEnvironmentVariableIsSet("WELMO_COUNTS");
}

#ifdef WELMO_EMULATED

// The emulator's plugin sees these calls; the system knows none of that number.
void begin()
{
    syscall(WELMO_MARK, WELMO_MARK_BEGIN);
}

double end()
{
    syscall(WELMO_MARK, WELMO_MARK_END);
    return read(qEnvironmentVariable("WELMO_COUNTS")).toDouble();
}

#else

void begin()
{
    CALLGRIND_ZERO_STATS;
}

// callgrind tells its counts by files only: the given name with a number that counts up.
double end()
{
    CALLGRIND_DUMP_STATS;
    static int number = 0;
    const QString name = qEnvironmentVariable("WELMO_COUNTS") + QStringLiteral(".%1").arg(++number);
    const QByteArray total = read(name);
    if (!qEnvironmentVariableIsSet("WELMO_COUNTS_KEEP")) // for a look at what takes them
        QFile::remove(name);
    const int at = total.lastIndexOf("totals: ");
    return total.mid(at + int(sizeof "totals:")).trimmed().split('\n').first().toDouble();
}

#endif

} // namespace bench::count
