#include "broker.h"
#include "cell.h"
#include "pendant.h"
#include "rawclient.h"
#include "schema/names.h"
#include "support/datarows.h"

namespace names = welmo::names;
using namespace testsupport;
using welmo::links::MqttMessage;
using RequestKind = welmo::controller::Request::Kind;

namespace {

constexpr auto set = RequestKind::Set;
constexpr auto get = RequestKind::Get;
constexpr auto command = RequestKind::Command;

welmo::controller::Request toReal()
{
    return {command, setMode, {}, mode("real")};
}

/// The cell, and somebody who greeted it.
struct Scene
{
    Cell cell{Cell::options(Broker::shared().as("cell"))};
    RawClient raw;

    explicit Scene(const QString &user = QStringLiteral("anna"))
        : raw(Broker::shared().as(user), user)
    {
        if (!raw.greet())
            qFatal("the cell does not greet");
    }
    bool isTestRun() { return raw.ask({get, modeNode}).value == QVariant(mode("test_run")); }
};

QString holder(const Pendant &pendant)
{
    return pendant.call(Kind::Get, names::control).value.toMap().value("user").toString();
}

} // namespace

/// A cell, with clients that send whatever they like and with several pendants.
class tst_CellService : public QObject
{
    Q_OBJECT
private slots:
    void requestsBearRepeating()
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

    void whatIsOldOrStrangeIsDiscarded_data()
    {
        using Spoil = std::function<void(Scene &, MqttMessage &)>;
        const auto property = [](int which, const char *value) -> Spoil {
            return [=](auto &, auto &message) { message.properties[which].second = value; };
        };
        const Spoil late = [](auto &scene, auto &message) {
            const qint64 deadline = std::exchange(scene.raw.deadline, 0);
            message = scene.raw.message(toReal());
            scene.raw.deadline = deadline;
        };
        const Spoil overtaken = [](auto &scene, auto &) { scene.isTestRun(); };
        const Spoil elsewhere = [](auto &scene, auto &message) {
            message.responseTopic = scene.raw.topics.reply("bert", "raw-bert");
        };
        const Spoil ofAnotherUser = [](auto &, auto &message) {
            RawClient other(Broker::shared().as("bert"), "bert");
            QVERIFY(other.greet());
            message.properties[0].second = other.session;
        };
        addRows<Spoil>({{"nobody waits any more", late},
                        {"overtaken by a later one", overtaken},
                        {"of another session", property(0, "0123")},
                        {"of another user's session", ofAnotherUser},
                        {"answer to somebody else", elsewhere},
                        {"for ever", property(2, "9223372036854775807")},
                        {"answer nowhere", [](auto &, auto &m) { m.responseTopic.clear(); }}});
    }
    void whatIsOldOrStrangeIsDiscarded()
    {
        const auto &[name, spoil] = currentRow<std::function<void(Scene &, MqttMessage &)>>();
        Scene scene;
        MqttMessage message = scene.raw.next(toReal());
        spoil(scene, message);
        const int before = scene.cell.refused().all();
        scene.raw.publish(message);
        QTRY_COMPARE(scene.cell.refused().all(), before + 1);
        QVERIFY(scene.isTestRun());
    }
    void aCommandLeftLyingAboutIsNotCarriedOut()
    {
        RawClient raw(Broker::shared().as("anna"), "anna");
        MqttMessage message = raw.next(toReal());
        message.retained = true;
        raw.publish(message);
        QCOMPARE(Scene("bert").cell.refused().stale, 1);
        message.payload.clear();
        raw.publish(message);
    }

    void whatIsNoRequestIsRefused_data()
    {
        const auto beside = [](const QByteArray &rest) {
            return "{\"kind\":\"get\",\"path\":\"a\"," + rest + '}';
        };
        addRows<QByteArray>(
            {{"cut off", "{\"kind\":\"get\",\"pa"},
             {"a number for a text", "{\"kind\":\"get\",\"path\":7}"},
             {"no end", beside("\"payload\":1e999")},
             {"too deep", beside("\"payload\":" + QByteArray(20, '[') + QByteArray(20, ']'))},
             {"too long", "{\"kind\":\"get\",\"path\":\"" + QByteArray(300000, 'a') + "\"}"}});
    }
    void whatIsNoRequestIsRefused()
    {
        const auto &[name, payload] = currentRow<QByteArray>();
        Scene scene;
        MqttMessage message = scene.raw.next({});
        message.payload = payload;
        const auto reply = scene.raw.exchange(message);
        QVERIFY(reply);
        QCOMPARE(reply->code, int(welmo::controller::BadPayload));
        QCOMPARE(scene.cell.refused().malformed, 1);
        QVERIFY(scene.isTestRun());
    }

