#pragma once

#include <QObject>
#include <QSet>
#include <QTimer>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>

#include "link/mqtt/brokeraddress.h"

namespace plantpage {

class Session;

/// Who may read what.
struct Viewer
{
    QString user;
    bool readsAll = false; ///< also cells of which no broker tells any more
    QSet<QString> cells = {};

    bool mayRead(const QString &cell) const { return readsAll || cells.contains(cell); }
};

/// The people who are signed in with accounts of the broker. Each session holds a connection of its
/// account, and may read the cells of which the broker tells that account.
class Sessions : public QObject
{
    Q_OBJECT
public:
    struct Answer
    {
        QString token; ///< random; null on failure
        QString problem; ///< one line
    };

    /// Sessions at @p address; the account in it may read all.
    explicit Sessions(const welmo::links::BrokerAddress &address);
    ~Sessions() override;

    // For any thread but the one that Sessions lives on, whose event loop has to run.

    /// Waits for the broker, for some seconds at most.
    Answer signIn(const QString &user, const QString &password);
    void signOut(const QString &token);
    /// Empty if nobody is signed in with that token; else the session goes on.
    std::optional<Viewer> viewer(const QString &token);

signals:
    /// The first has signed in, or the last one has left.
    void occupied(bool any);

private:
    using Answered = std::function<void(const Answer &)>;
    void begin(const QString &user, const QString &password, const Answered &answered);
    bool accept(Session *session);
    void end(const QString &token);
    void endIdle();

    const welmo::links::BrokerAddress m_address;
    std::mutex m_mutex; // guards the map and what is in the sessions
    std::map<QString, std::unique_ptr<Session>> m_sessions; // by token
    QTimer m_idle;
};

} // namespace plantpage
