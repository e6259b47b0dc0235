#include "schema/optionsets.h"

namespace welmo::schema {

RunningSet::RunningSet()
    : OptionSet(QStringLiteral("running_param"))
{ }

AnticollisionSet::AnticollisionSet()
    : OptionSet(QStringLiteral("anticollision_param"))
{ }

ClampingSet::ClampingSet()
    : OptionSet(QStringLiteral("wire_clamping_torch_param"))
{ }

const RunningSet &running()
{
    static const RunningSet set;
    return set;
}

const AnticollisionSet &anticollision()
{
    static const AnticollisionSet set;
    return set;
}

const ClampingSet &clamping()
{
    static const ClampingSet set;
    return set;
}

} // namespace welmo::schema