    void valuesOfAnEarlierCellAreGone()
    {
        const auto told = [](const Scene &scene, const QString &path, const QString &key = {}) {
            return scene.raw.got.value({scene.raw.topics.value(path, key), {}}).payload;
        };
        {
            Scene scene;
            QVERIFY(scene.raw.ask({set, arcOn, fileName(3), file(3, 30)}).ok());
            QTRY_VERIFY(!told(scene, arcOn, fileName(3)).isEmpty());
        }
        Scene scene; // its store is empty
        QTRY_VERIFY(!told(scene, modeNode).isEmpty());
        QVERIFY(told(scene, arcOn, fileName(3)).isEmpty());
    }

    void anOperatorReachesNoFurther()
    {
        Scene scene("bert");
        const QSet<QString> writable{"arc_weld.arcon_param",  "arc_weld.weld_param",
                                     "arc_weld.arcoff_param", "arc_weld.weave_param",
                                     "arc_weld.seg_param",    names::runningParam,
                                     names::welderStateRate,  names::toolPage};
        welmo::controller::Faults faults;
        welmo::controller::Journal journal;
        const auto store = welmo::controller::Store::inMemory();
        const welmo::controller::Controller model(*store, faults, journal,
                                                  welmo::controller::steadyClock());
        QStringList nodes = model.nodes().keys();
        nodes << names::control << "arc_weld.some_day"
              << ""
              << "#";
        for (const QString &node : qAsConst(nodes)) {
            const int code = scene.raw.ask({set, node, {}, QVariantMap{{"a", 1}}}).code;
            QVERIFY2((code == welmo::controller::NotAllowed) != writable.contains(node),
                     qPrintable(node));
        }
        for (const QString &path :
             {names::setAnticollision, names::setClampingTorchMode, names::setWelder,
              names::loadProgram, names::removePrefix + "weld_param", QString("arc_weld.some_day")})
            QCOMPARE(scene.raw.ask({command, path}).code, int(welmo::controller::NotAllowed));
        QCOMPARE(scene.raw.ask({get, names::audit}).code, int(welmo::controller::NotAllowed));
        QCOMPARE(scene.raw.ask(toReal()).code, 0);
    }

    void theBrokerKeepsUsersApart()
    {
        Scene scene;
        RawClient bert(Broker::shared().as("bert"), "bert");
        QVERIFY(bert.greet());
        const welmo::links::protocol::Topics &topics = scene.raw.topics;
        MqttMessage forged = scene.raw.next(toReal()); // anna's message, which bert sends
        bert.publish(forged);
        forged.payload = "{\"value\":\"forged\"}";
        for (const QString &topic : {topics.value(modeNode), topics.status(), topics.alive(),
                                     scene.raw.replyTopic(), QString("welmo/1/other/value/a")}) {
            forged.topic = topic;
            bert.publish(forged);
        }
        QCOMPARE(bert.ask({get, modeNode}).code, 0); // by now the broker has had all of it
        QVERIFY(scene.isTestRun());
        QVERIFY(scene.raw.got.contains({topics.value(modeNode), {}}));
        for (const MqttMessage &message : qAsConst(scene.raw.got))
            QVERIFY(message.payload != forged.payload);
    }

    void anAccountIsNotReplacedUnasked()
    {
        Broker broker;
        const QString folder = broker.folder();
        for (const QStringList &arguments : {QStringList{"user", folder, "bert", "cell"},
                                             {"cell", folder, "cell"},
                                             {"cell", folder, "bert"},
                                             {"password", folder, "carl"}})
            QVERIFY(!broker.tries(arguments, "other\n"));
        QVERIFY(RawClient(broker.as("bert"), "bert").isOnline());
        broker.command({"password", folder, "bert"}, "other\n");
        broker.stop();
        broker.start();
        auto changed = broker.as("bert");
        changed.password = "other";
        QVERIFY(RawClient(changed, "bert").isOnline());
    }

