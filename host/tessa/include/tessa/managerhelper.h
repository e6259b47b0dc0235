#pragma once

#include <QObject>
#include <QString>

#include "pando/moduleframework.h"
#include "tessa/controllermanager.h"
#include "tessa/controllerstatus.h"
#include "tessa/messagelog.h"
#include "tessa/thememanager.h"
#include "tessa/xservice.h"

namespace tessa {

/// Access to the host's managers, and the message log. One for each running host.
class ManagerHelper : public QObject
{
    Q_OBJECT
public:
    explicit ManagerHelper(XService *service, QObject *parent = nullptr);

    /// The running host's helper; null between hosts.
    static ManagerHelper *instance();

    /// Writes one message to the pendant's log. @p sender (may be null) reports it, @p level is
    /// "error", "warning" or "info", @p text is translated text for the user.
    void throwLog(const QObject *sender, const QString &level, const QString &text);

    /// A modal message box with one button; true if the button was pressed, false if the box was
    /// closed otherwise. The only call of the host that runs an event loop.
    bool execMsgOk(const QString &title, const QString &text, const QString &button);

    /// Lets icons and themes use the compiled-in resources under ":/<name>/".
    void registQrcAlias(const QString &name);

    ThemeManager *themeManager();
    ControllerManager *controllerManager();
    ControllerStatus *status() { return &m_status; }
    MessageLog *log() { return &m_log; }
    pando::ModuleFramework *framework() { return &m_framework; }

signals:
    void logThrown(const QObject *sender, const QString &level, const QString &text);

private:
    ThemeManager m_theme;
    ControllerManager m_controller;
    ControllerStatus m_status;
    MessageLog m_log;
    pando::ModuleFramework m_framework;
};

} // namespace tessa
