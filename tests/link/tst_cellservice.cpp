#include <QSignalSpy>
#include <QtTest>

#include "broker.h"
#include "cell.h"
#include "controller/names.h"
#include "link/mqttlink.h"
#include "rawclient.h"

namespace names = controller::names;
using controller::Reply;
using links::CellService;
using links::MqttLink;
using links::MqttMessage;
using RequestKind = controller::Request::Kind;

namespace {

constexpr auto set = RequestKind::Set;
constexpr auto get = RequestKind::Get;
constexpr auto command = RequestKind::Command;

Broker &broker()
{
    static Broker one;
    return one;
}

controller::Request toReal()
{
    return {command, setMode, {}, mode("real")};
}

/// The cell, and somebody who greeted it.
struct Scene
{
    Cell cell{Cell::options(broker().as("cell"))};
    RawClient raw;

    explicit Scene(const QString &user = QStringLiteral("anna"))
        : raw(broker().as(user), user)
    {
        if (!raw.greet())
            qFatal("the cell does not greet");
    }
    QString currentMode()
    {
        const QVariant value = raw.exchange(raw.next({get, modeNode}))->value;
        return value.toMap().value("mode").toString();
    }
};

struct Pendant
{
    MqttLink link;
    QSignalSpy problems{&link, &MqttLink::problem};

    explicit Pendant(const QString &user)
        : link({broker().as(user), "cell"})
    {
        link.open();
        (void)QTest::qWaitFor([this] { return link.isUp(); }, patient);
    }
    LinkReply call(Kind kind, const QString &path, const QString &key = {},
                   const QVariant &payload = {})
    {
        return link.call({kind, path, key, payload}, patient);
    }
    int run(const QString &path, const QVariant &payload = {})
    {
        return call(Kind::Command, path, {}, payload).code;
    }
    QString holder()
    {
        return call(Kind::Get, names::control).value.toMap().value("user").toString();
    }
    QString lastProblem()
    {
        (void)QTest::qWaitFor([this] { return !problems.isEmpty(); }, patient);
        return problems.isEmpty() ? QString() : problems.takeLast().at(0).toString();
    }
};

} // namespace

/// A cell in front of clients that do as they like, and of several pendants.
class tst_CellService : public QObject
{
    Q_OBJECT
private slots:
    void requestsBearRepeating();
    void whatIsOldOrStrangeIsDiscarded_data();
    void whatIsOldOrStrangeIsDiscarded();
    void aCommandLeftLyingAboutIsNotCarriedOut();
    void whatIsNoRequestIsRefused_data();
    void whatIsNoRequestIsRefused();
    void anOperatorReachesNoFurther();
    void theBrokerKeepsUsersApart();
    void whoIsUnknownIsNotGreeted();
    void oneHoldsControl();
    void twoEditors();
};

void tst_CellService::requestsBearRepeating()
{
    Scene scene;
    const QString name = QStringLiteral("arcondata1");
    const MqttMessage write = scene.raw.next({set, arcOn, name, file(name, 1)});
    for (int times = 0; times < 3; ++times) {
        const auto reply = scene.raw.exchange(write);
        QVERIFY(reply && reply->ok());
        QCOMPARE(*reply->revision, 1);
    }
    QCOMPARE(*scene.raw.exchange(scene.raw.next({get, arcOn, name}))->revision, 1);
    QCOMPARE(scene.cell.refused().repeated, 2);
}

void tst_CellService::whatIsOldOrStrangeIsDiscarded_data()
{
    QTest::addColumn<int>("what");
    QTest::newRow("nobody waits any more") << 0;
    QTest::newRow("overtaken by a later one") << 1;
    QTest::newRow("of another session") << 2;
    QTest::newRow("of another user's session") << 3;
    QTest::newRow("answer to somebody else") << 4;
    QTest::newRow("answer nowhere") << 5;
}

void tst_CellService::whatIsOldOrStrangeIsDiscarded()
{
    QFETCH(int, what);
    Scene scene;
    RawClient other(broker().as("bert"), "bert");
    QVERIFY(other.greet());
    MqttMessage message = scene.raw.next(toReal());
    if (what == 0) {
        scene.raw.setDeadline(0);
        message = scene.raw.next(toReal());
        QVERIFY(scene.raw.greet());
        message.properties[0].second = scene.raw.message({}).property("session");
    }
    if (what == 1) {
        scene.raw.setSequence(10);
        QCOMPARE(scene.currentMode(), "test_run");
    }
    if (what == 2)
        message.properties[0].second = "0123456789abcdef";
    if (what == 3)
        message.properties[0].second = other.message({}).property("session");
    if (what == 4)
        message.responseTopic = other.replyTopic();
    if (what == 5)
        message.responseTopic.clear();
    const int before = scene.cell.refused().all();
    scene.raw.publish(message);
    QTRY_COMPARE(scene.cell.refused().all(), before + 1);
    QCOMPARE(scene.currentMode(), "test_run");
}