    void aReaderHearsEveryCellAndAsksNone()
    {
        Broker broker;
        broker.command({"reader", broker.folder(), "hall"}, "llah\n");
        broker.stop();
        broker.start();
        auto options = Cell::options(broker.as("cell"));
        options.roles = welmo::links::Roles(
            {{"anna", welmo::links::Role::Viewer}, {"hall", welmo::links::Role::Administrator}});
        const Cell cell(options);
        RawClient anna(broker.as("anna"), "anna");
        RawClient hall(broker.as("hall"), "hall");
        QVERIFY(anna.greet());
        QTRY_VERIFY(hall.got.contains({hall.topics.value(modeNode), {}}));
        QVERIFY(!hall.exchange(hall.message({}), 300));
        QVERIFY(anna.exchange(anna.next({get, modeNode})));
    }

    void whoIsUnknownIsNotGreeted()
    {
        auto options = Cell::options(Broker::shared().as("cell"));
        options.roles = {};
        const Cell cell(options);
        Pendant anna(Broker::shared().as("anna"));
        anna.link->open();
        QVERIFY(anna.isTold("anna") && !anna.link->isUp());
    }

    void oneHoldsControl()
    {
        const Cell cell(Cell::options(Broker::shared().as("cell")));
        Pendant vera(Broker::shared().as("vera"));
        Pendant anna(Broker::shared().as("anna"));
        Pendant bert(Broker::shared().as("bert"));
        QVERIFY(vera.comeUp() && anna.comeUp() && bert.comeUp());
        QCOMPARE(holder(bert), "anna");
        QCOMPARE(bert.command("real").code, int(welmo::controller::NotInControl));
        QVERIFY(bert.isTold("anna"));
        QCOMPARE(bert.run(names::takeControl), int(welmo::controller::NotInControl));
        for (Pendant *any : {&vera, &bert}) {
            QCOMPARE(any->run(names::stopProgram), 0);
            QCOMPARE(any->run(names::stopMove), 0);
        }
        QCOMPARE(anna.command("real").code, 0);
        QCOMPARE(anna.run(names::giveControl), 0);
        QCOMPARE(vera.run(names::takeControl), int(welmo::controller::NotAllowed));
        QCOMPARE(anna.run(names::takeControl), 0);
        anna.link.reset(); // switched off while it has control
        QTRY_COMPARE_WITH_TIMEOUT(holder(bert), "", patient);
        QCOMPARE(bert.run(names::takeControl), 0);
    }

    void nobodyIsCutOffByAName()
    {
        const Cell cell(Cell::options(Broker::shared().as("cell")));
        QSignalSpy outages(cell.service(), &welmo::links::CellService::problem);
        Pendant anna(Broker::shared().as("anna"));
        QVERIFY(anna.comeUp());
        QSignalSpy flaps(anna.link.get(), &welmo::links::MqttLink::upChanged);
        const QVariantMap control = anna.call(Kind::Get, names::control).value.toMap();
        for (const QString &known :
             {QString("cell"), QString("cell-cell"), control.value("client").toString()}) {
            RawClient intruder(Broker::shared().as("bert"), "bert", known);
            QVERIFY(!known.isEmpty() && intruder.greet());
        }
        QCOMPARE(outages.size() + flaps.size(), 0);
        QCOMPARE(anna.get().code, 0);
    }

    void aSwappedControllerIsNotWrittenOver()
    {
        Pendant anna(Broker::shared().as("anna"));
        Pendant bert(Broker::shared().as("bert"));
        for (const Pendant *writer : {&anna, &bert}) { // both files get the same revision
            const Cell cell(Cell::options(Broker::shared().as("cell")));
            QVERIFY(writer->comeUp());
            QCOMPARE(writer->save(1, writer == &anna ? 100 : 900).code, 0);
            QVERIFY(anna.comeUp());
            if (writer == &anna)
                continue;
            QVERIFY(anna.isTold("other data"));
            anna.problems->clear();
            QCOMPARE(anna.save(1, 100).code, int(welmo::controller::Conflict));
            QVERIFY(anna.isTold("bert"));
            QCOMPARE(anna.load(1).value, QVariant(file(1, 900)));
            QCOMPARE(anna.save(1, 100).code, 0);
        }
    }

