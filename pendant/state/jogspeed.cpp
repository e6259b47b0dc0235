#include "pendant/state/jogspeed.h"

#include <cmath>

#include "kelp/moduleobject.h"

namespace welmo::pendant {

JogSpeed::JogSpeed(QObject *parent)
    : QObject(parent)
    , m_override(m(QStringLiteral("orbo.handle.jog.override")))
{
    m_override->watch();
    connect(m_override, &kelp::ModuleObject::changed, this, &JogSpeed::changed);
}

int JogSpeed::percent() const
{
    return int(std::lround(m_override->getDouble() * 100));
}

void JogSpeed::set(int percent)
{
    const int highest = m(QStringLiteral("orbo.handle.max_jog_speed"))->getInt(100);
    m_override->set(this, QString(), qBound(1, percent, highest) / 100.0);
}

} // namespace welmo::pendant
