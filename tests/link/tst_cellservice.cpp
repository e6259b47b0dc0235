#include <QSignalSpy>

#include "broker.h"
#include "callbench.h"
#include "cell.h"
#include "controller/names.h"
#include "link/mqttlink.h"
#include "rawclient.h"
#include "support/rows.h"

namespace names = controller::names;
using links::MqttLink;
using links::MqttMessage;
using testsupport::Rows;
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
    bool isTestRun() { return raw.ask({get, modeNode}).value == QVariant(mode("test_run")); }
};

struct Pendant : CallBench<MqttLink>
{
    std::unique_ptr<QSignalSpy> problems;

    explicit Pendant(const QString &user)
    {
        link = std::make_unique<MqttLink>(MqttLink::Options{broker().as(user), "cell"});
        problems = std::make_unique<QSignalSpy>(link.get(), &MqttLink::problem);
    }
    int run(const QString &path) { return call(Kind::Command, path).code; }
    QString holder()
    {
        return call(Kind::Get, names::control).value.toMap().value("user").toString();
    }
    bool isTold(const QString &word)
    {
        return QTest::qWaitFor([this] { return !problems->isEmpty(); }, patient)
            && problems->takeLast().at(0).toString().contains(word);
    }
};

} // namespace

/// A cell in front of clients that do as they like, and of several pendants.
class tst_CellService : public QObject
{
    Q_OBJECT
private slots:
    void requestsBearRepeating();
    void whatIsOldOrStrangeIsDiscarded();
    void aCommandLeftLyingAboutIsNotCarriedOut();
    void whatIsNoRequestIsRefused();
    void valuesOfAnEarlierCellAreGone();
    void anOperatorReachesNoFurther();
    void theBrokerKeepsUsersApart();
    void whoIsUnknownIsNotGreeted();
    void oneHoldsControl();
    void twoEditors();
};

void tst_CellService::requestsBearRepeating()
{
    Scene scene;
    const MqttMessage write = scene.raw.next({set, arcOn, fileName(1), file(1, 1)});
    for (int times = 0; times < 3; ++times) {
        const auto reply = scene.raw.exchange(write);
        QVERIFY(reply && reply->ok());
        QCOMPARE(*reply->revision, 1);
    }
    QCOMPARE(*scene.raw.ask({get, arcOn, fileName(1)}).revision, 1);
    QCOMPARE(scene.cell.refused().repeated, 2);
}

void tst_CellService::whatIsOldOrStrangeIsDiscarded()
{
    Scene scene;
    RawClient &raw = scene.raw;
    RawClient other(broker().as("bert"), "bert");
    QVERIFY(other.greet());
    const Rows<std::function<void(MqttMessage &)>> rows{
        {"nobody waits any more",
         [&](MqttMessage &message) {
             const qint64 deadline = std::exchange(raw.deadline, 0);
             message = raw.message(toReal());
             raw.deadline = deadline;
         }},
        {"overtaken by a later one",
         [&](MqttMessage &) {
             raw.ask({get, modeNode});
         }},
        {"of another session", [](MqttMessage &message) { message.properties[0].second = "0123"; }},
        {"of another user's session",
         [&](MqttMessage &message) { message.properties[0].second = other.session; }},
        {"answer to somebody else",
         [&](MqttMessage &message) { message.responseTopic = other.replyTopic(); }},
        {"answer nowhere", [](MqttMessage &message) { message.responseTopic.clear(); }},
    };
    for (const auto &[name, spoil] : rows) {
        MqttMessage message = raw.next(toReal());
        spoil(message);
        const int before = scene.cell.refused().all();
        raw.publish(message);
        QTRY_COMPARE(scene.cell.refused().all(), before + 1);
        QVERIFY(scene.isTestRun());
    }
}

void tst_CellService::aCommandLeftLyingAboutIsNotCarriedOut()
{
    RawClient raw(broker().as("anna"), "anna");
    MqttMessage message = raw.next(toReal());
    message.retained = true;
    raw.publish(message);
    QCOMPARE(Scene("bert").cell.refused().stale, 1);
    message.payload.clear();
    raw.publish(message);
}

void tst_CellService::whatIsNoRequestIsRefused()
{
    const auto beside = [](const QByteArray &rest) {
        return R"({"kind":"get","path":"a",)" + rest + '}';
    };
    const Rows<QByteArray> rows{
        {"nothing", ""},
        {"a list", "[]"},
        {"cut off", R"({"kind":"get","pa)"},
        {"no such kind", R"({"kind":"format"})"},
        {"a number for a text", R"({"kind":"get","path":7})"},
        {"a text for a number", beside(R"("revision":"1")")},
        {"no UTF-8", beside("\"payload\":\"\xff\xfe\"")},
        {"no end", beside(R"("payload":1e999)")},
        {"too deep", beside("\"payload\":" + QByteArray(20, '[') + QByteArray(20, ']'))},
        {"too long", R"({"kind":"get","path":")" + QByteArray(300000, 'a') + "\"}"},
    };
    Scene scene;
    int refused = 0;
    for (const auto &[name, payload] : rows) {
        MqttMessage message = scene.raw.next({});
        message.payload = payload;
        const auto reply = scene.raw.exchange(message);
        QVERIFY(reply);
        QCOMPARE(reply->code, int(controller::BadPayload));
        QCOMPARE(scene.cell.refused().malformed, ++refused);
        QVERIFY(scene.isTestRun());
    }
}

