#pragma once

#include <QThread>

#include "controller/core/clock.h"
#include "controller/core/faults.h"
#include "controller/core/journal.h"
#include "link/session/roles.h"
#include "link/session/sessionlink.h"

namespace welmo::links {

class EmbeddedServer;

/// A link to a virtual controller in the same process, on a thread of the link's own. The
/// controller lives as long as the link, also while the link is closed. While the store cannot be
/// opened the link stays down, and problem() has named the reason.
class EmbeddedLink : public SessionLink
{
    Q_OBJECT
public:
    struct Options
    {
        QString dataFolder; ///< holds controller.db; empty: everything is in memory
        controller::Clock clock = controller::steadyClock(); ///< called on both threads
        bool example = false; ///< a controller without parameter files gets those of the examples
    };

    explicit EmbeddedLink(const Options &options, QObject *parent = nullptr);
    ~EmbeddedLink() override;

    /// The switches of what can go wrong; owned by the link.
    controller::Faults *faults() { return &m_faults; }
    /// What the pendant's user may have carried out; everything, until this is called. Any thread.
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
    EmbeddedServer *m_server; // lives on the thread and goes with it
};

} // namespace welmo::links