void tst_CellService::aCommandLeftLyingAboutIsNotCarriedOut()
{
    RawClient raw(broker().as("anna"), "anna");
    MqttMessage message = raw.next(toReal());
    message.retained = true;
    raw.publish(message);
    {
        Scene scene("bert");
        QCOMPARE(scene.cell.refused().stale, 1);
    }
    message.payload.clear();
    raw.publish(message);
}

void tst_CellService::whatIsNoRequestIsRefused_data()
{
    QTest::addColumn<QByteArray>("payload");
    const auto deep = [](int levels) {
        return QByteArray(R"({"kind":"get","path":"a","payload":)") + QByteArray(levels, '[')
            + QByteArray(levels, ']') + '}';
    };
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("no JSON") << QByteArray("{kind}");
    QTest::newRow("a list") << QByteArray("[]");
    QTest::newRow("cut off") << QByteArray(R"({"kind":"get","pa)");
    QTest::newRow("no such kind") << QByteArray(R"({"kind":"format"})");
    QTest::newRow("a number for a text") << QByteArray(R"({"kind":"get","path":7})");
    QTest::newRow("a text for a number")
        << QByteArray(R"({"kind":"get","path":"a","revision":"1"})");
    QTest::newRow("no UTF-8") << QByteArray("{\"kind\":\"get\",\"path\":\"\xff\xfe\"}");
    QTest::newRow("no number") << QByteArray(R"({"kind":"get","path":"a","payload":NaN})");
    QTest::newRow("no end") << QByteArray(R"({"kind":"get","path":"a","payload":1e999})");
    QTest::newRow("too deep") << deep(20);
    QTest::newRow("far too deep") << deep(100000);
    QTest::newRow("too long") << QByteArray(R"({"kind":"get","path":")") + QByteArray(300000, 'a')
            + "\"}";
}

void tst_CellService::whatIsNoRequestIsRefused()
{
    QFETCH(QByteArray, payload);
    Scene scene;
    MqttMessage message = scene.raw.next({});
    message.payload = payload;
    const auto reply = scene.raw.exchange(message);
    QVERIFY(reply);
    QCOMPARE(reply->code, int(controller::BadPayload));
    QCOMPARE(scene.cell.refused().malformed, 1);
    QCOMPARE(scene.currentMode(), "test_run");
}

void tst_CellService::anOperatorReachesNoFurther()
{
    Scene scene("bert");
    const QSet<QString> writable{"arc_weld.arcon_param",  "arc_weld.weld_param",
                                 "arc_weld.arcoff_param", "arc_weld.weave_param",
                                 "arc_weld.seg_param",    names::runningParam,
                                 names::welderStateRate,  names::toolPage};
    controller::Faults faults;
    controller::Journal journal;
    const auto store = controller::Store::inMemory();
    const controller::Controller model(*store, faults, journal, controller::steadyClock());
    QStringList nodes = model.nodes().keys();
    nodes << names::control << "arc_weld.some_day"
          << ""
          << "#";
    for (const QString &node : qAsConst(nodes)) {
        const int code = scene.raw.ask({set, node, {}, QVariantMap{{"a", 1}}});
        QVERIFY2((code == controller::NotAllowed) != writable.contains(node), qPrintable(node));
    }
    for (const QString &path :
         {names::setAnticollision, names::setClampingTorchMode, names::setWelder,
          names::loadProgram, names::removePrefix + "weld_param", QString("arc_weld.some_day")})
        QCOMPARE(scene.raw.ask({command, path}), int(controller::NotAllowed));
    QCOMPARE(scene.raw.ask({get, names::audit}), int(controller::NotAllowed));
    QCOMPARE(scene.raw.ask(toReal()), 0);
}

