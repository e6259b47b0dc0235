#include <QAbstractButton>
#include <QMessageBox>
#include <QtTest>

#include "support/datarows.h"
#include "tessa/basepage.h"
#include "tessa/host.h"
#include "tessa/tlmanager.h"

using tessa::ControllerStatus;
using tessa::MessageLog;
using namespace testsupport;
using Change = void (*)(ControllerStatus *);

namespace {

struct Page : tessa::BasePage
{
    Page()
        : BasePage("page", "Title", nullptr)
    { }
    void updateAvailability() override { ++updates; }
    using BasePage::autoUpdate;

    int updates = 0;
};

} // namespace

/// tessa, the host: when pages are available, messages, and what is gone after the host.
class tst_Host : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_host.reset();
        m_host = std::make_unique<tessa::Host>(tessa::HostOptions{m_folder.path(), "en"});
    }
    void aPageIsAvailableByStateModePowerAndLevel_data()
    {
        addRows<Change, int>(
            {// how often a page is told that follows all but the level
             {"state", [](auto *s) { s->setState(ControllerStatus::State::Fault); }, 1},
             {"mode", [](auto *s) { s->setMode(ControllerStatus::Mode::Automatic); }, 1},
             {"power", [](auto *s) { s->setPower(ControllerStatus::Power::Off); }, 1},
             {"level", [](auto *s) { s->setLevel(ControllerStatus::Level::Viewer); }, 0}});
    }
    void aPageIsAvailableByStateModePowerAndLevel()
    {
        const auto &[name, change, updates] = currentRow<Change, int>();
        ControllerStatus *status = m_host->helper()->status();
        Page page;
        status->setState(ControllerStatus::State::Running);
        status->setLevel(ControllerStatus::Level::Operator);
        QVERIFY(page.isAvailable());
        page.autoUpdate(false, false, false, true);
        page.autoUpdate(true, true, true, false);
        change(status);
        change(status);
        QVERIFY(!page.isAvailable());
        QCOMPARE(page.updates, updates);
    }
    void messagesStandNewestFirstAndOldOnesGo()
    {
        auto *helper = tessa::ManagerHelper::instance();
        MessageLog *log = helper->log();
        const QTimer unnamed;
        Page named;
        named.setObjectName("somebody");
        helper->throwLog(nullptr, "info", "first");
        helper->throwLog(&named, "error", "second");
        helper->throwLog(&unnamed, "warning", "third");
        QStringList lines;
        for (const MessageLog::Entry &entry : log->entries())
            lines.append(QStringList{entry.level, entry.text, entry.sender}.join('|'));
        QCOMPARE(lines,
                 QStringList({"warning|third|QTimer", "error|second|somebody", "info|first|"}));
        for (int i = 3; i <= MessageLog::capacity; ++i)
            helper->throwLog(nullptr, "info", {});
        QCOMPARE(log->rowCount(), int(MessageLog::capacity));
        QCOMPARE(log->entries().last().text, QString("second"));
    }
    void thereIsNobodyBetweenHosts()
    {
        QCOMPARE(m("orbo.handle.max_jog_speed")->getInt(), 100);
        const double override = m("orbo.handle.jog.override")->getDouble();
        QVERIFY(override > 0 && override <= 1);
        m_host.reset();
        QCOMPARE(tessa::ManagerHelper::instance(), nullptr);
        QCOMPARE(xservice(), nullptr);
        QVERIFY(m("orbo.handle")->isMissing());
    }
    void instructionsGoWithTheHost()
    {
        auto *manager = tessa::TlManager::getTlManager();
        manager->insertWidgetCreators["Sample"] = [](QWidget *) { return nullptr; };
        m_host.reset();
        QCOMPARE(tessa::TlManager::getTlManager(), manager);
        QVERIFY(manager->insertWidgetCreators.isEmpty()); // the package takes their code with it
    }

private:
    QTemporaryDir m_folder;
    std::unique_ptr<tessa::Host> m_host;
};

QTEST_MAIN(tst_Host)
#include "tst_host.moc"
