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
    ModuleObject payload{"wire_feel"};
    tessa::ControllerManager *manager = tessa::ManagerHelper::instance()->controllerManager();

    Bench()
    {
        host.setLink(std::unique_ptr<FakeLink>(link));
        if (!link->opened || service->isConnected())
            qFatal("a link is opened, and not up before it says so");
        link->setUp(true);
        link->log.clear();
        payload.set(nullptr, "feed", true);
    }
    /// The local copy of the node, watched; what the controller has there first.
    ModuleObject *watch(const QVariant &first)
    {
        link->node(node, first);
        service->watch(nullptr, node, true);
        return service->watchNode(node);
    }
};

const Rows<XService::Answer (*)(Bench &)> calls{
    {"read", [](Bench &b) { return b.service->get(nullptr, "some"); }},
    {"read an entry", [](Bench &b) { return b.service->get(nullptr, "some", "key"); }},
    {"write", [](Bench &b) { return b.service->set(nullptr, "some", &b.payload); }},
    {"write an entry", [](Bench &b) { return b.service->set(nullptr, "some", "key", &b.payload); }},
    {"command", [](Bench &b) { return b.service->execCommand(nullptr, "some", &b.payload); }},
    {"request",
     [](Bench &b) {
         return b.manager->execRequest("some", "t", QJsonObject{{"tool", "x"}}, true, 5);
     }},
    {"item", [](Bench &b) { return b.manager->request("some", &b.payload, 5); }},
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
            for (const auto &[way, call] : calls) {
                Bench bench;
                bench.link->answers = {
                    {"some", reply}, {"some key", reply}, {"some wire_feel", reply}};
                const auto answer = call(bench);
                QCOMPARE(answer->pmobj(), nullptr); // it belongs to the caller
                QCOMPARE(answer->getInt(0), way.startsWith("read") ? read : written);
                if (way == "read")
                    QCOMPARE(answer->cmobjNames(), children);
            }
        }
    }
    void everyFailureHasACode()
    {
        for (const bool down : {true, false}) {
            for (const auto &[way, call] : calls) {
                Bench bench;
                bench.link->up = !down;
                if (!down)
                    bench.host.setLink(nullptr);
                QVERIFY(call(bench)->getInt(0) < 0);
                QVERIFY(!bench.service->isConnected());
            }
        }
    }
    void requestsReachTheController()
    {
        Bench bench;
        for (const auto &[way, call] : calls)
            call(bench);
        bench.service->execCommand(nullptr, "c", QVariant(QStringList{"a"}));
        bench.service->execCommand(nullptr, "c");
        // A command's local object is one and keeps what was set.
        bench.manager->cmdItemMobj("stop", "request")->set(this, "stoptype", 1);
        bench.manager->cmdItemMobj("stop", "request")->set(this, "b", 2);
        bench.manager->request("stop", nullptr, 4800);
        const QStringList expected{
            "G some",
            "G some key",
            R"(S some {"feed":true})",
            R"(S some key {"feed":true})",
            R"(C some wire_feel {"feed":true})",
            R"(C some {"parameters":{"tool":"x"},"target":"t","wait":true} 5 ms)",
            R"(C some wire_feel {"feed":true} 5 ms)",
            R"(C c ["a"])",
            "C c",
            R"(C stop request {"b":2,"stoptype":1} 4800 ms)"};
        QCOMPARE(bench.link->log, expected);
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
            {"one key, another value", before, mode("simu"), true},
            {"the same number as a real", before, QVariantMap{{"n", 1.0}}, false},
            {"a new key", before, QVariantMap{{"new", QVariant()}}, true},
            {"another list of maps", before, QVariantMap{{"list", listWith(2)}}, true},
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
            QCOMPARE(copy->hasCmobj("none"), notified.type() == QVariant::Map); // not pruned
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
        QCOMPARE(bench.link->log.filter("W " + node).size(), 1);
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
        QSignalSpy told(leaf, &ModuleObject::changed);
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
        QVERIFY(!leaf->getBool(true) && told.isEmpty());
        QCoreApplication::processEvents();
        QVERIFY(told.size() == 1 && !told.at(0).at(0).toBool());
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
            if (request.kind == FakeLink::Kind::Watch && request.path == node)
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
    // A list is told whole: what it lacks is gone. The lists that are not told stay.
    void projectNewsReachTheTree()
    {
        Bench bench;
        const QVariantMap home{{"id", "home"}, {"name", "home"}};
        const auto points = [](const QVariantList &items) {
            return QVariantMap{{"point", QVariantMap{{"_list", items}}}};
        };
        QVariantMap project = points({home, QVariantMap{{"id", "p1"}, {"name", "p1"}}});
        project["tool"] = QVariantMap{{"_list", QVariantList{QVariantMap{{"id", "torch1"}}}}};
        bench.link->node("orbo.project", project);
        bench.link->setUp(false);
        bench.link->setUp(true);
        m("orbo.project")->watch(true, false);
        QSignalSpy changed(m("orbo.project"), &ModuleObject::changed);
        emit bench.link->notified("orbo.project", points({home}));
        QCOMPARE(m("orbo.project.point._list")->cmobjNames(), QStringList("home"));
        QVERIFY(!m("orbo.project.tool._list.torch1")->isMissing());
        emit bench.link->notified("orbo.project", points({home}));
        QCOMPARE(changed.count(), 1);
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
            QVERIFY(first.isEmpty() && asked->getInt() == 5);
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
};

QTEST_MAIN(tst_XService)
#include "tst_xservice.moc"