void tst_CellService::theBrokerKeepsUsersApart()
{
    Scene scene;
    RawClient bert(broker().as("bert"), "bert");
    QVERIFY(bert.greet());
    const links::wire::Topics &topics = scene.raw.topics;
    const MqttMessage anna = scene.raw.next(toReal());
    MqttMessage forged = anna; // with all that anna knows, but by bert
    bert.publish(forged);
    for (const QString &topic : {topics.value(modeNode), topics.status(), topics.alive(),
                                 scene.raw.replyTopic(), QString("welmo/1/other/value/a")}) {
        forged.topic = topic;
        forged.payload = "{\"value\":\"forged\"}";
        bert.publish(forged);
    }
    QCOMPARE(bert.ask({get, modeNode}), 0); // all of it has reached the broker
    QCOMPARE(scene.currentMode(), "test_run");
    QVERIFY(!scene.raw.others().values().contains("{\"value\":\"forged\"}"));
    QVERIFY(scene.raw.others().contains(topics.value(modeNode)));
}

void tst_CellService::whoIsUnknownIsNotGreeted()
{
    auto options = Cell::options(broker().as("cell"));
    options.roles = {};
    const Cell cell(options);
    MqttLink link({broker().as("anna"), "cell"});
    QSignalSpy problems(&link, &MqttLink::problem);
    link.open();
    QTRY_VERIFY_WITH_TIMEOUT(!problems.isEmpty(), patient);
    QVERIFY(problems.last().at(0).toString().contains("anna"));
    QVERIFY(!link.isUp());
}

void tst_CellService::oneHoldsControl()
{
    const Cell cell(Cell::options(broker().as("cell")));
    Pendant vera("vera");
    auto anna = std::make_unique<Pendant>("anna");
    Pendant bert("bert");
    QCOMPARE(bert.holder(), "anna");
    QCOMPARE(bert.run(setMode, mode("real")), int(controller::NotInControl));
    QVERIFY(bert.lastProblem().contains("anna"));
    QCOMPARE(bert.run(names::takeControl), int(controller::NotInControl));
    for (Pendant *any : {&vera, &bert}) {
        QCOMPARE(any->run(names::stopProgram), 0);
        QCOMPARE(any->run(names::stopMove), 0);
    }
    QCOMPARE(anna->run(setMode, mode("real")), 0);

    QSignalSpy news(&bert.link, &MqttLink::notified);
    QCOMPARE(bert.call(Kind::Watch, names::control).code, 0);
    QCOMPARE(anna->run(names::giveControl), 0);
    QTRY_COMPARE_WITH_TIMEOUT(news.count(), 1, patient);
    QCOMPARE(vera.run(names::takeControl), int(controller::NotAllowed));
    QCOMPARE(bert.run(names::takeControl), 0);
    QCOMPARE(anna->run(setMode, mode("simu")), int(controller::NotInControl));
    QCOMPARE(bert.run(names::giveControl), 0);
    QCOMPARE(anna->run(names::takeControl), 0);
    anna.reset(); // switched off with control in its hand
    QTRY_COMPARE_WITH_TIMEOUT(bert.holder(), "", patient);
    QCOMPARE(bert.run(names::takeControl), 0);
}

void tst_CellService::twoEditors()
{
    const Cell cell(Cell::options(broker().as("cell")));
    Pendant anna("anna");
    Pendant bert("bert");
    const QString name = QStringLiteral("arcondata1");
    const auto read = [&](Pendant &pendant) {
        return pendant.call(Kind::Get, arcOn, name).value.toMap().value("current").toInt();
    };
    const auto save = [&](Pendant &pendant, int current) {
        return pendant.call(Kind::Set, arcOn, name, file(name, current)).code;
    };
    read(anna);
    read(bert);
    QCOMPARE(save(bert, 10), 0);
    QCOMPARE(save(bert, 11), 0);
    QCOMPARE(save(anna, 20), int(controller::Conflict));
    QVERIFY(anna.lastProblem().contains("bert"));
    QCOMPARE(read(anna), 11);
    QCOMPARE(save(anna, 20), 0);
    QCOMPARE(save(bert, 12), int(controller::Conflict));

    const QVariantList audit =
        anna.call(Kind::Get, names::audit).value.toMap().value("entries").toList();
    QCOMPARE(audit.size(), 3);
    const QVariantMap last = audit.last().toMap();
    QCOMPARE(last.value("user").toString(), "anna");
    QCOMPARE(last.value("key").toString(), name);
    QCOMPARE(last.value("revision").toInt(), 3);
    QCOMPARE(last.value("old").toMap().value("current").toInt(), 11);
    QCOMPARE(last.value("new").toMap().value("current").toInt(), 20);
    QVERIFY(!last.value("time").toString().isEmpty());
}

QTEST_GUILESS_MAIN(tst_CellService)
#include "tst_cellservice.moc"
