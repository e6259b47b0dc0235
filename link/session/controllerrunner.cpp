#include "link/session/controllerrunner.h"

#include <QDir>
#include <algorithm>

using welmo::controller::Faults;

namespace welmo::links {

ControllerRunner::ControllerRunner(QString dataFolder, Faults &faults, controller::Journal &journal,
                                   controller::Clock clock, QObject *parent)
    : QObject(parent)
    , m_dataFolder(std::move(dataFolder))
    , m_faults(faults)
    , m_journal(journal)
    , m_clock(std::move(clock))
    , m_ticks(this)
{
    m_ticks.setTimerType(Qt::PreciseTimer);
    connect(&m_ticks, &QTimer::timeout, this, &ControllerRunner::tick);
    connect(&m_faults, &Faults::changed, this, &ControllerRunner::onFaultsChanged);
}

ControllerRunner::~ControllerRunner() = default;

QString ControllerRunner::storeIn(const QString &dataFolder)
{
    return QDir(dataFolder).filePath(QStringLiteral("controller.db"));
}

bool ControllerRunner::isReady()
{
    if (m_controller)
        return true;
    const QString reason = startController();
    if (!reason.isEmpty() && reason != m_reported)
        emit problem(reason);
    m_reported = reason;
    return reason.isEmpty();
}

QString ControllerRunner::startController()
{
    QString reason;
    const QString file = storeIn(m_dataFolder);
    auto store = m_dataFolder.isEmpty() ? controller::Store::inMemory()
                                        : controller::Store::open(file, &reason);
    if (!store)
        return reason;
    auto started = std::make_unique<controller::Controller>(*store, m_faults, m_journal, m_clock);
    controller::Reply reply = m_example ? started->fillWithExample() : controller::Reply{};
    if (reply.ok())
        reply = started->start();
    if (!reply.ok()) {
        return tr("%1: the project data cannot be kept (%2)")
            .arg(QDir::toNativeSeparators(file), reply.text);
    }
    started->setNotify(
        [this](const QString &path, const QVariant &values) { emit notified(path, values); });
    m_store = std::move(store);
    m_controller = std::move(started);
    for (const QString &line : m_controller->complaints())
        emit problem(QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(file), line));
    return {};
}

QString ControllerRunner::storeIdentity() const
{
    return m_store ? m_store->identity() : QString();
}

void ControllerRunner::answer(Work deliver, Work drop)
{
    const int delay = m_faults.delay();
    if (!m_faults.takeLoss()) {
        if (delay > 0)
            m_late.push_back({m_clock() + delay, std::move(deliver), std::move(drop)});
        else
            deliver();
    }
    tick();
}

void ControllerRunner::deliverDue()
{
    const qint64 now = m_clock();
    const auto firstDue = std::stable_partition(
        m_late.begin(), m_late.end(), [now](const Answer &answer) { return answer.due > now; });
    const std::vector<Answer> due(firstDue, m_late.end());
    m_late.erase(firstDue, m_late.end());
    for (const Answer &answer : due)
        answer.deliver();
}

void ControllerRunner::breakOff()
{
    std::vector<Answer> dropped;
    dropped.swap(m_late);
    for (const Answer &answer : dropped) {
        if (answer.drop)
            answer.drop();
    }
    emit broken();
}

void ControllerRunner::onFaultsChanged()
{
    if (!isReachable())
        breakOff();
    tick();
}

void ControllerRunner::tick()
{
    if (m_beforeTick)
        m_beforeTick();
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

} // namespace welmo::links
