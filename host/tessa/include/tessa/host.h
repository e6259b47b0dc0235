#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
#include <memory>

#include "kelp/habits.h"
#include "kelp/workspace.h"
#include "tessa/managerhelper.h"
#include "tessa/physicalbutton.h"
#include "tessa/xservice.h"

namespace tessa {

struct HostOptions
{
    QString dataFolder; ///< where the host keeps its trees and logs
    QString language = QStringLiteral("en");
    QString themeFile = QStringLiteral(":/tessa/theme/light.json");
    kelp::Habits habits{}; ///< other than the defaults only in tests of a package
};

/// One running host: everything that modules reach through the four libraries' functions. Only one
/// exists at a time; it is the current one until it is destroyed.
class Host : public QObject
{
    Q_OBJECT
public:
    explicit Host(const HostOptions &options);
    ~Host() override;

    static Host *current();

    XService *service() { return &m_service; }
    ManagerHelper *helper() { return &m_helper; }
    PhysicalKeys *keys() { return &m_keys; }
    kelp::Workspace *workspace() { return &m_workspace; }

    /// Takes ownership of the link and opens it; null leaves the host without a controller.
    void setLink(std::unique_ptr<ControllerLink> link);
    ControllerLink *link() { return m_link.get(); }
    /// Releases held keys, and ends the modules.
    void stopModules();

private:
    void reportProblem(const QString &line);
    void onConnectedChanged(bool connected);
    void beat();

    kelp::Workspace m_workspace;
    XService m_service;
    PhysicalKeys m_keys; // destroyed after the modules, whose keys it releases
    ManagerHelper m_helper;
    std::unique_ptr<ControllerLink> m_link;
    QTimer m_heartbeat;
};

} // namespace tessa
