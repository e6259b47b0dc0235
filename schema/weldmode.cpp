#include "schema/weldmode.h"

namespace welmo::schema::weldmode {

const QStringList &all()
{
    static const QStringList modes{QString::fromLatin1(testRun), QString::fromLatin1(simulation),
                                   QString::fromLatin1(real)};
    return modes;
}

QString next(const QString &mode)
{
    // indexOf() returns -1 for an unknown mode, so that the first one follows.
    return all().at((all().indexOf(mode) + 1) % all().size());
}

} // namespace welmo::schema::weldmode