    void aFloodIsTheFloodersOwn()
    {
        Scene scene("bert");
        Pendant anna(Broker::shared().as("anna"));
        QVERIFY(anna.comeUp());
        QSignalSpy flaps(anna.link.get(), &welmo::links::MqttLink::upChanged);
        const MqttMessage hello = scene.raw.message({});
        for (int i = 0; i < 20000; ++i) {
            MqttMessage another = hello;
            another.payload = "{\"kind\":\"hello\",\"key\":\"1\"}";
            another.responseTopic = scene.raw.topics.reply("bert", QString::number(i));
            scene.raw.publish(another);
            if (i % 500 == 0)
                QCOMPARE(anna.get().code, 0);
        }
        QTRY_VERIFY(scene.cell.refused().crowded > 1000);
        QCOMPARE(anna.get().code, 0);
        QCOMPARE(flaps.size(), 0);
    }

    void aCellThatWasHeldUpKeepsItsConnection()
    {
        const auto turned = std::make_shared<std::atomic<qint64>>(0);
        const welmo::controller::Clock steady = welmo::controller::steadyClock();
        auto options = Cell::options(Broker::shared().as("cell"));
        options.clock = [turned, steady] { return steady() + *turned; };
        const Cell cell(options);
        RawClient raw(Broker::shared().as("anna"), "anna");
        QVERIFY(raw.greet());
        QSignalSpy outages(cell.service(), &welmo::links::CellService::problem);
        *turned = 3000;
        for (int times = 0; times < 200; ++times) {
            raw.deadline += 3000;
            QCOMPARE(raw.ask({get, modeNode}).code, 0);
        }
        QCOMPARE(outages.size(), 0);
    }

    void rolesChangeAtOnce()
    {
        using welmo::links::Role;
        const Cell cell(Cell::options(Broker::shared().as("cell")));
        Pendant anna(Broker::shared().as("anna"));
        QVERIFY(anna.comeUp());
        const std::tuple<Role, int, QString> roles[] = {
            {Role::Viewer, int(welmo::controller::NotAllowed), ""},
            {Role::Operator, int(welmo::controller::NotInControl), ""},
            {Role::Nobody, int(LinkReply::Lost), ""},
        };
        QCOMPARE(holder(anna), "anna");
        for (const auto &[role, code, holds] : roles) {
            QMetaObject::invokeMethod(
                cell.service(),
                [&cell, role = role] {
                    cell.service()->setRoles(welmo::links::Roles({{"anna", role}}));
                },
                Qt::BlockingQueuedConnection);
            QCOMPARE(anna.command("real").code, code);
            if (code > 0)
                QCOMPARE(holder(anna), holds);
        }
    }

    void anAnswerThatDoesNotFitSaysSo()
    {
        using namespace welmo::links::protocol;
        QVariantList much;
        for (int i = 0; i < 100; ++i)
            much.append(QString(60000, 'x'));
        const auto reply = toReply(toMessage(welmo::controller::Reply::with(much)));
        QVERIFY(reply);
        QCOMPARE(reply->code, int(welmo::controller::TooMuch));
    }

    void twoEditors()
    {
        const Cell cell(Cell::options(Broker::shared().as("cell")));
        Pendant anna(Broker::shared().as("anna"));
        Pendant bert(Broker::shared().as("bert"));
        QVERIFY(anna.comeUp() && bert.comeUp());
        anna.load(1);
        QCOMPARE(bert.save(1, 10).code, 0);
        QCOMPARE(bert.save(1, 11).code, 0);
        QCOMPARE(anna.save(1, 20).code, int(welmo::controller::Conflict));
        QCOMPARE(anna.load(1).value, QVariant(file(1, 11)));
        QCOMPARE(anna.save(1, 20).code, 0);
        QCOMPARE(bert.save(1, 12).code, int(welmo::controller::Conflict));

        const QVariantMap audit = anna.call(Kind::Get, names::audit).value.toMap();
        QStringList users;
        for (const QVariant &entry : audit["entries"].toList())
            users.append(entry.toMap()["user"].toString());
        QCOMPARE(users.join(' '), "bert bert anna");
    }
};

QTEST_GUILESS_MAIN(tst_CellService)
#include "tst_cellservice.moc"
