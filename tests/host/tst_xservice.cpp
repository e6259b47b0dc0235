#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include "fakelink.h"
#include "tessa/host.h"

using kelp::ModuleObject;
using tessa::LinkReply;

Q_DECLARE_METATYPE(tessa::LinkReply)

namespace {

const QString node = QStringLiteral("arc_weld.weld_mode");

QVariantMap mode(const char *name)
{
    return {{"mode", QString::fromLatin1(name)}};
}

} // namespace

/// tessa: how the module reads, writes and watches the controller, and what a lost link means.
class tst_XService : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_host = std::make_unique<tessa::Host>(tessa::HostOptions{m_folder.path()});
        auto link = std::make_unique<FakeLink>();
        m_link = link.get();
        m_host->setLink(std::move(link));
        m_service = xservice();
        m_manager = tessa::ManagerHelper::instance()->controllerManager();
        QVERIFY(m_link->opened && !m_service->isConnected());
        m_link->setUp(true);
        m_link->log.clear();
    }
    void cleanup()
    {
        m_host.reset();
        QCOMPARE(xservice(), nullptr);
    }
    void anAnswerTellsCodeAndContent_data()
    {
        QTest::addColumn<LinkReply>("reply");
        QTest::addColumn<int>("read");
        QTest::addColumn<int>("written");
        QTest::addColumn<QStringList>("children");
        const QVariant map = QVariantMap{{"a", 1}, {"b", 2}};
        QTest::newRow("a map") << LinkReply{0, map} << 0 << 0 << QStringList{"a", "b"};
        QTest::newRow("nothing there") << LinkReply{0, {}} << 0 << 0 << QStringList();
        QTest::newRow("a plain value") << LinkReply{0, 5} << 5 << 0 << QStringList();
        QTest::newRow("refused") << LinkReply{7, map} << 7 << 7 << QStringList();
        QTest::newRow("timed out") << LinkReply{LinkReply::TimedOut, {}} << LinkReply::TimedOut
                                   << LinkReply::TimedOut << QStringList();
    }
    void anAnswerTellsCodeAndContent()
    {
        QFETCH(LinkReply, reply);
        m_link->answers = {{"some", reply}, {"some key", reply}};
        const auto read = m_service->get(this, "some");
        QTEST(read->getInt(0), "read");
        QTEST(read->cmobjNames(), "children");
        m_link->up = true;
        QTEST(m_service->get(this, "some", "key")->getInt(0), "read");
        m_link->up = true;
        QTEST(m_service->execCommand(this, "some")->getInt(0), "written");
        m_link->up = true;
        ModuleObject payload("key");
        QTEST(m_service->set(this, "some", "key", &payload)->getInt(0), "written");
    }
    void everyFailureHasACode_data()
    {
        QTest::addColumn<QString>("how");
        QTest::newRow("link down") << "down";
        QTest::newRow("no link") << "none";
        QTest::newRow("lost on the way") << "lost";
    }
    void everyFailureHasACode()
    {
        QFETCH(QString, how);
        ModuleObject payload("key");
        const auto fail = [&] {
            if (how == "down")
                m_link->up = false;
            else if (how == "lost")
                m_link->answers = {{"some", {LinkReply::Lost, {}}},
                                   {"some key", {LinkReply::Lost, {}}}};
        };
        fail();
        if (how == "none")
            m_host->setLink(nullptr);
        QVERIFY(m_service->get(this, "some")->getInt(0) < 0);
        QVERIFY(m_service->set(this, "some", &payload)->getInt(0) < 0);
        QVERIFY(m_service->set(this, "some", "key", &payload)->getInt(0) < 0);
        QVERIFY(m_service->execCommand(nullptr, "some", QVariant(1))->getInt(0) < 0);
        QVERIFY(m_manager->execRequest("some", "", {}, true, 5)->getInt(0) < 0);
        QVERIFY(m_manager->request("some", nullptr, 5)->getInt(0) < 0);
        QVERIFY(!m_service->isConnected());
    }
    void anAnswerBelongsToItsCaller()
    {
        m_link->node("some", mode("real"));
        const auto first = m_service->get(this, "some");
        first->set(nullptr, "mode", "other");
        QCOMPARE(m_service->get(this, "some")->r("mode")->getString(), QString("real"));
        QCOMPARE(first->r("mode")->getString(), QString("other"));
        QCOMPARE(first->pmobj(), nullptr);
    }
    void requestsReachTheController()
    {
        ModuleObject payload("wire_feel");
        payload.set(nullptr, "feed", true);
        m_service->get(this, "n");
        m_service->get(this, "n", "k");
        m_service->set(this, "n", &payload);
        QCOMPARE(m_link->payload, QVariant(QVariantMap{{"feed", true}}));
        m_service->set(this, "n", "k", &payload);
        m_service->execCommand(nullptr, "c", &payload);
        QCOMPARE(m_link->payload, QVariant(QVariantMap{{"feed", true}}));
        m_service->execCommand(nullptr, "c", QVariant(QStringList{"a"}));
        QCOMPARE(m_link->payload, QVariant(QStringList{"a"}));
        m_service->execCommand(nullptr, "c");
        QVERIFY(!m_link->payload.isValid());
        QCOMPARE(m_link->timeout, XService::defaultTimeoutMs);
        m_manager->execRequest("c", "t", QJsonObject{{"tool", "x"}}, true, 1700);
        QCOMPARE(m_link->timeout, 1700);
        const QVariantMap request{
            {"target", "t"}, {"parameters", QVariantMap{{"tool", "x"}}}, {"wait", true}};
        QCOMPARE(m_link->payload, QVariant(request));
        QCOMPARE(
            m_link->log,
            QStringList({"G n", "G n k", "S n", "S n k", "C c wire_feel", "C c", "C c", "C c"}));
        // A command's local object is one and keeps what was set.
        m_manager->cmdItemMobj("move.stop", "request")->set(this, "stoptype", 1);
        m_manager->cmdItemMobj("move.stop", "request")->set(this, "b", 2);
        m_manager->request("move.stop", nullptr, 4800);
        QCOMPARE(m_link->log.last(), QString("C move.stop request"));
        QCOMPARE(m_link->payload, QVariant(QVariantMap{{"stoptype", 1}, {"b", 2}}));
        QCOMPARE(m_link->timeout, 4800);
        m_manager->request("move.stop", &payload, 5);
        QCOMPARE(m_link->payload, QVariant(QVariantMap{{"feed", true}}));
    }
    void aFirstSubscriptionIsSilent()
    {
        m_link->node(node, mode("real"));
        QSignalSpy changed(m_service->watchNode(node), &ModuleObject::changed);
        m_service->watch(this, node, true);
        m_service->watch(this, node, true);
        QCOMPARE(m_link->log, QStringList("W " + node));
        QCOMPARE(m_service->watchNode(node)->r("mode")->getString(), QString("real"));
        QCOMPARE(changed.count(), 0);
    }
    void changedMeansChanged_data()
    {
        QTest::addColumn<QVariant>("before");
        QTest::addColumn<QVariant>("notified");
        QTest::addColumn<bool>("fires");
        const QVariantList list{QVariantMap{{"id", "a"}, {"v", 1}}};
        const QVariantMap before{{"mode", "real"}, {"n", 1}, {"list", list}, {"none", QVariant()}};
        const auto row = [&](const char *name, const QVariantMap &notified, bool fires) {
            QTest::newRow(name) << QVariant(before) << QVariant(notified) << fires;
        };
        row("the same", before, false);
        row("one key, the same", mode("real"), false);
        row("one key, another value", mode("simu"), true);
        row("the same number as a real", {{"n", 1.0}}, false);
        row("a number that became text", {{"n", "1"}}, true);
        row("a new key", {{"new", QVariant()}}, true);
        row("the same list of maps", {{"list", list}}, false);
        row("another list of maps", {{"list", QVariantList{QVariantMap{{"id", "a"}, {"v", 2}}}}},
            true);
        QTest::newRow("the same plain value") << QVariant(5) << QVariant(5) << false;
        QTest::newRow("another plain value") << QVariant(5) << QVariant(6) << true;
        QTest::newRow("a map that became a plain value") << QVariant(before) << QVariant(6) << true;
    }
    void changedMeansChanged()
    {
        QFETCH(QVariant, before);
        QFETCH(QVariant, notified);
        m_link->node(node, before);
        m_service->watch(this, node, true);
        QSignalSpy changed(m_service->watchNode(node), &ModuleObject::changed);
        emit m_link->notified(node, notified);
        emit m_link->notified(node, notified);
        QTEST(changed.count() == 1, "fires");
        if (!changed.isEmpty())
            QCOMPARE(changed.at(0).at(0), notified); // what was told, not the whole node
        QVariant expected = before;
        if (notified.userType() == QMetaType::QVariantMap) {
            QVariantMap map = before.toMap();
            map.insert(notified.toMap());
            expected = map;
        } else {
            expected = notified;
        }
        ModuleObject wanted("wanted");
        wanted.importFromVariant(nullptr, expected);
        QCOMPARE(m_service->watchNode(node)->toVariant(), wanted.toVariant());
    }
    void unwatchedAndStaleNotificationsAreSilent()
    {
        m_link->node(node, mode("real"));
        QSignalSpy changed(m_service->watchNode(node), &ModuleObject::changed);
        emit m_link->notified(node, mode("simu"));
        m_service->watch(this, node, true);
        m_service->watch(this, node, false);
        emit m_link->notified(node, mode("test_run"));
        m_link->setUp(true);
        QCOMPARE(m_link->log.filter("W ").size(), 1);
        m_service->watch(this, node, true);
        m_link->fail("some", LinkReply::Lost);
        m_service->get(this, "some");
        emit m_link->notified(node, mode("simu")); // still on the way from the lost session
        QCOMPARE(changed.count(), 0);
    }
    void aLostLinkIsKnownAtOnceAndToldLater()
    {
        QCoreApplication::processEvents();
        ModuleObject *leaf = m_service->mobj()->r("connected");
        leaf->watch();
        QSignalSpy changed(leaf, &ModuleObject::changed);
        QSignalSpy told(m_service, &XService::connectedChanged);
        m_link->fail("some", 9); // refused by the controller: the link is well
        m_service->get(this, "some");
        QVERIFY(m_service->isConnected());
        m_link->setUp(false);
        m_link->setUp(true);
        QCoreApplication::processEvents();
        QVERIFY(told.isEmpty()); // over before anybody could hear of it
        m_link->fail("some", LinkReply::TimedOut);
        for (int i = 0; i < 2; ++i)
            m_service->get(this, "some");
        QCOMPARE(leaf->getBool(true), false);
        QVERIFY(told.isEmpty() && changed.isEmpty());
        QCoreApplication::processEvents();
        QCOMPARE(told, QList<QList<QVariant>>{{false}});
        QVERIFY(changed.size() == 1 && !changed.at(0).at(0).toBool());
    }
    void comingBackHasAnOrder()
    {
        m_link->node(node, mode("real"));
        m_service->watch(this, node, true);
        m_link->setUp(false);
        m_link->node(node, mode("simu"));
        m_link->node("orbo.project", QVariantMap{{"tool", "t2"}});
        m_link->log.clear();
        QStringList order;
        const auto note = [&](const QString &what) {
            order << what << (m_service->isConnected() ? "connected" : "not connected")
                  << m("orbo.project.tool")->getString();
        };
        m_link->duringCall = [&](const tessa::LinkRequest &request) {
            if (request.kind == FakeLink::Kind::Watch)
                order << (m_service->isConnected() ? "too early" : "subscribed");
        };
        connect(m_manager, &tessa::ControllerManager::rcConnected, this,
                [&] { note("rcConnected"); });
        connect(m_service->watchNode(node), &ModuleObject::changed, this, [&] { note("changed"); });
        m_link->setUp(true);
        m_manager->disconnect(this);
        QCOMPARE(order,
                 QStringList({"subscribed", "rcConnected", "connected", "t2", "changed",
                              "connected", "t2"}));
    }
    void aLostLinkHidesNoChange_data()
    {
        QTest::addColumn<QVariant>("after");
        QTest::addColumn<int>("fires");
        QTest::newRow("the same after all") << QVariant(mode("real")) << 0;
        QTest::newRow("changed meanwhile") << QVariant(mode("simu")) << 1;
        QTest::newRow("gone meanwhile") << QVariant() << 1;
    }
    void aLostLinkHidesNoChange()
    {
        QFETCH(QVariant, after);
        m_link->node(node, mode("test_run"));
        m_service->watch(this, node, true);
        m_service->watch(this, "late", true);
        emit m_link->notified(node, mode("real"));
        QSignalSpy changed(m_service->watchNode(node), &ModuleObject::changed);
        m_link->setUp(false);
        m_service->watch(this, "asked.while.down", true);
        QSignalSpy first(m_service->watchNode("asked.while.down"), &ModuleObject::changed);
        m_link->node(node, after);
        m_link->node("asked.while.down", 5);
        m_link->setUp(true);
        QTEST(changed.count(), "fires");
        QCOMPARE(first.count(), 0);
        QCOMPARE(m_service->watchNode("asked.while.down")->getInt(), 5);
    }
    void losingTheLinkWhileComingUpTellsNobody()
    {
        m_service->watch(this, node, true);
        for (const char *path : {"arc_weld.weld_mode", "orbo.project"}) {
            m_link->setUp(false);
            m_link->answers.clear();
            m_link->fail(path, LinkReply::TimedOut);
            QSignalSpy back(m_manager, &tessa::ControllerManager::rcConnected);
            m_link->setUp(true);
            QVERIFY(back.isEmpty() && !m_service->isConnected());
        }
    }
    void anotherLinkTakesOver()
    {
        m_link->node(node, mode("real"));
        m_service->watch(this, node, true);
        QSignalSpy changed(m_service->watchNode(node), &ModuleObject::changed);
        auto other = std::make_unique<FakeLink>();
        FakeLink *link = other.get();
        link->up = true;
        link->node(node, mode("simu"));
        m_host->setLink(std::move(other));
        QVERIFY(m_service->isConnected());
        QCOMPARE(changed.count(), 1);
        QVERIFY(link->log.contains("W " + node));
    }

private:
    QTemporaryDir m_folder;
    std::unique_ptr<tessa::Host> m_host;
    FakeLink *m_link = nullptr;
    XService *m_service = nullptr;
    tessa::ControllerManager *m_manager = nullptr;
};

QTEST_MAIN(tst_XService)
#include "tst_xservice.moc"
