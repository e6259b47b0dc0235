#include "support/testpendant.h"

#include <QComboBox>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>

#include "pendant/pendantwindow.h"

namespace testsupport {

TestPendant::TestPendant(const Setup &setup)
    : m_setup(setup)
{
    if (m_setup.dataFolder.isEmpty())
        m_setup.dataFolder = m_folder.path();
    if (m_setup.modulePath.isEmpty())
        m_setup.modulePath = QStringLiteral(WELMO_MODULE);
    start();
}

TestPendant::~TestPendant() = default;

void TestPendant::start()
{
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
    const Setup before = m_setup;
    m_setup = setup;
    if (m_setup.dataFolder.isEmpty())
        m_setup.dataFolder = before.dataFolder;
    if (m_setup.modulePath.isEmpty())
        m_setup.modulePath = before.modulePath;
    window()->close();
    m_app.reset();
    start();
}

QWidget *TestPendant::window()
{
    return m_app->window();
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

void TestPendant::choose(const QString &combo, const QString &text)
{
    auto *widget = find<QComboBox>(combo);
    finger::choose(widget, widget->findText(text));
}

void TestPendant::chooseCode(const QString &combo, const QVariant &code)
{
    auto *widget = find<QComboBox>(combo);
    finger::choose(widget, widget->findData(code));
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

void TestPendant::type(const QString &spinBox, const QString &text)
{
    finger::type(find<QAbstractSpinBox>(spinBox), text);
}

const QVector<tessa::MessageLog::Entry> &TestPendant::messages()
{
    return host()->helper()->log()->entries();
}

QString TestPendant::lastMessage()
{
    if (messages().isEmpty())
        return {};
    return messages().first().level + ": " + messages().first().text;
}

bool TestPendant::picture(const QString &file)
{
    QCoreApplication::processEvents();
    return window()->grab().save(file);
}

} // namespace testsupport
