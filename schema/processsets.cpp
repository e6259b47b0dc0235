#include "schema/processsets.h"

namespace welmo::schema {

ArcOnSet::ArcOnSet()
    : ProcessSet(QStringLiteral("arcon_param"), QStringLiteral("arcondata"), 200)
{ }

WeldSet::WeldSet()
    : ProcessSet(QStringLiteral("weld_param"), QStringLiteral("arcdata"), 200)
{ }

// The voltage's range is wider than in the other two sets.
ArcOffSet::ArcOffSet()
    : ProcessSet(QStringLiteral("arcoff_param"), QStringLiteral("arcoffdata"), 10000)
{ }

const ArcOnSet &arcOn()
{
    static const ArcOnSet set;
    return set;
}

const WeldSet &weld()
{
    static const WeldSet set;
    return set;
}

const ArcOffSet &arcOff()
{
    static const ArcOffSet set;
    return set;
}

} // namespace welmo::schema
