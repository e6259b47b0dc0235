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
    const auto connect = [this](const welmo::pendant::Options &options) {
        if (!options.controller.isEmpty())
            return welmo::pendant::connectTo(options);
        welmo::links::EmbeddedLink::Options how;
        how.clock = m_setup.clock;
        how.example = m_setup.example;
        if (m_setup.keepFiles)
            how.dataFolder = options.dataFolder;
        auto link = std::make_unique<welmo::links::EmbeddedLink>(how);
        m_link = link.get();
        return welmo::pendant::Connection{std::move(link), m_link->faults()};
    };
    welmo::pendant::Options options{m_setup.language, m_setup.theme, m_setup.dataFolder,
                                    m_setup.modulePath};
    options.controller = m_setup.controller;
    if (m_setup.withBook)
        options.bookPath = QStringLiteral(WELMO_BOOK);
    m_app = std::make_unique<welmo::pendant::PendantApp>(options, connect);
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
    QCoreApplication::processEvents(); // the window is told later than the service
    return true;
}

void TestPendant::changeDisplay(const QString &combo, const QString &code)
{
    open(QStringLiteral("home"));
    QSignalSpy started(m_app.get(), &welmo::pendant::PendantApp::started);
    chooseCode(combo, code);
    if (started.isEmpty())
        started.wait();
    waitConnected();
}

void TestPendant::openSubPage(const QString &title)
{
    open(QStringLiteral("arcweldpackage"));
    for (auto *button : find(QStringLiteral("wgtNav"))->findChildren<QToolButton *>()) {
        if (button->text() == title)
            return finger::touch(button);
    }
    throw OutOfReach("there is no sub-page " + title);
}

QString TestPendant::wire() const
{
    using Event = welmo::controller::Journal::Event;
    static const QMap<Event, QString> letters{
        {Event::WireFeeds, "F"}, {Event::WireRetracts, "R"}, {Event::WireStops, "."}};
    QString all;
    for (const auto &entry : journal().entries())
        all += letters.value(entry.event);
    return all;
}

QString TestPendant::lastMessage()
{
    return messages().isEmpty() ? QString()
                                : messages().first().level + ": " + messages().first().text;
}

} // namespace testsupport
