#include "controller/welding/weldmode.h"

#include "controller/core/fields.h"
#include "schema/names.h"
#include "schema/weldmode.h"

namespace welmo::controller {

namespace {

const QString modeKey = QStringLiteral("mode");

} // namespace

WeldMode::WeldMode(ControllerContext &context, Registry &registry)
    : m_context(context)
{
    registry.addValue(names::weldMode, [this] { return read(); });
    registry.addCommand(names::setWeldMode,
                        [this](const Request &request) { return change(request.payload); });
}

Reply WeldMode::start()
{
    const QString first = schema::weldmode::all().first();
    const QVariant kept = m_context.load(names::weldMode).value; // no value if damaged
    if (!kept.isValid() || childAt(kept, modeKey) == first)
        return {};
    return m_context.save(names::weldMode, {}, QVariantMap{{modeKey, first}});
}

Reply WeldMode::read() const
{
    return m_context.load(names::weldMode, {},
                          QVariantMap{{modeKey, schema::weldmode::all().first()}});
}

Reply WeldMode::change(const QVariant &payload)
{
    Reply wanted = checked(payload, {text("mode")}, Missing::Refused);
    if (!wanted.ok())
        return wanted;
    const QString mode = childAt(wanted.value, modeKey).toString();
    if (!schema::weldmode::all().contains(mode))
        return Reply::refused(OutOfRange, QStringLiteral("there is no mode ") + mode);
    const QVariantMap value{{modeKey, mode}};
    Reply reply = m_context.save(names::weldMode, {}, value);
    if (reply.ok())
        m_context.notify(names::weldMode, value);
    return reply;
}

} // namespace welmo::controller
