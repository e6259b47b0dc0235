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

/// The way to the host's managers, and the message log. One for each running host.
class ManagerHelper : public QObject
{
    Q_OBJECT
public:
    explicit ManagerHelper(XService *service, QObject *parent = nullptr);

    /// The running host's helper; null between hosts.
    static ManagerHelper *instance();

    /// Writes one message to the pendant's log. @p sender (may be null) is who reports, @p level is
    /// "error", "warning" or "info", @p text is for the user and translated.
    void throwLog(const QObject *sender, const QString &level, const QString &text);

    /// A modal message box with one button; true when the button was pressed, false when the box
    /// was closed without it. The only call of the host that runs an event loop.
    bool execMsgOk(const QString &title, const QString &text, const QString &button);

    /// Makes the compiled-in resources under ":/<name>/" addressable for icons and themes.
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
