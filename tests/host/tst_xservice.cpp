#include <QtTest>

#include "fakelink.h"
#include "support/datarows.h"
#include "tessa/host.h"

using kelp::ModuleObject;
using tessa::LinkReply;
using namespace testsupport;

namespace {

const QString node = QStringLiteral("arc_weld.weld_mode");

QVariantMap mode(const char *name)
{
    return {{"mode", QString::fromLatin1(name)}};
}

/// A host that is connected to a fake controller.
struct Fixture
{
    QTemporaryDir folder;
    tessa::Host host{tessa::HostOptions{folder.path()}};
    FakeLink *link = new FakeLink;
    XService *service = xservice();
    ModuleObject payload{"wire_feel"};
    tessa::ControllerManager *manager = tessa::ManagerHelper::instance()->controllerManager();

    Fixture()
    {
        host.setLink(std::unique_ptr<FakeLink>(link));
        if (!link->opened || service->isConnected())
            qFatal("a link is opened, and not up before it says so");
        link->setUp(true);
        link->log.clear();
        payload.set(nullptr, "feed", true);
    }
    /// Watches the node, whose value is @p first, and returns the local copy.
    ModuleObject *watch(const QVariant &first)
    {
        link->node(node, first);
        service->watch(nullptr, node, true);
        return service->watchNode(node);
    }
};

const std::vector<Row<XService::Answer (*)(Fixture &)>> calls{
    {"read", [](Fixture &b) { return b.service->get(nullptr, "some"); }},
    {"read an entry", [](Fixture &b) { return b.service->get(nullptr, "some", "key"); }},
    {"write", [](Fixture &b) { return b.service->set(nullptr, "some", &b.payload); }},
    {"write an entry",
     [](Fixture &b) { return b.service->set(nullptr, "some", "key", &b.payload); }},
    {"command", [](Fixture &b) { return b.service->execCommand(nullptr, "some", &b.payload); }},
    {"request",
     [](Fixture &b) {
         return b.manager->execRequest("some", "t", QJsonObject{{"tool", "x"}}, true, 5);
     }},
    {"item", [](Fixture &b) { return b.manager->request("some", &b.payload, 5); }},
};

} // namespace

