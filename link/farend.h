#pragma once

#include <QMutex>
#include <QObject>
#include <QSet>
#include <QTimer>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "controller/controller.h"
#include "link/exchange.h"

namespace links {

/// The controller's side of the embedded link: owns store and controller, and lives on the link's
/// thread, where everything here is called. A session is what the two sides agreed on since the
/// link was last set up; what belongs to an earlier one is thrown away.
class FarEnd : public QObject
{
    Q_OBJECT
public:
    /// @p dataFolder empty: the store is in memory. Faults and journal are borrowed.
    FarEnd(const QString &dataFolder, controller::Faults &faults, controller::Journal &journal,
           const controller::Clock &clock);
    ~FarEnd() override;

    /// Asks for a session; greeted() is the answer, if there is one.
    void greet(int session);
    /// Carries out the request and settles the exchange; not when the caller gave up before.
    void ask(int session, const std::shared_ptr<Exchange> &exchange);
    /// The session is over.
    void leave();
    /// Carries out what has become due; by itself while something goes on.
    void tick();

    /// The pendant of the session is alive, see tessa::ControllerLink::beat(). Any thread; costs
    /// next to nothing and never queues: a slow far end finds the newest beat only.
    void beat(int session, int press);

signals:
    void greeted(int session);
    void broken(int session);
    void notified(int session, const QString &path, const QVariant &values);
    /// Why there is no controller; once for each reason and leave().
    void problem(const QString &line);

private:
    struct Answer
    {
        qint64 due;
        int session;
        std::shared_ptr<Exchange> exchange; // null: the answer to greet()
        tessa::LinkReply reply;
    };

    struct Beat
    {
        int session;
        qint64 time;
        int press;
    };

    bool isReady();
    QString startController();
    tessa::LinkReply carryOut(const tessa::LinkRequest &request);
    void send(Answer answer);
    void deliver(const Answer &answer);
    void deliverDue();
    void breakOff();
    void endSession();
    void takeBeat();
    void onFaultsChanged();

    QString m_dataFolder;
    controller::Faults &m_faults;
    controller::Journal &m_journal;
    controller::Clock m_clock;
    std::unique_ptr<controller::Store> m_store;
    std::unique_ptr<controller::Controller> m_controller;
    QString m_reported;
    int m_session = 0;
    QSet<QString> m_watched;
    std::vector<Answer> m_late;
    QTimer m_ticks;
    QMutex m_beatMutex;
    std::optional<Beat> m_beat; // not looked at yet
};

} // namespace links
