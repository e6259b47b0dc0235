#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include "fakelink.h"
#include "support/rows.h"
#include "tessa/host.h"

using kelp::ModuleObject;
using tessa::LinkReply;
using testsupport::Rows;

namespace {

const QString node = QStringLiteral("arc_weld.weld_mode");

QVariantMap mode(const char *name)
{
    return {{"mode", QString::fromLatin1(name)}};
}

/// A host that is connected to a controller of the test's.
struct Bench
{
    QTemporaryDir folder;
    tessa::Host host{tessa::HostOptions{folder.path()}};
    FakeLink *link = new FakeLink;
    XService *service = xservice();
    tessa::ControllerManager *manager = tessa::ManagerHelper::instance()->controllerManager();

    Bench()
    {
        host.setLink(std::unique_ptr<FakeLink>(link));
        if (!link->opened || service->isConnected())
            qFatal("a link is opened, and not up before it says so");
        link->setUp(true);
        link->log.clear();
    }
    /// The local copy of the node, watched; what the controller has there first.
    ModuleObject *watch(const QVariant &first)
    {
        link->node(node, first);
        service->watch(nullptr, node, true);
        return service->watchNode(node);
    }
};

} // namespace

/// tessa: how the module reads, writes and watches the controller, and what a lost link means.
class tst_XService : public QObject
{
    Q_OBJECT

private slots:
    void anAnswerTellsCodeAndContent()
    {
        const QVariantMap map{{"a", 1}, {"b", 2}};
        const Rows<LinkReply, int, int, QStringList> rows{
            {"a map", LinkReply{0, map}, 0, 0, QStringList{"a", "b"}},
            {"nothing there", LinkReply{0, {}}, 0, 0, QStringList()},
            {"a plain value", LinkReply{0, 5}, 5, 0, QStringList()},
            {"refused", LinkReply{7, map}, 7, 7, QStringList()},
            {"timed out", LinkReply{LinkReply::TimedOut, {}}, LinkReply::TimedOut,
             LinkReply::TimedOut, QStringList()},
        };
        for (const auto &[name, reply, read, written, children] : rows) {
            Bench bench;
            ModuleObject payload("key");
            bench.link->answers = {{"some", reply}, {"some key", reply}};
            const auto answer = bench.service->get(this, "some");
            QCOMPARE(answer->getInt(0), read);
            QCOMPARE(answer->cmobjNames(), children);
            bench.link->up = true;
            QCOMPARE(bench.service->get(this, "some", "key")->getInt(0), read);
            bench.link->up = true;
            QCOMPARE(bench.service->execCommand(this, "some")->getInt(0), written);
            bench.link->up = true;
            QCOMPARE(bench.service->set(this, "some", "key", &payload)->getInt(0), written);
        }
    }
    void everyFailureHasACode()
    {
        for (const QString how : {"down", "none", "lost on the way"}) {
            Bench bench;
            bench.link->fail("some", LinkReply::Lost);
            bench.link->fail("some key", LinkReply::Lost);
            bench.link->up = how != "down";
            if (how == "none")
                bench.host.setLink(nullptr);
            ModuleObject payload("key");
            QVERIFY(bench.service->get(this, "some")->getInt(0) < 0);
            QVERIFY(bench.service->set(this, "some", &payload)->getInt(0) < 0);
            QVERIFY(bench.service->set(this, "some", "key", &payload)->getInt(0) < 0);
            QVERIFY(bench.service->execCommand(nullptr, "some", QVariant(1))->getInt(0) < 0);
            QVERIFY(bench.manager->execRequest("some", "", {}, true, 5)->getInt(0) < 0);
            QVERIFY(bench.manager->request("some", nullptr, 5)->getInt(0) < 0);
            QVERIFY(!bench.service->isConnected());
        }
    }
    void anAnswerBelongsToItsCaller()
    {
        Bench bench;
        bench.link->node("some", mode("real"));
        const auto first = bench.service->get(this, "some");
        first->set(nullptr, "mode", "other");
        QCOMPARE(bench.service->get(this, "some")->r("mode")->getString(), QString("real"));
        QCOMPARE(first->r("mode")->getString(), QString("other"));
        QCOMPARE(first->pmobj(), nullptr);
    }
    void requestsReachTheController()
    {
        Bench bench;
        const auto sent = [&bench] { return bench.link->payload; };
        const QVariant feed = QVariantMap{{"feed", true}};
        ModuleObject payload("wire_feel");
        payload.set(nullptr, "feed", true);
        bench.service->get(this, "n");
        bench.service->get(this, "n", "k");
        bench.service->set(this, "n", &payload);
        QCOMPARE(sent(), feed);
        bench.service->set(this, "n", "k", &payload);
        bench.service->execCommand(nullptr, "c", &payload);
        QCOMPARE(sent(), feed);
        bench.service->execCommand(nullptr, "c", QVariant(QStringList{"a"}));
        QCOMPARE(sent(), QVariant(QStringList{"a"}));
        bench.service->execCommand(nullptr, "c");
        QVERIFY(!sent().isValid());
        QCOMPARE(bench.link->timeout, XService::defaultTimeoutMs);
        bench.manager->execRequest("c", "t", QJsonObject{{"tool", "x"}}, true, 1700);
        QCOMPARE(bench.link->timeout, 1700);
        const QVariantMap request{
            {"target", "t"}, {"parameters", QVariantMap{{"tool", "x"}}}, {"wait", true}};
        QCOMPARE(sent(), QVariant(request));
        // A command's local object is one and keeps what was set.
        bench.manager->cmdItemMobj("stop", "request")->set(this, "stoptype", 1);
        bench.manager->cmdItemMobj("stop", "request")->set(this, "b", 2);
        bench.manager->request("stop", nullptr, 4800);
        QCOMPARE(sent(), QVariant(QVariantMap{{"stoptype", 1}, {"b", 2}}));
        QCOMPARE(bench.link->timeout, 4800);
        bench.manager->request("stop", &payload, 5);
        QCOMPARE(sent(), feed);
        QCOMPARE(bench.link->log.mid(0, 9).join(", "),
                 QString("G n, G n k, S n, S n k, C c wire_feel, C c, C c, C c, C stop request"));
    }
    void aFirstSubscriptionIsSilent()
    {
        Bench bench;
        QSignalSpy changed(bench.service->watchNode(node), &ModuleObject::changed);
        const ModuleObject *copy = bench.watch(mode("real"));
        bench.watch(mode("real"));
        QCOMPARE(bench.link->log, QStringList("W " + node));
        QCOMPARE(copy->r("mode")->getString(), QString("real"));
        bench.link->fail("refused", 7);
        bench.service->watch(this, "refused", true);
        QSignalSpy later(bench.service->watchNode("refused"), &ModuleObject::changed);
        for (const char *name : {"real", "simu"})
            emit bench.link->notified("refused", mode(name));
        QVERIFY(changed.isEmpty() && later.count() == 1); // the first one filled the copy
    }
    void changedMeansChanged()
    {
        const auto listWith = [](int value) {
            return QVariantList{QVariantMap{{"id", "a"}, {"v", value}}};
        };
        const QVariantMap before{{"mode", "real"}, {"n", 1}, {"list", listWith(1)}, {"none", {}}};
        const Rows<QVariant, QVariant, bool> rows{
            {"the same", before, before, false},
            {"one key, the same", before, mode("real"), false},
            {"one key, another value", before, mode("simu"), true},
            {"the same number as a real", before, QVariantMap{{"n", 1.0}}, false},
            {"a number that became text", before, QVariantMap{{"n", "1"}}, true},
            {"a new key", before, QVariantMap{{"new", QVariant()}}, true},
            {"the same list of maps", before, QVariantMap{{"list", listWith(1)}}, false},
            {"another list of maps", before, QVariantMap{{"list", listWith(2)}}, true},
            {"the same plain value", 5, 5, false},
            {"another plain value", 5, 6, true},
            {"a map that became a plain value", before, 6, true},
        };
        for (const auto &[name, first, notified, fires] : rows) {
            Bench bench;
            ModuleObject *copy = bench.watch(first);
            QSignalSpy changed(copy, &ModuleObject::changed);
            for (int i = 0; i < 2; ++i)
                emit bench.link->notified(node, notified);
            QCOMPARE(changed.count(), fires ? 1 : 0);
            if (fires)
                QCOMPARE(changed.at(0).at(0), notified); // what was told, not the whole node
            QVariantMap merged = first.toMap();
            merged.insert(notified.toMap());
            ModuleObject wanted("wanted");
            wanted.importFromVariant(
                nullptr,
                merged.isEmpty() || notified.toMap().isEmpty() ? notified : QVariant(merged));
            QCOMPARE(copy->toVariant(), wanted.toVariant());
        }
    }
    void unwatchedAndStaleNotificationsAreSilent()
    {
        Bench bench;
        QSignalSpy changed(bench.service->watchNode(node), &ModuleObject::changed);
        emit bench.link->notified(node, mode("simu"));
        bench.watch(mode("real"));
        bench.service->watch(this, node, false);
        emit bench.link->notified(node, mode("test_run"));
        bench.link->setUp(true);
        QCOMPARE(bench.link->log.filter("W ").size(), 1);
        bench.watch(mode("real"));
        bench.link->fail("some", LinkReply::Lost);
        bench.service->get(this, "some");
        emit bench.link->notified(node, mode("simu")); // still on the way from the lost session
        QCOMPARE(changed.count(), 0);
    }
    void aLostLinkIsKnownAtOnceAndToldLater()
    {
        Bench bench;
        QCoreApplication::processEvents();
        ModuleObject *leaf = bench.service->mobj()->r("connected");
        leaf->watch();
        QSignalSpy changed(leaf, &ModuleObject::changed);
        QSignalSpy told(bench.service, &XService::connectedChanged);
        bench.link->fail("some", 9); // refused by the controller: the link is well
        bench.service->get(this, "some");
        QVERIFY(bench.service->isConnected());
        bench.link->setUp(false);
        bench.link->setUp(true);
        QCoreApplication::processEvents();
        QVERIFY(told.isEmpty()); // over before anybody could hear of it
        bench.link->fail("some", LinkReply::TimedOut);
        for (int i = 0; i < 2; ++i)
            bench.service->get(this, "some");
        QCOMPARE(leaf->getBool(true), false);
        QVERIFY(told.isEmpty() && changed.isEmpty());
        QCoreApplication::processEvents();
        QCOMPARE(told, QList<QList<QVariant>>{{false}});
        QVERIFY(changed.size() == 1 && !changed.at(0).at(0).toBool());
    }
    void comingBackHasAnOrder()
    {
        Bench bench;
        ModuleObject *copy = bench.watch(mode("real"));
        bench.link->setUp(false);
        bench.link->node(node, mode("simu"));
        bench.link->node("orbo.project", QVariantMap{{"tool", "t2"}});
        QStringList order;
        const auto note = [&](const QString &what) {
            order << what << (bench.service->isConnected() ? "connected" : "not connected")
                  << m("orbo.project.tool")->getString();
        };
        bench.link->duringCall = [&](const tessa::LinkRequest &request) {
            if (request.kind == FakeLink::Kind::Watch)
                order << (bench.service->isConnected() ? "too early" : "subscribed");
        };
        connect(bench.manager, &tessa::ControllerManager::rcConnected, bench.service,
                [&] { note("rcConnected"); });
        connect(copy, &ModuleObject::changed, bench.service, [&] { note("changed"); });
        bench.link->setUp(true);
        QCOMPARE(order,
                 QStringList({"subscribed", "rcConnected", "connected", "t2", "changed",
                              "connected", "t2"}));
    }
    void aLostLinkHidesNoChange()
    {
        const Rows<QVariant, int> rows{
            {"the same after all", mode("real"), 0},
            {"changed meanwhile", mode("simu"), 1},
            {"gone meanwhile", QVariant(), 1},
        };
        for (const auto &[name, after, fires] : rows) {
            Bench bench;
            ModuleObject *copy = bench.watch(mode("test_run"));
            emit bench.link->notified(node, mode("real"));
            QSignalSpy changed(copy, &ModuleObject::changed);
            bench.link->setUp(false);
            bench.service->watch(this, "asked.while.down", true);
            ModuleObject *asked = bench.service->watchNode("asked.while.down");
            QSignalSpy first(asked, &ModuleObject::changed);
            bench.link->node(node, after);
            bench.link->node("asked.while.down", 5);
            bench.link->setUp(true);
            QCOMPARE(changed.count(), fires);
            QCOMPARE(first.count(), 0);
            QCOMPARE(asked->getInt(), 5);
        }
    }
    void losingTheLinkWhileComingUpTellsNobody()
    {
        Bench bench;
        bench.watch(mode("real"));
        for (const QString &path : {node, QString("orbo.project")}) {
            bench.link->setUp(false);
            bench.link->answers.clear();
            bench.link->fail(path, LinkReply::TimedOut);
            QSignalSpy back(bench.manager, &tessa::ControllerManager::rcConnected);
            bench.link->setUp(true);
            QVERIFY(back.isEmpty() && !bench.service->isConnected());
        }
    }
    void anotherLinkTakesOver()
    {
        Bench bench;
        QSignalSpy changed(bench.watch(mode("real")), &ModuleObject::changed);
        auto other = std::make_unique<FakeLink>();
        FakeLink *link = other.get();
        link->up = true;
        link->node(node, mode("simu"));
        bench.host.setLink(std::move(other));
        QVERIFY(bench.service->isConnected());
        QCOMPARE(changed.count(), 1);
        QVERIFY(link->log.contains("W " + node));
    }
};

QTEST_MAIN(tst_XService)
#include "tst_xservice.moc"
