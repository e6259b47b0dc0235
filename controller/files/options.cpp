#include "controller/files/options.h"

#include "controller/files/fileset.h"
#include "schema/optionsets.h"

namespace welmo::controller {

namespace {

const QString enableKey = QStringLiteral("enable");
const QString blockKey = QStringLiteral("block");

QVariantMap stateOf(const QVariant &anticollision)
{
    return {{enableKey, childAt(anticollision, enableKey).toBool()},
            {blockKey, childAt(anticollision, blockKey).toBool()}};
}

} // namespace

Reply gasDetectTime(const ControllerContext &context)
{
    Reply reply = context.load(names::runningParam);
    const schema::Row &row = schema::running().gasDetectTime;
    const QVariant seconds = childAt(reply.value, QLatin1String(row.key));
    reply.value = seconds.isValid() ? seconds : row.defaultValue();
    return reply;
}

Options::Options(ControllerContext &context, Registry &registry)
    : m_context(context)
{
    const auto stored = [this](const QString &path) {
        return [this, path] { return m_context.load(path); };
    };
    const auto running = [this](const QVariant &value) { return setRunning(value); };
    const auto anticollision = [this](const QVariant &value) { return setAnticollision(value); };
    const auto torch = [this](const QVariant &value) { return setClampingTorch(value); };

    registry.addValue(names::runningParam, stored(names::runningParam), running);
    registry.addValue(names::anticollisionParam, stored(names::anticollisionParam), anticollision);
    registry.addValue(names::clampingTorchParam, stored(names::clampingTorchParam), torch);
    registry.addValue(names::anticollisionState, [this] { return anticollisionState(); });
    registry.addCommand(names::setAnticollision, [anticollision](const Request &request) {
        return anticollision(request.payload);
    });
    registry.addCommand(names::setClampingTorchMode,
                        [torch](const Request &request) { return torch(request.payload); });
}

Reply Options::setRunning(const QVariant &payload)
{
    static const Fields fields = strictFieldsOf(schema::running());
    const Reply wanted = checked(payload, fields, Missing::Refused);
    return wanted.ok() ? saveAndTell(names::runningParam, wanted.value) : wanted;
}

Reply Options::anticollisionState() const
{
    const Reply stored = m_context.load(names::anticollisionParam);
    return stored.ok() ? Reply::with(stateOf(stored.value)) : stored;
}

Reply Options::setAnticollision(const QVariant &payload)
{
    static const Fields fields = strictFieldsOf(schema::anticollision());
    Reply wanted = checked(payload, fields, Missing::Refused);
    if (!wanted.ok())
        return wanted;
    // A sensor that is off is not shielded, but a pendant that switches it off may still send the
    // shield as it was.
    QVariantMap value = wanted.value.toMap();
    value[blockKey] = value.value(blockKey).toBool() && value.value(enableKey).toBool();
    Reply reply = saveAndTell(names::anticollisionParam, value);
    if (reply.ok())
        m_context.notify(names::anticollisionState, stateOf(value));
    return reply;
}

Reply Options::setClampingTorch(const QVariant &payload)
{
    static const Fields fields = strictFieldsOf(schema::clamping());
    const Reply wanted = checked(payload, fields, Missing::Refused);
    return wanted.ok() ? saveAndTell(names::clampingTorchParam, wanted.value) : wanted;
}

Reply Options::saveAndTell(const QString &path, const QVariant &value)
{
    Reply reply = m_context.save(path, {}, value);
    if (reply.ok())
        m_context.notify(path, value);
    return reply;
}

} // namespace welmo::controller
