#include "data/arcweldservice.h"

namespace welmo::arcweld {

bool isConnected()
{
    return host::serviceTree()->r(QStringLiteral("connected"))->getBool(false);
}

namespace {

void onLink(QObject *context, bool wanted, const std::function<void()> &action)
{
    kelp::ModuleObject *leaf = host::serviceTree()->c(QStringLiteral("connected"), true);
    leaf->watch(true, false);
    QObject::connect(leaf, &kelp::ModuleObject::changed, context,
                     [wanted, action](const QVariant &connected) {
                         if (connected.toBool() == wanted && isConnected() == wanted)
                             action();
                     });
}

} // namespace

void onConnected(QObject *context, const std::function<void()> &action)
{
    onLink(context, true, action);
}

void onDisconnected(QObject *context, const std::function<void()> &action)
{
    onLink(context, false, action);
}

QString welderState(QObject *sender)
{
    const auto answer = xservice()->get(sender, node(QStringLiteral("welder_state")));
    return answer->r(QStringLiteral("state"))->getString(QString());
}

} // namespace welmo::arcweld
