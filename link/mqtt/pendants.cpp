#include "link/mqtt/pendants.h"

#include <QUuid>
#include <algorithm>

namespace welmo::links {

namespace {

constexpr size_t remembered = 16;

} // namespace

std::optional<controller::Reply> PendantSession::answerTo(qint64 sequence) const
{
    const auto found = std::find_if(answered.begin(), answered.end(), [&](const Answered &entry) {
        return entry.sequence == sequence;
    });
    return found == answered.end() ? std::nullopt : std::make_optional(found->reply);
}

void PendantSession::remember(qint64 sequence, const controller::Reply &reply)
{
    answered.push_back({sequence, reply});
    if (answered.size() > remembered)
        answered.pop_front();
}

PendantSession *Pendants::greet(const QString &user, const QString &client, const QString &greeting,
                                qint64 now)
{
    const auto known = m_sessions.find(m_ids.value(user).value(client));
    if (known != m_sessions.end() && known->greeting == greeting)
        return &*known;
    if (known == m_sessions.end() && m_ids.value(user).size() >= mostOfAUser)
        return nullptr;
    const bool keeps = known != m_sessions.end() && known->id == m_holder;
    if (known != m_sessions.end())
        erase(known);
    PendantSession session;
    session.id = QUuid::createUuid().toString(QUuid::Id128);
    session.user = user;
    session.client = client;
    session.greeting = greeting;
    session.lastSeen = now;
    if (keeps)
        m_holder = session.id;
    m_ids[user].insert(client, session.id);
    return &*m_sessions.insert(session.id, session);
}

Pendants::Sessions::iterator Pendants::erase(Sessions::iterator session)
{
    QHash<QString, QString> &clients = m_ids[session->user];
    clients.remove(session->client);
    if (clients.isEmpty())
        m_ids.remove(session->user);
    return m_sessions.erase(session);
}

PendantSession *Pendants::find(const QString &id, const QString &user)
{
    const auto found = m_sessions.find(id);
    return found == m_sessions.end() || found->user != user ? nullptr : &*found;
}

void Pendants::endAll()
{
    endIf([](const PendantSession &) { return true; });
}

void Pendants::endClient(const QString &user, const QString &client)
{
    const auto found = m_sessions.find(m_ids.value(user).value(client));
    if (found == m_sessions.end())
        return;
    if (found->id == m_holder)
        m_holder.clear();
    erase(found);
}

void Pendants::endSilent(qint64 now)
{
    endIf([&](const PendantSession &session) {
        return now - session.lastSeen > protocol::silentPendantMs;
    });
}

const PendantSession *Pendants::holder() const
{
    const auto found = m_sessions.find(m_holder);
    return found == m_sessions.end() ? nullptr : &*found;
}

bool Pendants::takeControl(const PendantSession &session)
{
    if (m_holder.isEmpty())
        m_holder = session.id;
    return holdsControl(session);
}

void Pendants::giveControl(const PendantSession &session)
{
    if (holdsControl(session))
        m_holder.clear();
}

} // namespace welmo::links
