#include "pendant/app/pendantapp.h"

#include <QCoreApplication>
#include <QDir>

#include "link/embedded/embeddedlink.h"
#include "link/mqtt/brokeraddress.h"
#include "pando/frame.h"
#include "pendant/app/pluginloader.h"
#include "pendant/app/preferences.h"
#include "pendant/pages/controllerpage.h"
#include "pendant/pages/homepage.h"
#include "pendant/pages/jogpage.h"
#include "pendant/pages/messagespage.h"
#include "pendant/pages/pluginerrorpage.h"
#include "pendant/program/arccheckpage.h"
#include "pendant/program/arcchecks.h"
#include "pendant/program/programpage.h"
#include "pendant/state/alarms.h"
#include "pendant/state/cell.h"
#include "pendant/state/jogspeed.h"
#include "pendant/state/linkcontrol.h"
#include "pendant/state/navigation.h"
#include "pendant/state/refusals.h"
#include "pendant/state/robotstate.h"
#include "pendant/theme/appearance.h"
#include "pendant/theme/look.h"
#include "pendant/window/pendantwindow.h"
#include "schema/names.h"
#include "schema/weldmode.h"
#include "tessa/host.h"
#include "vu/xnav.h"
#include "vu/xtheme.h"

// A static library's resources must be initialised by name; Qt requires that outside any namespace.
static void useResources()
{
    Q_INIT_RESOURCE(pendant);
    Q_INIT_RESOURCE(language);
}

