#include "controller/welding/welder.h"

#include "controller/files/fileset.h"
#include "controller/welding/weldercatalogue.h"
#include "schema/names.h"

namespace welmo::controller {

namespace {

const schema::WelderSettingSet &rows()
{
    return schema::welderSetting();
}

QVariant valueOf(const QVariant &setting, const schema::Row &row)
{
    return childAt(setting, QLatin1String(row.key));
}

QVariantMap firstSetting()
{
    QVariantMap setting;
    for (const schema::Row *row : rows().rows())
        setting.insert(QLatin1String(row->key), row->defaultValue());
    return setting;
}

const schema::Welder *welderOf(const QVariant &setting)
{
    return findWelder(valueOf(setting, rows().protocol).toString(),
                      valueOf(setting, rows().brand).toString(),
                      valueOf(setting, rows().type).toString());
}

QVariantMap deviceParamFor(const QVariant &setting)
{
    const schema::Welder *welder = welderOf(setting);
    return deviceParamOf(welder ? *welder : schema::welders().first(),
                         valueOf(setting, rows().ratedCurrent).toInt());
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
    const QVariant present = setting().value; // no value if damaged: then the welder is off
    m_enabled = valueOf(present, rows().enable).toBool();
    m_connected = valueOf(present, rows().connectToWelder).toBool();
    return {};
}

QString Welder::stateWord() const
{
    if (isInError())
        return QStringLiteral("error");
    return isEnabled() ? QStringLiteral("ok") : QStringLiteral("disabled");
}

Reply Welder::setWelder(const QVariant &payload)
{
    Reply wanted = checked(payload, strictFieldsOf(rows()), Missing::Refused);
    if (!wanted.ok())
        return wanted;
    const schema::Welder *welder = welderOf(wanted.value);
    if (!welder || !welder->currents.contains(valueOf(wanted.value, rows().ratedCurrent).toInt()))
        return Reply::refused(OutOfRange, QStringLiteral("there is no such welder"));
    Reply reply = m_context.save(names::welderSetting, {}, wanted.value);
    if (!reply.ok())
        return reply;
    m_enabled = valueOf(wanted.value, rows().enable).toBool();
    m_connected = valueOf(wanted.value, rows().connectToWelder).toBool();
    m_context.notify(names::welderSetting, wanted.value);
    m_context.notify(names::deviceParam, deviceParamFor(wanted.value));
    return reply;
}

} // namespace welmo::controller
