#pragma once

#include <QObject>
#include <QTimer>
#include <functional>
#include <memory>

#include "pendant/app/connection.h"
#include "pendant/app/options.h"
#include "pendant/input/fieldpads.h"
#include "pendant/input/keyboardwatch.h"
#include "pendant/input/numberentry.h"
#include "pendant/input/relaywatch.h"
#include "pendant/input/wheelguard.h"
#include "pendant/program/programdocument.h"
#include "pendant/window/dialogshade.h"
#include "pendant/window/editmarker.h"
#include "pendant/window/keyholds.h"
#include "tessa/controllerstatus.h"

namespace welmo::links {
class EmbeddedLink;
}

namespace tessa {
class Host;
class MessageLog;
} // namespace tessa

namespace welmo::pendant {

class AlarmList;
class Cell;
class JogSpeed;
class LinkControl;
class PendantWindow;
class PluginLoader;
class ProgramPage;
class RobotState;

/// A whole running pendant; all its parts are put together here only. One at a time, which can be
/// started and stopped repeatedly in one process.
class PendantApp : public QObject
{
    Q_OBJECT
public:
    /// Makes the connection that a start uses; the link is opened later.
    using Connector = std::function<Connection(const Options &)>;

    PendantApp(const Options &options, Connector connector);
    ~PendantApp() override;

    /// Builds the window, loads the packages and begins to connect. Failures are shown in the
    /// window.
    void start();
    /// Ends everything: modules, window, link, libraries.
    void stop();

    tessa::Host *host() { return m_host.get(); }
    PendantWindow *window() { return m_window.get(); }
    LinkControl *link() { return m_control.get(); }

signals:
    /// The pendant was started, also again after a change of language or theme.
    void started();

private:
    void checkTheme(QString *error);
    void makeHost();
    void loadModules();
    bool load(std::unique_ptr<PluginLoader> &loader, const QString &path);
    void showPluginError();
    void addPages(controller::Faults *faults);
    void addProgramPage(tessa::MessageLog *log);
    void addJogPage();
    void keepJogSpeed();
    void addArcCheckPage(const QString &packageKey);
    void weldExample();
    void bindLevel(links::EmbeddedLink *link);
    void followMessages(tessa::MessageLog *log);
    void changeDisplay(const QString &language, const QString &theme);

    Options m_options;
    Connector m_connector;
    ProgramDocument m_program; // kept over a change of language
    tessa::ControllerStatus::Level m_level = tessa::ControllerStatus::Level::Administrator;
    KeyHolds m_holds; // kept over it too, so that held keys stay known
    KeyboardWatch m_keyboard;
    NumberEntry m_numbers;
    FieldPads m_pads{&m_numbers};
    WheelGuard m_wheel;
    DialogShade m_shade;
    EditMarker m_marker;
    RelayWatch m_relay;
    std::unique_ptr<PluginLoader> m_loader;
    std::unique_ptr<PluginLoader> m_book;
    std::unique_ptr<tessa::Host> m_host;
    std::unique_ptr<LinkControl> m_control;
    std::unique_ptr<Cell> m_cell;
    std::unique_ptr<AlarmList> m_alarms;
    std::unique_ptr<RobotState> m_robot;
    std::unique_ptr<JogSpeed> m_jog;
    QTimer m_keepSoon; // saves the jog speed, which a held key changes often
    std::unique_ptr<PendantWindow> m_window;
    ProgramPage *m_programPage = nullptr; // owned by the window
};

} // namespace welmo::pendant
