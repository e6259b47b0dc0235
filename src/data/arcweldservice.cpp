#include "data/arcweldservice.h"

namespace welmo::arcweld {

bool isConnected()
{
    return host::serviceTree()->r(QStringLiteral("connected"))->getBool(false);
}

QString welderState(QObject *sender)
{
    const auto answer = xservice()->get(sender, node(QStringLiteral("welder_state")));
    return answer->r(QStringLiteral("state"))->getString(QString());
}

} // namespace welmo::arcweld
