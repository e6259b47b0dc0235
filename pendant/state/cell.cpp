#include "pendant/state/cell.h"

#include "schema/names.h"
#include "tessa/host.h"

using tessa::ControllerStatus;

namespace welmo::pendant {

namespace {

const QString stateKey = QStringLiteral("state");
const QString modeKey = QStringLiteral("mode");
// In the order of Cell::State.
QStringList words()
{
    return {QStringLiteral("unknown"), QStringLiteral("idle"),    QStringLiteral("running"),
            QStringLiteral("paused"),  QStringLiteral("welding"), QStringLiteral("fault")};
}

} // namespace

Cell::Cell(tessa::Host *host, QObject *parent)
    : QObject(parent)
    , m_host(host)
{
    setObjectName(QStringLiteral("Cell"));
    XService *service = host->service();
    connect(service->watchNode(names::cellState), &kelp::ModuleObject::changed, this,
            [this](const QVariant &values) { take(values.toMap()); });
    connect(service->watchNode(names::weldMode), &kelp::ModuleObject::changed, this,
            [this](const QVariant &values) { takeMode(values.toMap().value(modeKey).toString()); });
    connect(service, &XService::cameUp, this, &Cell::reload);
    connect(service, &XService::connectedChanged, this, &Cell::onConnectedChanged);
}

void Cell::reload()
{
    XService *service = m_host->service();
    for (const QString &path : {names::cellState, names::weldMode})
        service->watch(this, path, true);
    take(service->get(this, names::cellState)->toVariant().toMap());
    takeMode(service->get(this, names::weldMode)->r(modeKey)->getString());
}

void Cell::onConnectedChanged(bool connected)
{
    if (!connected) {
        if (m_state == State::Running || m_state == State::Welding)
            m_lostAt = QDateTime::currentDateTime();
        m_state = State::Unknown;
    }
    emit changed();
}

void Cell::take(const QVariantMap &map)
{
    for (auto value = map.begin(); value != map.end(); ++value)
        m_switches.insert(value.key(), value.value());
    const int index = words().indexOf(m_switches.value(stateKey).toString());
    m_state = static_cast<State>(qMax(0, index));
    m_lostAt = {};
    ControllerStatus *status = m_host->helper()->status();
    const bool isOn = m_switches.value(QStringLiteral("power"), true).toBool();
    const bool isAutomatic = m_switches.value(QStringLiteral("automatic")).toBool();
    status->setPower(isOn ? ControllerStatus::Power::On : ControllerStatus::Power::Off);
    status->setMode(isAutomatic ? ControllerStatus::Mode::Automatic
                                : ControllerStatus::Mode::Manual);
    // A welder's error or a failed program does not lock the pages: they are needed to correct it.
    if (m_switches.value(QStringLiteral("fault")).toBool())
        status->setState(ControllerStatus::State::Fault);
    else
        status->setState(m_state == State::Running || m_state == State::Welding
                             ? ControllerStatus::State::Running
                             : ControllerStatus::State::Idle);
    emit changed();
}

void Cell::takeMode(const QString &mode)
{
    if (mode == m_mode)
        return;
    m_mode = mode;
    if (mode == QLatin1String("real"))
        m_host->helper()->throwLog(this, QStringLiteral("warning"),
                                   tr("Real mode: the next run strikes an arc"));
    emit changed();
}

QString Cell::word() const
{
    return words().at(static_cast<int>(m_state));
}

QString Cell::text() const
{
    switch (m_state) {
    case State::Unknown:
        return tr("Unknown");
    case State::Idle:
        return tr("Idle");
    case State::Running:
        return tr("Running");
    case State::Paused:
        return tr("Paused");
    case State::Welding:
        return tr("Welding");
    case State::Fault:
        return tr("Fault");
    }
    return {};
}

QString Cell::modeText() const
{
    if (m_mode == QLatin1String("real"))
        return tr("Real welding");
    if (m_mode == QLatin1String("simu"))
        return tr("Simulation");
    return m_mode == QLatin1String("test_run") ? tr("Test run") : QString();
}

QString Cell::gasText() const
{
    return m_switches.value(QStringLiteral("gas")).toBool() ? tr("Gas flows") : tr("Gas off");
}

QString Cell::wireText() const
{
    const QString wire = m_switches.value(QStringLiteral("wire")).toString();
    if (wire == QLatin1String("feeding"))
        return tr("Wire feeds");
    return wire == QLatin1String("retracting") ? tr("Wire goes back") : tr("Wire still");
}

void Cell::turn(const QString &what, bool on)
{
    const QVariantMap wanted{{what, on}};
    if (m_host->service()->execCommand(this, names::switchCell, wanted)->getInt(0) != 0)
        m_host->helper()->throwLog(this, QStringLiteral("error"),
                                   tr("The cell's switches could not be turned"));
    emit changed();
}

} // namespace welmo::pendant
