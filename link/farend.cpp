#include "link/farend.h"

#include <QDir>
#include <algorithm>

using controller::Faults;
using controller::Request;
using tessa::LinkReply;
using tessa::LinkRequest;

namespace links {

namespace {

Request::Kind kindOf(LinkRequest::Kind kind)
{
    switch (kind) {
    case LinkRequest::Kind::Get:
        return Request::Kind::Get;
    case LinkRequest::Kind::Set:
        return Request::Kind::Set;
    case LinkRequest::Kind::Watch:
        return Request::Kind::Watch;
    case LinkRequest::Kind::Command:
        break;
    }
    return Request::Kind::Command;
}

} // namespace

FarEnd::FarEnd(const QString &dataFolder, Faults &faults, controller::Journal &journal,
               const controller::Clock &clock)
    : m_dataFolder(dataFolder)
    , m_faults(faults)
    , m_journal(journal)
    , m_clock(clock)
    , m_ticks(this)
{
    m_ticks.setTimerType(Qt::PreciseTimer);
    connect(&m_ticks, &QTimer::timeout, this, &FarEnd::tick);
    connect(&m_faults, &Faults::changed, this, &FarEnd::onFaultsChanged);
}

FarEnd::~FarEnd() = default;

void FarEnd::greet(int session)
{
    if (m_faults.isOn(Faults::Fault::LinkDown) || !isReady())
        return;
    if (session != m_session) {
        endSession();
        m_session = session;
    }
    send({0, session, nullptr, {}});
}

void FarEnd::ask(int session, const std::shared_ptr<Exchange> &exchange)
{
    if (exchange->isSettled())
        return;
    takeBeat();
    if (m_faults.isOn(Faults::Fault::LinkDown) || session != m_session)
        exchange->settle({LinkReply::Lost, {}});
    else
        send({0, session, exchange, carryOut(exchange->request)});
}

void FarEnd::leave()
{
    endSession();
    m_reported.clear();
}

void FarEnd::endSession()
{
    m_session = 0;
    m_watched.clear();
    if (m_controller)
        m_controller->losePendant();
}

void FarEnd::beat(int session, int press)
{
    const QMutexLocker lock(&m_beatMutex);
    m_beat = Beat{session, m_clock(), press};
}

void FarEnd::takeBeat()
{
    std::optional<Beat> beat;
    {
        const QMutexLocker lock(&m_beatMutex);
        beat.swap(m_beat);
    }
    if (beat && m_controller && beat->session == m_session)
        m_controller->beat(beat->time, beat->press);
}

bool FarEnd::isReady()
{
    if (m_controller)
        return true;
    const QString reason = startController();
    if (!reason.isEmpty() && reason != m_reported)
        emit problem(reason);
    m_reported = reason;
    return reason.isEmpty();
}

QString FarEnd::startController()
{
    QString reason;
    const QString file = QDir(m_dataFolder).filePath(QStringLiteral("controller.db"));
    auto store = m_dataFolder.isEmpty() ? controller::Store::inMemory()
                                        : controller::Store::open(file, &reason);
    if (!store)
        return reason;
    auto started = std::make_unique<controller::Controller>(*store, m_faults, m_journal, m_clock);
    if (const controller::Reply reply = started->start(); !reply.ok()) {
        return tr("%1: the project data cannot be kept (%2)")
            .arg(QDir::toNativeSeparators(file), reply.text);
    }
    started->setNotify([this](const QString &path, const QVariant &values) {
        if (m_watched.contains(path))
            emit notified(m_session, path, values);
    });
    m_store = std::move(store);
    m_controller = std::move(started);
    return {};
}

LinkReply FarEnd::carryOut(const LinkRequest &request)
{
    const controller::Reply reply =
        m_controller->handle({kindOf(request.kind), request.path, request.key, request.payload});
    if (request.kind == LinkRequest::Kind::Watch && reply.ok())
        m_watched.insert(request.path);
    return {reply.code, reply.value};
}

void FarEnd::send(Answer answer)
{
    const int delay = m_faults.delay();
    answer.due = m_clock() + delay;
    if (!m_faults.takeLoss()) {
        if (delay > 0)
            m_late.push_back(std::move(answer));
        else
            deliver(answer);
    }
    tick();
}

void FarEnd::deliver(const Answer &answer)
{
    if (answer.exchange)
        answer.exchange->settle(answer.reply);
    else
        emit greeted(answer.session);
}

void FarEnd::deliverDue()
{
    const qint64 now = m_clock();
    const auto firstDue = std::stable_partition(
        m_late.begin(), m_late.end(), [now](const Answer &answer) { return answer.due > now; });
    for (auto answer = firstDue; answer != m_late.end(); ++answer)
        deliver(*answer);
    m_late.erase(firstDue, m_late.end());
}

void FarEnd::breakOff()
{
    for (const Answer &answer : m_late) {
        if (answer.exchange)
            answer.exchange->settle({LinkReply::Lost, {}});
    }
    m_late.clear();
    const int session = m_session;
    endSession();
    emit broken(session);
}

void FarEnd::onFaultsChanged()
{
    if (m_faults.isOn(Faults::Fault::LinkDown))
        breakOff();
    tick();
}

void FarEnd::tick()
{
    takeBeat();
    if (m_controller)
        m_controller->tick();
    deliverDue();
    const bool wanted = !m_late.empty() || (m_controller && m_controller->isBusy());
    const int pace = m_controller ? m_controller->paceMs() : 0;
    if (!wanted)
        m_ticks.stop();
    else if (!m_ticks.isActive() || m_ticks.interval() != pace)
        m_ticks.start(pace);
}

} // namespace links
