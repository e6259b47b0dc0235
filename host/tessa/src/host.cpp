#include "tessa/host.h"

#include <QFileInfo>

#include "vu/xtheme.h"

namespace tessa {

namespace {
Host *s_current = nullptr;
}

Host::Host(const HostOptions &options)
    : m_workspace(options.dataFolder, options.language)
    , m_helper(&m_service)
{
    s_current = this;
    connect(&m_workspace, &kelp::Workspace::problem, this, &Host::reportProblem);
    connect(m_helper.themeManager(), &ThemeManager::problem, this, &Host::reportProblem);
    if (!QFileInfo(options.dataFolder).isWritable())
        reportProblem(tr("%1: the data folder cannot be written").arg(options.dataFolder));
    QString error;
    vu::xtheme::setCurrent(vu::xtheme::Theme::load(options.themeFile, &error));
    if (!error.isEmpty())
        reportProblem(error);
}

Host::~Host()
{
    m_helper.framework()->stop();
    m_service.setLink(nullptr);
    m_link.reset();
    s_current = nullptr;
}

Host *Host::current()
{
    return s_current;
}

void Host::setLink(std::unique_ptr<ControllerLink> link)
{
    m_service.setLink(link.get());
    m_link = std::move(link);
    connect(m_link.get(), &ControllerLink::problem, this, &Host::reportProblem);
    m_link->open();
}

void Host::reportProblem(const QString &line)
{
    m_helper.throwLog(this, QStringLiteral("error"), line);
}

} // namespace tessa
