#include "controller/welder.h"

#include "controller/fields.h"
#include "controller/names.h"
#include "controller/parameterfiles.h"
#include "controller/weldercatalogue.h"

namespace controller {

namespace {

const QString stateKey = QStringLiteral("state");
const QString enableKey = QStringLiteral("enable");
const QString connectKey = QStringLiteral("connect_to_welder");
const QString protocolKey = QStringLiteral("protocol");
const QString makerKey = QStringLiteral("mfr");
const QString modelKey = QStringLiteral("model");
const QString ratedCurrentKey = QStringLiteral("current_type");
const QString weldingNameKey = QStringLiteral("welding_name");

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

Welder::Welder(Cell &cell, Registry &registry)
    : m_cell(cell)
{
    registry.addValue(names::welderSetting, [this] { return setting(); });
    registry.addValue(names::deviceParam, [this] { return deviceParam(); });
    registry.addValue(names::welderState, [this] { return state(); });
    registry.addCommand(names::setWelder,
                        [this](const Request &request) { return setWelder(request.payload); });
    registry.addCommand(names::enableWeldParam,
                        [this](const Request &request) { return enableWeldData(request.payload); });
}

void Welder::tick()
{
    if (isInError() == m_toldError)
        return;
    const Reply present = setting();
    if (!present.ok())
        return;
    m_toldError = isInError();
    m_cell.notify(names::welderState, QVariantMap{{stateKey, stateWord(present.value)}});
}

Reply Welder::setting() const
{
    return m_cell.load(names::welderSetting, {}, firstSetting());
}

Reply Welder::deviceParam() const
{
    const Reply present = setting();
    return present.ok() ? Reply::with(deviceParamFor(present.value)) : present;
}

Reply Welder::state() const
{
    Reply present = setting();
    if (!present.ok())
        return present;
    return Reply::with(QVariantMap{
        {stateKey, stateWord(present.value)},
        {QStringLiteral("current"), 0.0},
        {QStringLiteral("voltage"), 0.0},
        {weldingNameKey, m_weldData.value(QStringLiteral("name")).toString()},
        {QStringLiteral("welding_speed"), 0.0},
        {QStringLiteral("welding_time"), 0.0},
        {QStringLiteral("welding_distance"), 0.0},
        {QStringLiteral("welding_wire_used"), 0.0},
    });
}

QString Welder::stateWord(const QVariant &setting) const
{
    if (isInError())
        return QStringLiteral("error");
    return childAt(setting, enableKey).toBool() ? QStringLiteral("ok") : QStringLiteral("disabled");
}

Reply Welder::setWelder(const QVariant &payload)
{
    Reply wanted = checked(payload, settingFields(), Missing::Refused);
    if (!wanted.ok())
        return wanted;
    if (!modelOf(wanted.value)
        || !ratedCurrents().contains(childAt(wanted.value, ratedCurrentKey).toInt()))
        return Reply::refused(OutOfRange, QStringLiteral("there is no such welder"));
    Reply reply = m_cell.save(names::welderSetting, {}, wanted.value);
    if (!reply.ok())
        return reply;
    m_cell.notify(names::welderSetting, wanted.value);
    m_cell.notify(names::deviceParam, deviceParamFor(wanted.value));
    m_cell.notify(names::welderState, QVariantMap{{stateKey, stateWord(wanted.value)}});
    return reply;
}

Reply Welder::enableWeldData(const QVariant &payload)
{
    if (isInError())
        return Reply::refused(WrongState, QStringLiteral("the welder reports an error"));
    Reply wanted = checkedFile(weldSet(), payload);
    if (!wanted.ok())
        return wanted;
    m_weldData = wanted.value.toMap();
    m_cell.notify(names::welderState,
                  QVariantMap{{weldingNameKey, m_weldData.value(QStringLiteral("name"))}});
    return {};
}

} // namespace controller
