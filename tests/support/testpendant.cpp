#include "support/testpendant.h"

#include <QSignalSpy>

namespace testsupport {

TestPendant::TestPendant(const Setup &setup)
    : m_setup(setup)
{
    if (m_setup.dataFolder.isEmpty())
        m_setup.dataFolder = m_folder.path();
    start();
}

void TestPendant::start()
{
    if (m_setup.modulePath.isEmpty())
        m_setup.modulePath = QStringLiteral(WELMO_MODULE);
    const auto connect = [this](const pendant::Options &options) {
        links::EmbeddedLink::Options how;
        how.clock = m_setup.clock;
        if (m_setup.keepFiles)
            how.dataFolder = options.dataFolder;
        auto link = std::make_unique<links::EmbeddedLink>(how);
        m_link = link.get();
        return pendant::Connection{std::move(link), m_link->faults()};
    };
    m_app = std::make_unique<pendant::PendantApp>(
        pendant::Options{m_setup.language, m_setup.theme, m_setup.dataFolder, m_setup.modulePath},
        connect);
    m_app->start();
    if (m_setup.connects && !waitConnected())
        throw OutOfReach(QStringLiteral("the controller: ") + lastMessage());
}

void TestPendant::restart(const Setup &setup)
{
    const QString dataFolder = m_setup.dataFolder;
    m_setup = setup;
    if (m_setup.dataFolder.isEmpty())
        m_setup.dataFolder = dataFolder;
    window()->close();
    m_app.reset();
    start();
}

bool TestPendant::waitLink(bool up)
{
    QSignalSpy changed(host()->service(), &XService::connectedChanged);
    while (host()->service()->isConnected() != up) {
        if (!changed.wait())
            return false;
    }
    QCoreApplication::processEvents(); // the value counts at once, the window hears of it later
    return true;
}

void TestPendant::changeDisplay(const QString &combo, const QString &code)
{
    open(QStringLiteral("home"));
    QSignalSpy started(m_app.get(), &pendant::PendantApp::started);
    chooseCode(combo, code);
    if (started.isEmpty())
        started.wait();
    waitConnected();
}

QString TestPendant::lastMessage()
{
    return messages().isEmpty() ? QString()
                                : messages().first().level + ": " + messages().first().text;
}

} // namespace testsupport
