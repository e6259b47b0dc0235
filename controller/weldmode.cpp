#include "controller/weldmode.h"

#include <QStringList>

#include "controller/fields.h"
#include "controller/names.h"

namespace controller {

namespace {

const QString modeKey = QStringLiteral("mode");
const QStringList modes{QStringLiteral("test_run"), QStringLiteral("simu"), QStringLiteral("real")};

} // namespace

WeldMode::WeldMode(Cell &cell, Registry &registry)
    : m_cell(cell)
{
    registry.addValue(names::weldMode, [this] { return read(); });
    registry.addCommand(names::setWeldMode,
                        [this](const Request &request) { return change(request.payload); });
}

Reply WeldMode::read() const
{
    return m_cell.load(names::weldMode, {}, QVariantMap{{modeKey, modes.first()}});
}

Reply WeldMode::change(const QVariant &payload)
{
    Reply wanted = checked(payload, {text("mode")}, Missing::Refused);
    if (!wanted.ok())
        return wanted;
    const QString mode = childAt(wanted.value, modeKey).toString();
    if (!modes.contains(mode))
        return Reply::refused(OutOfRange, QStringLiteral("there is no mode ") + mode);
    const QVariantMap value{{modeKey, mode}};
    Reply reply = m_cell.save(names::weldMode, {}, value);
    if (reply.ok())
        m_cell.notify(names::weldMode, value);
    return reply;
}

} // namespace controller
