#include "pendant/state/linkcontrol.h"

#include "tessa/host.h"
#include "vu/xtheme.h"

namespace welmo::pendant {

LinkControl::LinkControl(tessa::Host *host, QObject *parent)
    : QObject(parent)
    , m_host(host)
{
    connect(host->service(), &XService::connectedChanged, this, &LinkControl::changed);
}

LinkControl::State LinkControl::state() const
{
    if (!m_wanted)
        return State::Off;
    return m_host->service()->isConnected() ? State::Up : State::Connecting;
}

QString LinkControl::text() const
{
    switch (state()) {
    case State::Off:
        return tr("Link off");
    case State::Connecting:
        return tr("Connecting…");
    default:
        return tr("Connected");
    }
}

QString LinkControl::word() const
{
    switch (state()) {
    case State::Off:
        return QStringLiteral("off");
    case State::Connecting:
        return QStringLiteral("connecting");
    default:
        return QStringLiteral("up");
    }
}

QString LinkControl::picture() const
{
    const bool up = state() == State::Up;
    return vu::xtheme::current().imagePath(up ? QStringLiteral("widget/link_up")
                                              : QStringLiteral("widget/link_down"));
}

void LinkControl::setWanted(bool wanted)
{
    if (wanted == m_wanted)
        return;
    m_wanted = wanted;
    if (tessa::ControllerLink *link = m_host->link())
        wanted ? link->open() : link->close();
    emit changed();
}

} // namespace welmo::pendant
