#pragma once

#include <QHash>
#include <QString>
#include <deque>
#include <optional>

#include "link/protocol/protocol.h"

namespace welmo::links {

/// One pendant that a cell talks to, from its greeting until it is silent too long.
struct PendantSession
{
    QString id;
    QString user;
    QString client;
    QString greeting; ///< which of the client's greetings began it
    qint64 lastSeen = 0;
    qint64 lastSequence = 0;
    qint64 lastBeat = 0; ///< its sequence
    struct Answered
    {
        qint64 sequence;
        controller::Reply reply;
    };
    std::deque<Answered> answered; ///< the newest, for a request that comes again

    /// What this request was answered with, if it is one of the newest.
    std::optional<controller::Reply> answerTo(qint64 sequence) const;
    void remember(qint64 sequence, const controller::Reply &reply);
};

/// The pendants of a cell, and which of them holds control. One at most does; it keeps it until it
/// gives it back or its session ends, whoever else asks.
class Pendants
{
public:
    static constexpr int mostOfAUser = 32;

    /// A new session, in place of an earlier one of the same client, whose control it keeps; the
    /// same one again for the same greeting. Null, when the user has too many already.
    PendantSession *greet(const QString &user, const QString &client, const QString &greeting,
                          qint64 now);
    /// Null for a session that is not, or not this user's.
    PendantSession *find(const QString &id, const QString &user);
    void endAll();
    void endClient(const QString &user, const QString &client);
    void endSilent(qint64 now);
    template<typename Condition>
    void endIf(Condition condition)
    {
        for (auto it = m_sessions.begin(); it != m_sessions.end();)
            it = condition(*it) ? erase(it) : std::next(it);
        if (!m_sessions.contains(m_holder))
            m_holder.clear();
    }
    bool isEmpty() const { return m_sessions.isEmpty(); }

    /// Null while nobody holds control.
    const PendantSession *holder() const;
    bool holdsControl(const PendantSession &session) const { return session.id == m_holder; }
    /// Control to who asks, if nobody has it; true when the session holds it afterwards.
    bool takeControl(const PendantSession &session);
    void giveControl(const PendantSession &session);

private:
    using Sessions = QHash<QString, PendantSession>;

    Sessions::iterator erase(Sessions::iterator session);

    Sessions m_sessions; // by their id
    QHash<QString, QHash<QString, QString>> m_ids; // by user and client
    QString m_holder;
};

} // namespace welmo::links
