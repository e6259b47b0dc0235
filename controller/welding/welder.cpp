#include "controller/welding/welder.h"

#include "controller/core/fields.h"
#include "controller/welding/weldercatalogue.h"
#include "schema/names.h"

namespace welmo::controller {

namespace {

const QString enableKey = QStringLiteral("enable");
const QString connectKey = QStringLiteral("connect_to_welder");
const QString protocolKey = QStringLiteral("protocol");
const QString makerKey = QStringLiteral("mfr");
const QString modelKey = QStringLiteral("model");
const QString ratedCurrentKey = QStringLiteral("current_type");

const Fields &settingFields()
{
    static const Fields fields{boolean("enable"), boolean("connect_to_welder"),
                               text("protocol"),  text("mfr"),
                               text("model"),     integer("current_type", 1, 5000)};
    return fields;
}

QVariantMap firstSetting()
{
    const WelderModel &model = firstWelder();
    return {{enableKey, false},
            {connectKey, false},
            {protocolKey, model.protocol},
            {makerKey, model.maker},
            {modelKey, model.model},
            {ratedCurrentKey, ratedCurrents().first()}};
}

const WelderModel *modelOf(const QVariant &setting)
{
    return findWelder(childAt(setting, protocolKey).toString(),
                      childAt(setting, makerKey).toString(), childAt(setting, modelKey).toString());
}

QVariantMap deviceParamFor(const QVariant &setting)
{
    const WelderModel *model = modelOf(setting);
    return deviceParamOf(model ? *model : firstWelder(), childAt(setting, ratedCurrentKey).toInt());
}

} // namespace

Welder::Welder(ControllerContext &context, Registry &registry)
    : m_context(context)
{
    registry.addValue(names::welderSetting, [this] { return setting(); });
    registry.addValue(names::deviceParam, [this] { return deviceParam(); });
    registry.addCommand(names::setWelder,
                        [this](const Request &request) { return setWelder(request.payload); });
}

Reply Welder::setting() const
{
    return m_context.load(names::welderSetting, {}, firstSetting());
}

Reply Welder::deviceParam() const
{
    const Reply present = setting();
    return present.ok() ? Reply::with(deviceParamFor(present.value)) : present;
}

Reply Welder::start()
{
    Reply present = setting();
    m_enabled = childAt(present.value, enableKey).toBool();
    return present;
}

QString Welder::stateWord() const
{
    if (isInError())
        return QStringLiteral("error");
    return isEnabled() ? QStringLiteral("ok") : QStringLiteral("disabled");
}

Reply Welder::setWelder(const QVariant &payload)
{
    Reply wanted = checked(payload, settingFields(), Missing::Refused);
    if (!wanted.ok())
        return wanted;
    if (!modelOf(wanted.value)
        || !ratedCurrents().contains(childAt(wanted.value, ratedCurrentKey).toInt()))
        return Reply::refused(OutOfRange, QStringLiteral("there is no such welder"));
    Reply reply = m_context.save(names::welderSetting, {}, wanted.value);
    if (!reply.ok())
        return reply;
    m_enabled = childAt(wanted.value, enableKey).toBool();
    m_context.notify(names::welderSetting, wanted.value);
    m_context.notify(names::deviceParam, deviceParamFor(wanted.value));
    return reply;
}

} // namespace welmo::controller
