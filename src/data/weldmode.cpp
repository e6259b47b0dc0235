#include "data/weldmode.h"

namespace welmo::weldmode {

const QStringList &all()
{
    static const QStringList modes{QStringLiteral("test_run"), QStringLiteral("simu"),
                                   QStringLiteral("real")};
    return modes;
}

QString next(const QString &mode)
{
    // indexOf gives -1 for an unknown mode, which leads to the first.
    return all().at((all().indexOf(mode) + 1) % all().size());
}

} // namespace welmo::weldmode