void tst_CellService::valuesOfAnEarlierCellAreGone()
{
    const auto told = [](const Scene &scene, const QString &path, const QString &key = {}) {
        return scene.raw.got.value({scene.raw.topics.value(path, key), {}}).payload;
    };
    {
        Scene scene;
        QVERIFY(scene.raw.ask({set, arcOn, fileName(3), file(3, 30)}).ok());
        QTRY_VERIFY(!told(scene, arcOn, fileName(3)).isEmpty());
    }
    Scene scene; // with a store of its own
    QTRY_VERIFY(!told(scene, modeNode).isEmpty());
    QVERIFY(told(scene, arcOn, fileName(3)).isEmpty());
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
        const int code = scene.raw.ask({set, node, {}, QVariantMap{{"a", 1}}}).code;
        QVERIFY2((code == controller::NotAllowed) != writable.contains(node), qPrintable(node));
    }
    for (const QString &path :
         {names::setAnticollision, names::setClampingTorchMode, names::setWelder,
          names::loadProgram, names::removePrefix + "weld_param", QString("arc_weld.some_day")})
        QCOMPARE(scene.raw.ask({command, path}).code, int(controller::NotAllowed));
    QCOMPARE(scene.raw.ask({get, names::audit}).code, int(controller::NotAllowed));
    QCOMPARE(scene.raw.ask(toReal()).code, 0);
}

void tst_CellService::theBrokerKeepsUsersApart()
{
    Scene scene;
    RawClient bert(broker().as("bert"), "bert");
    QVERIFY(bert.greet());
    const links::wire::Topics &topics = scene.raw.topics;
    MqttMessage forged = scene.raw.next(toReal()); // with all that anna knows, but by bert
    bert.publish(forged);
    forged.payload = "{\"value\":\"forged\"}";
    for (const QString &topic : {topics.value(modeNode), topics.status(), topics.alive(),
                                 scene.raw.replyTopic(), QString("welmo/1/other/value/a")}) {
        forged.topic = topic;
        bert.publish(forged);
    }
    QCOMPARE(bert.ask({get, modeNode}).code, 0); // all of it has reached the broker
    QVERIFY(scene.isTestRun());
    QVERIFY(scene.raw.got.contains({topics.value(modeNode), {}}));
    for (const MqttMessage &message : qAsConst(scene.raw.got))
        QVERIFY(message.payload != forged.payload);
}

void tst_CellService::whoIsUnknownIsNotGreeted()
{
    auto options = Cell::options(broker().as("cell"));
    options.roles = {};
    const Cell cell(options);
    Pendant anna("anna");
    anna.link->open();
    QVERIFY(anna.isTold("anna"));
    QVERIFY(!anna.link->isUp());
}

void tst_CellService::oneHoldsControl()
{
    const Cell cell(Cell::options(broker().as("cell")));
    Pendant vera("vera");
    Pendant anna("anna");
    Pendant bert("bert");
    QVERIFY(vera.comeUp() && anna.comeUp() && bert.comeUp());
    QCOMPARE(bert.holder(), "anna");
    QCOMPARE(bert.command("real").code, int(controller::NotInControl));
    QVERIFY(bert.isTold("anna"));
    QCOMPARE(bert.run(names::takeControl), int(controller::NotInControl));
    for (Pendant *any : {&vera, &bert}) {
        QCOMPARE(any->run(names::stopProgram), 0);
        QCOMPARE(any->run(names::stopMove), 0);
    }
    QCOMPARE(anna.command("real").code, 0);
    QCOMPARE(anna.run(names::giveControl), 0);
    QCOMPARE(vera.run(names::takeControl), int(controller::NotAllowed));
    QCOMPARE(anna.run(names::takeControl), 0);
    anna.link.reset(); // switched off with control in its hand
    QTRY_COMPARE_WITH_TIMEOUT(bert.holder(), "", patient);
    QCOMPARE(bert.run(names::takeControl), 0);
}

void tst_CellService::twoEditors()
{
    const Cell cell(Cell::options(broker().as("cell")));
    Pendant anna("anna");
    Pendant bert("bert");
    QVERIFY(anna.comeUp() && bert.comeUp());
    anna.load(1);
    QCOMPARE(bert.save(1, 10).code, 0);
    QCOMPARE(bert.save(1, 11).code, 0);
    QCOMPARE(anna.save(1, 20).code, int(controller::Conflict));
    QCOMPARE(anna.load(1).value, QVariant(file(1, 11)));
    QCOMPARE(anna.save(1, 20).code, 0);
    QCOMPARE(bert.save(1, 12).code, int(controller::Conflict));

    const QVariantMap audit = anna.call(Kind::Get, names::audit).value.toMap();
    QCOMPARE(audit.value("entries").toList().size(), 3);
    QVariantMap last = audit.value("entries").toList().last().toMap();
    QVERIFY(!last.take("time").toString().isEmpty());
    QVERIFY(!last.take("client").toString().isEmpty());
    QCOMPARE(last,
             (QVariantMap{{"number", 3},
                          {"user", "anna"},
                          {"path", arcOn},
                          {"key", fileName(1)},
                          {"revision", 3},
                          {"old", file(1, 11)},
                          {"new", file(1, 20)}}));
}

QTEST_GUILESS_MAIN(tst_CellService)
#include "tst_cellservice.moc"
