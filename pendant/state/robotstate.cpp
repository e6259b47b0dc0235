#include "pendant/state/robotstate.h"

#include "pendant/state/reasontext.h"
#include "schema/names.h"
#include "schema/reasons.h"
#include "tessa/host.h"

namespace welmo::pendant {

RobotState::RobotState(tessa::Host *host, QObject *parent)
    : QObject(parent)
    , m_host(host)
{
    setObjectName(QStringLiteral("Robot"));
    XService *service = host->service();
    connect(service->watchNode(names::robotState), &kelp::ModuleObject::changed, this,
            [this](const QVariant &values) { take(values.toMap()); });
    connect(service, &XService::cameUp, this, &RobotState::reload);
    connect(service, &XService::connectedChanged, this, [this](bool connected) {
        if (!connected)
            m_values.clear();
        emit changed();
    });
}

void RobotState::reload()
{
    XService *service = m_host->service();
    service->watch(this, names::robotState, true);
    const auto answer = service->get(this, names::robotState);
    m_logged = answer->r(QStringLiteral("ends"))->getInt();
    take(answer->toVariant().toMap());
}

void RobotState::take(const QVariantMap &values)
{
    for (auto value = values.begin(); value != values.end(); ++value)
        m_values.insert(value.key(), value.value());
    log();
    emit changed();
}

// Reports the end of a move, which the operator of a point's form waits for.
void RobotState::log()
{
    const auto tell = [this](const char *level, const QString &text) {
        m_host->helper()->throwLog(this, QString::fromLatin1(level), text);
    };
    const bool moves = word() == QLatin1String("moves");
    if (moves && !m_moved)
        tell("info", tr("The robot moves"));
    m_moved = moves;
    const int ends = m_values.value(QStringLiteral("ends")).toInt();
    if (ends == m_logged)
        return;
    m_logged = ends;
    const QString reason = m_values.value(QStringLiteral("reason")).toString();
    const QString why =
        schema::reasonText(reason, itemsOf(m_values.value(QStringLiteral("arguments"))));
    const QString end = m_values.value(QStringLiteral("end")).toString();
    if (end == QLatin1String("arrived"))
        tell("info", tr("The robot has arrived"));
    else if (end == QLatin1String("refused"))
        tell("error", tr("The robot does not move: %1").arg(why));
    else
        tell("warning",
             reason.isEmpty() ? tr("The robot was stopped")
                              : tr("The robot was stopped: %1").arg(why));
}

QString RobotState::word() const
{
    return m_values.value(QStringLiteral("state")).toString();
}

QString RobotState::text() const
{
    const QString state = word();
    if (state == QLatin1String("moves"))
        return tr("The robot moves to a point");
    if (state == QLatin1String("jogs"))
        return tr("The robot moves by hand");
    if (state == QLatin1String("program"))
        return tr("A program has the robot");
    return state.isEmpty() ? tr("Nobody knows where the robot is") : tr("The robot stands still");
}

double RobotState::value(const char *path) const
{
    QVariant value = m_values;
    const QStringList parts = QString::fromLatin1(path).split(QLatin1Char('.'));
    for (const QString &part : parts)
        value = value.toMap().value(part);
    return value.toDouble();
}

std::array<double, 6> RobotState::joints() const
{
    std::array<double, 6> joints{};
    const QVariantList told = itemsOf(m_values.value(QStringLiteral("q")));
    for (int i = 0; i < std::min(6, told.size()); ++i)
        joints[size_t(i)] = told.at(i).toDouble();
    return joints;
}

} // namespace welmo::pendant
