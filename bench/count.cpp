#include "bench/count.h"

#include <QFile>
#include <valgrind/callgrind.h>

namespace bench::count {

namespace {

/// callgrind tells its counts by files only: the given name with a number that counts up.
double readTotal()
{
    static int number = 0;
    QFile file(qEnvironmentVariable("WELMO_COUNTS") + QStringLiteral(".%1").arg(++number));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("%s: no count", qPrintable(file.fileName()));
    QByteArray total;
    while (!file.atEnd()) {
        const QByteArray line = file.readLine();
        if (line.startsWith("totals: "))
            total = line.mid(int(sizeof "totals:"));
    }
    if (!qEnvironmentVariableIsSet("WELMO_COUNTS_KEEP"))
        file.remove();
    return total.toDouble();
}

} // namespace

bool isOn()
{
    return qEnvironmentVariableIsSet("WELMO_COUNTS");
}

void begin()
{
    CALLGRIND_ZERO_STATS;
}

double end()
{
    CALLGRIND_DUMP_STATS;
    return readTotal();
}

} // namespace bench::count
