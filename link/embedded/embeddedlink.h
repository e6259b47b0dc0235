#pragma once

#include <QThread>

#include "controller/core/clock.h"
#include "controller/core/faults.h"
#include "controller/core/journal.h"
#include "link/session/roles.h"
#include "link/session/sessionlink.h"

namespace welmo::links {

class EmbeddedServer;

/// A link to a virtual controller in the same process, on a thread of its own. The controller
/// exists as long as the link, even while the link is closed. If the store cannot be opened the
/// link stays down, and problem() gives the reason.
class EmbeddedLink : public SessionLink
{
    Q_OBJECT
public:
    struct Options
    {
        QString dataFolder; ///< holds controller.db; empty: the store is in memory
        controller::Clock clock = controller::steadyClock(); ///< called on both threads
        bool example = false; ///< a controller without parameter files gets those of the examples
    };

    explicit EmbeddedLink(const Options &options, QObject *parent = nullptr);
    ~EmbeddedLink() override;

    /// The faults that can be simulated; owned by the link.
    controller::Faults *faults() { return &m_faults; }
    /// Sets which requests the pendant's user may make; all of them until this is called. Any
    /// thread.
    void setRole(Role role);
    /// What the machine did; owned by the link.
    const controller::Journal &journal() const { return m_journal; }

protected:
    void greet(int session) override;
    void ask(int session, const std::shared_ptr<PendingCall> &call, int timeoutMs) override;
    void leave() override;
    void beatOn(int session, const QVector<int> &presses) override;

private:
    template<typename Work>
    void post(Work work);

    controller::Faults m_faults;
    controller::Journal m_journal;
    QThread m_thread;
    EmbeddedServer *m_server; // deleted on the thread, with which it ends
};

} // namespace welmo::links
