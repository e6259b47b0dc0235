#pragma once

#include "tools/plantpage/server.h"
#include "tools/plantpage/sessions.h"
#include "tools/plantpage/watch.h"

namespace plantpage {

/// The plant on a page: who looks at it, what cells tell meanwhile, and the server.
class Page
{
public:
    /// The account in @p address reads all cells.
    Page(const welmo::links::BrokerAddress &address, const Server::OpenBook &openBook)
        : m_sessions(address)
        , m_watch(address)
        , m_server(&m_sessions, &m_watch, openBook)
    {
        QObject::connect(&m_sessions, &Sessions::occupied, &m_watch, &Watch::setWanted);
    }
    /// Returns one line if the port cannot be used.
    QString start(const Server::Options &options) { return m_server.start(options); }
    int port() const { return m_server.port(); }

private:
    Sessions m_sessions;
    Watch m_watch;
    Server m_server;
};

} // namespace plantpage
