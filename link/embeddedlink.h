#pragma once

#include <QThread>
#include <QTimer>

#include "controller/clock.h"
#include "controller/faults.h"
#include "controller/journal.h"
#include "tessa/controllerlink.h"
#include "tessa/notificationqueue.h"

namespace links {

class FarEnd;

/// A link to a virtual controller in the same process, on a thread of the link's own. The
/// controller lives as long as the link, also while the link is closed.
///
/// A link that went down sets itself up anew, twice a second, until close(); nothing is subscribed
/// then until it is asked for again. While the store cannot be opened the link stays down, and
/// problem() has named the reason.
class EmbeddedLink : public tessa::ControllerLink
{
    Q_OBJECT
public:
    struct Options
    {
        QString dataFolder; ///< holds controller.db; empty: everything is in memory
        controller::Clock clock = controller::steadyClock(); ///< called on both threads
    };

    explicit EmbeddedLink(const Options &options, QObject *parent = nullptr);
    ~EmbeddedLink() override;

    tessa::LinkReply call(const tessa::LinkRequest &request, int timeoutMs) override;
    void open() override;
    void close() override;
    bool isUp() const override { return m_state == State::Up; }
    void beat(int press) override;

    /// The switches of what can go wrong; owned by the link.
    controller::Faults *faults() { return &m_faults; }
    /// What the machine did; owned by the link.
    const controller::Journal &journal() const { return m_journal; }

private:
    enum class State { Closed, Connecting, Up };

    void greet();
    void goDown(State next);
    void onGreeted(int session);
    void onBroken(int session);
    void onDelivered(const QString &path, const QVariant &values);
    template<typename Work>
    void post(Work work);

    controller::Faults m_faults;
    controller::Journal m_journal;
    QThread m_thread;
    tessa::NotificationQueue m_queue;
    FarEnd *m_farEnd; // lives on the thread and goes with it
    QTimer m_retry;
    State m_state = State::Closed;
    int m_session = 0;
};

} // namespace links
