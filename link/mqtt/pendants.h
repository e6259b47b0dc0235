#pragma once

#include <QHash>
#include <QString>
#include <deque>
#include <optional>

#include "link/protocol/protocol.h"

namespace welmo::links {

/// One pendant of a cell, from its greeting until it is silent for too long.
struct PendantSession
{
    QString id;
    QString user;
    QString client;
    QString greeting; ///< the client's number of the greeting that began it
    qint64 lastSeen = 0;
    qint64 lastSequence = 0;
    qint64 lastBeat = 0; ///< its sequence
    struct Answered
    {
        qint64 sequence = 0;
        controller::Reply reply = {};
    };
    std::deque<Answered> answered; ///< the newest, for repeated requests

    /// The answer to this request, if it is among the newest.
    std::optional<controller::Reply> answerTo(qint64 sequence) const;
    void remember(qint64 sequence, const controller::Reply &reply);
};

/// The pendants of a cell, and which of them has control. One at most has it, and keeps it until it
/// gives it back or its session ends.
class Pendants
{
public:
    static constexpr int mostOfAUser = 32;

    /// A new session, which replaces an earlier one of the same client and keeps its control; for a
    /// repeated greeting the same session. Null if the user has too many already.
    PendantSession *greet(const QString &user, const QString &client, const QString &greeting,
                          qint64 now);
    /// Null if there is no such session, or it belongs to another user.
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

    /// Null while none has control.
    const PendantSession *holder() const;
    bool holdsControl(const PendantSession &session) const { return session.id == m_holder; }
    /// Gives the session control if none has it; true if it has control afterwards.
    bool takeControl(const PendantSession &session);
    void giveControl(const PendantSession &session);

private:
    using Sessions = QHash<QString, PendantSession>;

    Sessions::iterator erase(Sessions::iterator session);

    Sessions m_sessions; // by id
    QHash<QString, QHash<QString, QString>> m_ids; // ids by user and client
    QString m_holder;
};

} // namespace welmo::links
