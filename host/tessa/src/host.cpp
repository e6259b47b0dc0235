#include "tessa/host.h"

#include <QFileInfo>

#include "tessa/tlmanager.h"
#include "vu/xtheme.h"

namespace tessa {

namespace {

Host *s_current = nullptr;
constexpr int heldBeatMs = 25; // while a key is held
constexpr int idleBeatMs = 200;

} // namespace

Host::Host(const HostOptions &options)
    : m_workspace(options.dataFolder, options.language)
    , m_helper(&m_service)
{
    s_current = this;
    kelp::habits() = options.habits;
    // Pages look up project data in the host's tree, but the controller has it.
    m_service.setMirrored({QStringLiteral("orbo.project"),
                           QStringLiteral("orbo.robot.io.signal_detail"),
                           QStringLiteral("orbo.toolpage")});
    kelp::ModuleObject *handle = m_workspace.root()->set(this, QStringLiteral("orbo.handle"), {});
    handle->set(this, QStringLiteral("max_jog_speed"), 100);
    handle->set(this, QStringLiteral("jog.override"), 0.3);
    connect(&m_workspace, &kelp::Workspace::problem, this, &Host::reportProblem);
    // On the GUI thread: if that hangs, the beats end, and what a key moves stops.
    m_heartbeat.setTimerType(Qt::PreciseTimer);
    connect(&m_heartbeat, &QTimer::timeout, this, &Host::beat);
    connect(&m_service, &XService::connectedChanged, this, &Host::onConnectedChanged);
    // A beat must tell of the press before its command arrives, and the regular one may be late.
    connect(&m_keys, &PhysicalKeys::heldChanged, this, [this](int, bool held) {
        if (held)
            beat();
    });
    connect(m_helper.themeManager(), &ThemeManager::problem, this, &Host::reportProblem);
    m_helper.log()->keepIn(options.dataFolder + QStringLiteral("/messages.jsonl"));
    if (!QFileInfo(options.dataFolder).isWritable())
        reportProblem(tr("%1: the data folder cannot be written").arg(options.dataFolder));
    QString error;
    vu::xtheme::setCurrent(vu::xtheme::Theme::load(options.themeFile, &error));
    if (!error.isEmpty())
        reportProblem(error);
}

Host::~Host()
{
    stopModules();
    TlManager::getTlManager()->clear();
    // Saved while the log can still show failures; the workspace is destroyed after it.
    m_workspace.saveTrees();
    m_workspace.disconnect(this);
    m_service.setLink(nullptr);
    m_link.reset();
    s_current = nullptr;
    kelp::habits() = {};
}

void Host::stopModules()
{
    m_keys.releaseAll(); // while the modules can still act
    m_helper.framework()->stop();
}

Host *Host::current()
{
    return s_current;
}

void Host::setLink(std::unique_ptr<ControllerLink> link)
{
    m_service.setLink(link.get());
    m_link = std::move(link);
    if (!m_link)
        return;
    connect(m_link.get(), &ControllerLink::problem, this, &Host::reportProblem);
    m_link->open();
}

void Host::onConnectedChanged(bool connected)
{
    if (!connected) {
        m_heartbeat.stop();
        return;
    }
    m_heartbeat.start(heldBeatMs);
    beat();
}

// After a release one more beat comes soon, which says that no key is held.
void Host::beat()
{
    const QVector<int> presses = m_keys.heldPresses();
    const int pace = presses.isEmpty() ? idleBeatMs : heldBeatMs;
    if (m_heartbeat.isActive() && m_heartbeat.interval() != pace)
        m_heartbeat.setInterval(pace);
    if (m_link)
        m_link->beat(presses);
}

void Host::reportProblem(const QString &line)
{
    m_helper.throwLog(this, QStringLiteral("error"), line);
}

} // namespace tessa
