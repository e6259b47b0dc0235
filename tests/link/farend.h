#pragma once

#include "link/embedded/embeddedserver.h"
#include "simulatedcell.h"

/// A controller with one pendant, which numbers its sessions, on a clock that the test sets.
class FarEnd
{
public:
    virtual ~FarEnd() = default;
    virtual void greet(int session) = 0;
    virtual void ask(int session, const welmo::controller::Request &request) = 0;
    virtual void beat(int session, const QVector<int> &presses) = 0;
    virtual void tick() = 0;
    virtual void setNow(qint64 now) = 0;
    virtual welmo::controller::Faults &faults() = 0;
    virtual const welmo::controller::Journal &journal() const = 0;

    std::function<void(int session)> greeted;
    std::function<void()> broken;
};

class EmbeddedEnd : public FarEnd
{
public:
    EmbeddedEnd()
    {
        QObject::connect(&m_server, &welmo::links::EmbeddedServer::greeted, &m_server,
                         [this](int session) { greeted(session); });
        QObject::connect(&m_server, &welmo::links::EmbeddedServer::broken, &m_server,
                         [this] { broken(); });
    }
    void greet(int session) override { m_server.greet(session); }
    void ask(int session, const welmo::controller::Request &request) override
    {
        m_server.ask(
            session,
            std::make_shared<welmo::links::PendingCall>(tessa::LinkRequest{
                tessa::LinkRequest::Kind::Command, request.path, request.key, request.payload}));
    }
    void beat(int session, const QVector<int> &presses) override
    {
        m_server.beat(session, presses);
    }
    void tick() override { m_server.tick(); }
    void setNow(qint64 now) override { m_now = now; }
    welmo::controller::Faults &faults() override { return m_faults; }
    const welmo::controller::Journal &journal() const override { return m_journal; }

private:
    qint64 m_now = 1000;
    welmo::controller::Faults m_faults;
    welmo::controller::Journal m_journal;
    welmo::links::EmbeddedServer m_server{{}, m_faults, m_journal, [this] { return m_now; }};
};

/// The same with the messages of the network, but without a broker.
class NetworkEnd : public FarEnd
{
public:
    NetworkEnd()
    {
        auto *faultsThere = m_cell.service->faults();
        QObject::connect(faultsThere, &welmo::controller::Faults::changed, faultsThere, [this] {
            if (faults().isOn(welmo::controller::Faults::Fault::LinkDown))
                broken();
        });
    }
    void greet(int session) override
    {
        m_greeting = session;
        take(m_cell.deliver(m_pendant.hello(QString::number(session))));
    }
    void ask(int session, const welmo::controller::Request &request) override
    {
        take(m_cell.deliver(pendantOf(session).request(request, m_cell.now + 1000)));
    }
    void beat(int session, const QVector<int> &presses) override
    {
        take(m_cell.deliver(pendantOf(session).beat(presses, m_cell.now)));
    }
    void tick() override
    {
        m_cell.service->tick();
        take(SimulatedCell::takeSent());
    }
    void setNow(qint64 now) override { m_cell.now = now; }
    welmo::controller::Faults &faults() override { return *m_cell.service->faults(); }
    const welmo::controller::Journal &journal() const override { return m_cell.service->journal(); }

private:
    SimulatedPendant &pendantOf(int session)
    {
        if (session == m_session)
            return m_pendant;
        m_other = m_pendant;
        m_other.session = m_before;
        return m_other;
    }
    void take(const QVector<welmo::links::MqttMessage> &sent)
    {
        const auto reply = m_pendant.answerIn(sent);
        const QString session =
            reply ? reply->value.toMap().value(QStringLiteral("session")).toString() : QString();
        if (session.isEmpty() || session == m_pendant.session)
            return;
        m_before = std::exchange(m_pendant.session, session);
        m_session = m_greeting;
        greeted(m_session);
    }

    SimulatedCell m_cell;
    SimulatedPendant m_pendant;
    SimulatedPendant m_other;
    QString m_before;
    int m_greeting = 0;
    int m_session = 0;
};