namespace welmo::pendant {

namespace {

// The "USER@CELL" part of a cell's address.
QString placeOf(const QString &controller)
{
    links::BrokerAddress address;
    QString cell;
    if (controller.isEmpty())
        return {};
    links::parseAddress(controller, &address, &cell);
    return address.user.isEmpty() ? cell : address.user + QLatin1Char('@') + cell;
}

// Without user and password.
QString addressOf(const QString &controller)
{
    links::BrokerAddress address;
    QString cell;
    if (controller.isEmpty())
        return {};
    links::parseAddress(controller, &address, &cell);
    return QStringLiteral("%1:%2/%3").arg(address.host, QString::number(address.port), cell);
}

kelp::ModuleObject *navEntries(tessa::Host *host)
{
    kelp::ModuleObject *node = host->workspace()->root();
    for (const QString &part : vu::xnav::entriesPath.split(QLatin1Char('.')))
        node = node->c(part, true);
    return node;
}

} // namespace

PendantApp::PendantApp(const Options &options, Connector connector)
    : m_options(options)
    , m_connector(std::move(connector))
{
    connect(&m_numbers, &NumberEntry::refused, this, [this](const QString &line) {
        m_host->helper()->throwLog(this, QStringLiteral("error"), line);
    });
    m_keepSoon.setSingleShot(true);
    m_keepSoon.setInterval(1000);
    connect(&m_keepSoon, &QTimer::timeout, this, &PendantApp::keepJogSpeed);
    connect(&m_relay, &RelayWatch::missing, &m_holds, &KeyHolds::letGo);
    connect(&m_keyboard, &KeyboardWatch::disturbed, &m_holds, &KeyHolds::letGo);
    connect(&m_keyboard, &KeyboardWatch::released, this, [this](int scanCode) {
        m_holds.up({KeyHolds::Keyboard, scanCode});
    });
}

PendantApp::~PendantApp()
{
    stop();
}

void PendantApp::start()
{
    useResources();
    makeHost();
    m_control = std::make_unique<LinkControl>(m_host.get());
    m_cell = std::make_unique<Cell>(m_host.get());
    m_alarms = std::make_unique<AlarmList>(m_host->service(), m_host->helper());
    tellRefusals(m_host.get(), m_cell.get());
    m_robot = std::make_unique<RobotState>(m_host.get());
    m_jog = std::make_unique<JogSpeed>();
    m_jog->set(Preferences(m_options.dataFolder).jogPercent);
    connect(m_jog.get(), &JogSpeed::changed, &m_keepSoon, qOverload<>(&QTimer::start));
    const WindowState state{m_control.get(), m_cell.get(), m_alarms.get(), m_jog.get(),
                            placeOf(m_options.controller)};
    m_window =
        std::make_unique<PendantWindow>(m_host.get(), navEntries(m_host.get()), state, &m_holds);
    m_pads.follow(m_window->center());
    loadModules();
    m_host->helper()->log()->translateOld();
    Connection connection = m_connector(m_options);
    addPages(connection.faults);
    m_window->show();
    m_window->setFocus();
    bindLevel(dynamic_cast<links::EmbeddedLink *>(connection.link.get()));
    m_host->setLink(std::move(connection.link));
    emit started();
}

void PendantApp::stop()
{
    if (!m_host)
        return;
    if (m_keepSoon.isActive())
        keepJogSpeed();
    m_host->stopModules();
    m_window.reset();
    m_jog.reset();
    m_robot.reset();
    m_alarms.reset();
    m_cell.reset();
    m_control.reset();
    m_host.reset();
    // Objects of the library that wait for deletion must be deleted before it is unloaded.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    m_book.reset();
    m_loader.reset();
}

// An unusable theme is replaced, since not even the error could be read with it.
void PendantApp::checkTheme(QString *error)
{
    const auto theme = vu::xtheme::Theme::load(themeFile(m_options.theme), error);
    if (error->isEmpty() && !isUsable(theme))
        *error = tr("%1: lacks the colours and fonts of a theme").arg(m_options.theme);
    if (!error->isEmpty())
        m_options.theme = knownThemes().constFirst();
}

void PendantApp::makeHost()
{
    const Preferences kept(m_options.dataFolder);
    if (m_options.language.isEmpty())
        m_options.language = kept.language;
    if (m_options.theme.isEmpty())
        m_options.theme = kept.theme;
    QString themeError;
    checkTheme(&themeError);
    m_host = std::make_unique<tessa::Host>(
        tessa::HostOptions{m_options.dataFolder, m_options.language, themeFile(m_options.theme)});
    for (const QString &error : {kept.error(), themeError}) {
        if (!error.isEmpty())
            m_host->workspace()->report(error);
    }
    for (const char *file : {"pendant_cn", "welmo_en"})
        translator()->installQMTranslator(
            QStringLiteral(":/pendant/language/%1.qm").arg(QLatin1String(file)));
    applyTheme();
}

// Each library works without the other; a missing one is reported.
void PendantApp::loadModules()
{
    if (!load(m_loader, m_options.modulePath))
        showPluginError();
    if (!m_options.bookPath.isEmpty())
        load(m_book, m_options.bookPath);
    m_host->helper()->framework()->start();
}

bool PendantApp::load(std::unique_ptr<PluginLoader> &loader, const QString &path)
{
    loader = std::make_unique<PluginLoader>(path);
    if (!loader->load())
        m_host->workspace()->report(loader->error());
    for (const QString &module : loader->modules())
        m_host->helper()->framework()->create(module);
    return !loader->modules().isEmpty();
}

void PendantApp::showPluginError()
{
    auto *page = new PluginErrorPage(m_loader->path(), m_loader->error());
    m_window->center()->addPage(this, pluginErrorKey, page);
    addNavEntry(pluginErrorKey, tr("Package"), packageGroup, QStringLiteral("widget/plugin_error"),
                -1);
}

void PendantApp::addPages(controller::Faults *faults)
{
    HomePage::Facts facts{m_options.language,
                          m_options.theme,
                          m_options.dataFolder,
                          addressOf(m_options.controller),
                          {},
                          {},
                          {},
                          {}};
    facts.version = pendantVersion();
    facts.hasExample = faults != nullptr;
    const QList<kelp::ModuleObject *> entries = navEntries(m_host.get())->cmobjs();
    if (!m_loader->modules().isEmpty() && !entries.isEmpty()) {
        facts.firstPage = entries.first()->r(QStringLiteral("nav"))->getString();
        facts.firstTitle = entries.first()->r(QStringLiteral("title"))->getString();
    }

    tessa::MessageLog *log = m_host->helper()->log();
    auto *home = new HomePage(facts, log, m_control.get());
    m_window->center()->addPage(this, homeKey, home);
    addProgramPage(log);
    addJogPage();
    m_window->center()->addPage(this, messagesKey, new MessagesPage(log));
    m_window->center()->addPage(
        this, controllerKey,
        new ControllerPage(m_control.get(), m_cell.get(), m_host->helper()->status(), faults));
    addNavEntry(homeKey, tr("Home"), mainGroup, QStringLiteral("widget/home"), 0);
    addNavEntry(programKey, tr("Program"), mainGroup, QStringLiteral("widget/program"), 1);
    addNavEntry(jogKey, tr("Jog"), mainGroup, QStringLiteral("widget/jog"), 2);
    addNavEntry(messagesKey, tr("Messages"), systemGroup, QStringLiteral("widget/messages"), -1);
    addNavEntry(controllerKey, tr("Controller"), systemGroup, QStringLiteral("widget/controller"),
                -1);
    connect(home, &HomePage::exampleWanted, this, &PendantApp::weldExample);
    connect(home, &HomePage::pageWanted, m_window.get(), &PendantWindow::showPage);
    connect(home, &HomePage::displayChosen, this, &PendantApp::changeDisplay, Qt::QueuedConnection);
    addArcCheckPage(facts.firstPage);
    followMessages(log);
    m_window->showPage(m_loader->modules().isEmpty() ? pluginErrorKey : homeKey);
}

void PendantApp::addProgramPage(tessa::MessageLog *log)
{
    const QString folder = QDir(m_options.dataFolder).filePath(QStringLiteral("programs"));
    auto *page = new ProgramPage(&m_program, m_cell.get(), m_robot.get(), log, folder);
    m_programPage = page;
    m_window->center()->addPage(this, programKey, page);
    connect(m_window.get(), &PendantWindow::lineWanted, page,
            [this, page](const QString &, int line) {
                m_window->showPage(programKey);
                page->showLine(line - 1);
            });
    connect(page, &ProgramPage::roomWanted, m_window.get(), &PendantWindow::makeRoom);
    m_window->setCloseGuard([this, page] {
        if (page->mayGo([this] { m_window->close(); }))
            return true;
        m_window->showPage(programKey);
        return false;
    });
}

void PendantApp::addJogPage()
{
    m_window->center()->addPage(
        this, jogKey,
        new JogPage({m_host.get(), &m_holds, m_cell.get(), m_robot.get(), m_jog.get()}));
}

void PendantApp::keepJogSpeed()
{
    m_keepSoon.stop();
    Preferences kept(m_options.dataFolder);
    kept.jogPercent = m_jog->percent();
    if (!kept.save())
        m_host->workspace()->report(kept.error());
}

void PendantApp::addArcCheckPage(const QString &packageKey)
{
    auto *page = new ArcCheckPage(&m_program, m_cell.get());
    m_window->center()->addPage(this, arcCheckKey, page);
    connect(page, &ArcCheckPage::pageWanted, m_window.get(),
            [this, packageKey](const QString &key) {
                m_window->showPage(key == packagePage ? packageKey : key);
            });
}

// Takes the operator from a fresh start to a burning arc with one press, and says what happens.
void PendantApp::weldExample()
{
    const QVariantMap real{{QStringLiteral("mode"), QLatin1String(schema::weldmode::real)}};
    m_host->service()->execCommand(this, names::setWeldMode, real);
    m_window->showPage(programKey);
    if (m_window->side()->switchTo(QStringLiteral("welmo.page")))
        m_window->side()->show();
    m_programPage->runExample(QStringLiteral("fillet.tl"));
    m_host->helper()->throwLog(
        m_programPage, QStringLiteral("info"),
        tr("The example runs: one bead of 400 mm, the arc in the monitor; Stop ends it"));
}

// With a controller in this process, the user's level decides what is allowed, as the user's role
// does on the network.
void PendantApp::bindLevel(links::EmbeddedLink *link)
{
    if (!link)
        return;
    tessa::ControllerStatus *status = m_host->helper()->status();
    const auto tell = [this, link, status] {
        m_level = status->level();
        link->setRole(static_cast<links::Role>(static_cast<int>(m_level)
                                               + static_cast<int>(links::Role::Viewer)));
    };
    status->setLevel(m_level);
    connect(status, &tessa::ControllerStatus::levelChanged, link, tell);
    tell();
}

void PendantApp::followMessages(tessa::MessageLog *log)
{
    const auto show = [this, log] { m_window->setCount(messagesKey, log->unseenErrors()); };
    connect(log, &tessa::MessageLog::unseenChanged, m_window.get(), show);
    show();
}

void PendantApp::changeDisplay(const QString &language, const QString &theme)
{
    Preferences kept(m_options.dataFolder);
    kept.language = m_options.language = language;
    kept.theme = m_options.theme = theme;
    const bool saved = kept.save();
    stop();
    start();
    if (!saved)
        m_host->workspace()->report(kept.error());
}

} // namespace welmo::pendant