/// tessa: a module reads, writes and watches the controller, also over a link that gets lost.
class tst_XService : public QObject
{
    Q_OBJECT

private slots:
    void anAnswerTellsCodeAndContent_data()
    {
        const QVariantMap map{{"a", 1}, {"b", 2}};
        // the codes of a read and of other requests; the children of a read and of others
        const LinkReply timedOut{LinkReply::TimedOut, {}};
        addRows<LinkReply, int, int, QString, QString>(
            {{"a map", {0, map}, 0, 0, "a b", "a b"},
             {"nothing there", {0, {}}, 0, 0, "", ""},
             {"a plain value", {0, 5}, 5, 0, "", ""},
             {"refused", {7, map}, 7, 7, "", "a b"},
             {"timed out", timedOut, timedOut.code, timedOut.code, "", ""}});
    }
    void anAnswerTellsCodeAndContent()
    {
        const auto &[name, reply, read, written, children, told] =
            currentRow<LinkReply, int, int, QString, QString>();
        for (const auto &[way, call] : calls) {
            Fixture fixture;
            fixture.link->answers = {
                {"some", reply}, {"some key", reply}, {"some wire_feel", reply}};
            const auto answer = call(fixture);
            QCOMPARE(answer->pmobj(), nullptr); // the caller owns it
            QCOMPARE(answer->getInt(0), way.startsWith("read") ? read : written);
            QCOMPARE(answer->cmobjNames().join(' '), way.startsWith("read") ? children : told);
            for (const bool down : {true, false}) { // every failure has a code
                fixture.link->up = !down;
                if (!down)
                    fixture.host.setLink(nullptr);
                QVERIFY(call(fixture)->getInt(0) < 0);
                QVERIFY(!fixture.service->isConnected());
            }
        }
    }
    void requestsReachTheController()
    {
        Fixture fixture;
        for (const auto &[way, call] : calls)
            call(fixture);
        fixture.service->execCommand(nullptr, "c", QVariant(QStringList{"a"}));
        fixture.service->execCommand(nullptr, "c");
        // A command has one local object, which keeps what was set.
        fixture.manager->cmdItemMobj("stop", "request")->set(this, "stoptype", 1);
        fixture.manager->cmdItemMobj("stop", "request")->set(this, "b", 2);
        fixture.manager->request("stop", nullptr, 4800);
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
        QCOMPARE(fixture.link->log, expected);
    }
    void aFirstSubscriptionIsSilent()
    {
        Fixture fixture;
        QSignalSpy changed(fixture.service->watchNode(node), &ModuleObject::changed);
        const ModuleObject *copy = fixture.watch(mode("real"));
        fixture.watch(mode("real"));
        QCOMPARE(fixture.link->log, QStringList("W " + node));
        QCOMPARE(copy->r("mode")->getString(), QString("real"));
        fixture.link->fail("refused", 7);
        fixture.service->watch(this, "refused", true);
        QSignalSpy later(fixture.service->watchNode("refused"), &ModuleObject::changed);
        for (const char *name : {"real", "simu"})
            emit fixture.link->notified("refused", mode(name));
        QVERIFY(changed.isEmpty() && later.count() == 1); // the first value fills the copy
    }
    void changedMeansChanged_data()
    {
        const auto listWith = [](int value) {
            return QVariantList{QVariantMap{{"id", "a"}, {"v", value}}};
        };
        const QVariantMap before{{"mode", "real"}, {"n", 1}, {"list", listWith(1)}, {"none", {}}};
        addRows<QVariant, QVariant, bool>(
            {{"the same", before, before, false},
             {"one key, another value", before, mode("simu"), true},
             {"the same number as a real", before, QVariantMap{{"n", 1.0}}, false},
             {"a new key", before, QVariantMap{{"new", QVariant()}}, true},
             {"another list of maps", before, QVariantMap{{"list", listWith(2)}}, true},
             {"a map that became a plain value", before, 6, true}});
    }
    void changedMeansChanged()
    {
        const auto &[name, first, notified, fires] = currentRow<QVariant, QVariant, bool>();
        Fixture fixture;
        ModuleObject *copy = fixture.watch(first);
        QSignalSpy changed(copy, &ModuleObject::changed);
        for (int i = 0; i < 2; ++i)
            emit fixture.link->notified(node, notified);
        QCOMPARE(changed.count(), fires ? 1 : 0);
        if (fires)
            QCOMPARE(changed.at(0).at(0), notified); // only the told values
        QCOMPARE(copy->hasCmobj("none"), notified.type() == QVariant::Map); // the others stay
    }
    void unwatchedAndStaleNotificationsAreSilent()
    {
        Fixture fixture;
        QSignalSpy changed(fixture.service->watchNode(node), &ModuleObject::changed);
        emit fixture.link->notified(node, mode("simu"));
        fixture.watch(mode("real"));
        fixture.service->watch(this, node, false);
        emit fixture.link->notified(node, mode("test_run"));
        fixture.link->setUp(true);
        QCOMPARE(fixture.link->log.filter("W " + node).size(), 1);
        fixture.watch(mode("real"));
        fixture.link->fail("some", LinkReply::Lost);
        fixture.service->get(this, "some");
        emit fixture.link->notified(node, mode("simu")); // sent before the link was lost
        QCOMPARE(changed.count(), 0);
    }
    void aLostLinkIsKnownAtOnceAndToldLater()
    {
        Fixture fixture;
        QCoreApplication::processEvents();
        ModuleObject *leaf = fixture.service->mobj()->r("connected");
        leaf->watch();
        QSignalSpy told(leaf, &ModuleObject::changed);
        fixture.link->fail("some", 9); // a refusal does not concern the link
        fixture.service->get(this, "some");
        QVERIFY(fixture.service->isConnected());
        fixture.link->setUp(false);
        fixture.link->setUp(true);
        QCoreApplication::processEvents();
        QVERIFY(told.isEmpty()); // it was up again before anybody was told
        fixture.link->fail("some", LinkReply::TimedOut);
        for (int i = 0; i < 2; ++i)
            fixture.service->get(this, "some");
        QVERIFY(!leaf->getBool(true) && told.isEmpty());
        QCoreApplication::processEvents();
        QVERIFY(told.size() == 1 && !told.at(0).at(0).toBool());
    }
    void comingBackHasAnOrder()
    {
        Fixture fixture;
        ModuleObject *copy = fixture.watch(mode("real"));
        fixture.link->setUp(false);
        fixture.link->node(node, mode("simu"));
        fixture.link->node("orbo.project", QVariantMap{{"tool", "t2"}});
        QStringList order;
        const auto note = [&](const QString &what) {
            order << what << (fixture.service->isConnected() ? "connected" : "not connected")
                  << m("orbo.project.tool")->getString();
        };
        fixture.link->duringCall = [&](const tessa::LinkRequest &request) {
            if (request.kind == FakeLink::Kind::Watch && request.path == node)
                order << (fixture.service->isConnected() ? "too early" : "subscribed");
        };
        connect(fixture.manager, &tessa::ControllerManager::rcConnected, fixture.service,
                [note] { note("rcConnected"); });
        connect(copy, &ModuleObject::changed, fixture.service, [note] { note("changed"); });
        fixture.link->setUp(true);
        QCOMPARE(order,
                 QStringList({"subscribed", "rcConnected", "connected", "t2", "changed",
                              "connected", "t2"}));
    }
    // A told list is complete, so its missing entries are removed; other lists stay.
    void projectNewsReachTheTree()
    {
        Fixture fixture;
        const QVariantMap home{{"id", "home"}, {"name", "home"}};
        const auto points = [](const QVariantList &items) {
            return QVariantMap{{"point", QVariantMap{{"_list", items}}}};
        };
        QVariantMap project = points({home, QVariantMap{{"id", "p1"}, {"name", "p1"}}});
        project["tool"] = QVariantMap{{"_list", QVariantList{QVariantMap{{"id", "torch1"}}}}};
        fixture.link->node("orbo.project", project);
        fixture.link->setUp(false);
        fixture.link->setUp(true);
        m("orbo.project")->watch(true, false);
        QSignalSpy changed(m("orbo.project"), &ModuleObject::changed);
        emit fixture.link->notified("orbo.project", points({home}));
        QCOMPARE(m("orbo.project.point._list")->cmobjNames(), QStringList("home"));
        QVERIFY(!m("orbo.project.tool._list.torch1")->isMissing());
        emit fixture.link->notified("orbo.project", points({home}));
        QCOMPARE(changed.count(), 1);
    }
    void aLostLinkHidesNoChange_data()
    {
        addRows<QVariant, int>({{"the same after all", mode("real"), 0},
                                {"changed meanwhile", mode("simu"), 1},
                                {"gone meanwhile", QVariant(), 1}});
    }
    void aLostLinkHidesNoChange()
    {
        const auto &[name, after, fires] = currentRow<QVariant, int>();
        Fixture fixture;
        ModuleObject *copy = fixture.watch(mode("test_run"));
        emit fixture.link->notified(node, mode("real"));
        QSignalSpy changed(copy, &ModuleObject::changed);
        fixture.link->setUp(false);
        fixture.service->watch(this, "asked.while.down", true);
        ModuleObject *asked = fixture.service->watchNode("asked.while.down");
        QSignalSpy first(asked, &ModuleObject::changed);
        fixture.link->node(node, after);
        fixture.link->node("asked.while.down", 5);
        fixture.link->setUp(true);
        QCOMPARE(changed.count(), fires);
        QVERIFY(first.isEmpty() && asked->getInt() == 5);
    }
    void losingTheLinkWhileComingUpTellsNobody()
    {
        Fixture fixture;
        fixture.watch(mode("real"));
        for (const QString &path : {node, QString("orbo.project")}) {
            fixture.link->setUp(false);
            fixture.link->answers.clear();
            fixture.link->fail(path, LinkReply::TimedOut);
            QSignalSpy back(fixture.manager, &tessa::ControllerManager::rcConnected);
            fixture.link->setUp(true);
            QVERIFY(back.isEmpty() && !fixture.service->isConnected());
        }
    }
};

QTEST_MAIN(tst_XService)
#include "tst_xservice.moc"
