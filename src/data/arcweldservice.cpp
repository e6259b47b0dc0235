#include "data/arcweldservice.h"

namespace welmo::arcweld {

bool isConnected()
{
    return xservice()->mobj()->r(QStringLiteral("connected"))->getBool();
}

QString welderState(QObject *sender)
{
    const auto answer = xservice()->get(sender, node(QStringLiteral("welder_state")));
    return answer->r(QStringLiteral("state"))->getString();
}

} // namespace welmo::arcweld
