#include <QtTest>

#include "programfixture.h"
#include "support/datarows.h"

using namespace welmo::controller;
using namespace testsupport;

namespace {

QVariantMap wish(const QString &axis, int direction = 1, double part = 0.4)
{
    return {{"axis", axis}, {"direction", direction}, {"override", part}};
}

double joint(ProgramFixture &fixture, int index)
{
    return fixture.get("motion.state", "q").value.toList().at(index).toDouble();
}

} // namespace

/// Jogging: the robot moves as it is told, and only while beats prove that the key is held.
class tst_Jogging : public QObject
{
    Q_OBJECT
private slots:
    void goesWhereItIsTold_data()
    {
        const double s = 100; // mm/s, 40 % of 250
        // how the tip moves in a second, mm
        addRows<QString, QString, int, Vector3d>(
            {{"x", "x", "", 1, {s, 0, 0}},
             {"y, back", "y", "base", -1, {0, -s, 0}},
             {"down along the torch", "z", "tool", 1, {0, 0, -s}},
             {"in a turned work object", "x", "wobj", 1, {0, s, 0}},
             {"about the tip", "b", "base", 1, {0, 0, 0}}});
    }
    void goesWhereItIsTold()
    {
        const auto &[name, axis, frame, direction, way] =
            currentRow<QString, QString, int, Vector3d>();
        ProgramFixture fixture;
        fixture.set(
            "orbo.project", "wobj._list",
            QVariantList{QVariantMap{
                {"id", "turned"},
                {"name", "turned"},
                {"user_frame", "world"},
                {"frame", QVariantMap{{"pose", withChild({}, "frame.ori.euler.c", 90.0)}}}}});
        const double before = joint(fixture, 4);
        fixture.live(25, {1});
        QVariantMap wanted = wish(axis, direction);
        if (!frame.isEmpty())
            wanted["frame"] = frame;
        wanted["wobj"] = "turned";
        QVERIFY(fixture.run("motion.jog.start", wanted).ok());
        QCOMPARE(fixture.get("motion.state", "state").value, QVariant("jogs"));
        fixture.live(1000, {1});
        QVERIFY(fixture.run("motion.jog.stop").ok());
        QVERIFY((fixture.tip() - p1 - way).norm() < 0.5);
        QVERIFY(!way.isZero() || qAbs(joint(fixture, 4) - before) > 5);
        const Vector3d end = fixture.tip();
        fixture.live(100, {1});
        QVERIFY(fixture.isAt(end));
    }
    void everyJoint()
    {
        ProgramFixture fixture;
        for (int i = 0; i < 6; ++i) {
            const double before = joint(fixture, i);
            fixture.live(25, {i + 1});
            QVERIFY(fixture.run("motion.jog.start", wish("j" + QString::number(i + 1), -1)).ok());
            fixture.live(500, {i + 1});
            QVERIFY(fixture.run("motion.jog.stop").ok());
            QVERIFY(qAbs(joint(fixture, i) - before + 6) < 0.2); // at 12 degrees a second
        }
    }
    void stops_data()
    {
        addRows<QString, int>({{"no beat", "silence", 100}, // stops within so many ms
                               {"no key", "let go", 35},
                               {"another key", "other", 35},
                               {"no link", "link", 10},
                               {"no power", "power", 10},
                               {"automatic mode", "automatic", 10},
                               {"stopped by another pendant", "stop", 10}});
    }
    void stops()
    {
        const auto &[name, how, within] = currentRow<QString, int>();
        ProgramFixture fixture;
        fixture.live(25, {7});
        QVERIFY(fixture.run("motion.jog.start", wish("y")).ok());
        fixture.live(500, {7});
        const qint64 last = fixture.now;
        if (how == "let go" || how == "other")
            fixture.live(25, how == "other" ? QVector<int>{8} : QVector<int>{});
        else if (how == "link")
            fixture.controller.losePendant();
        else if (how == "stop")
            fixture.run("motion.move.stop");
        else if (how != "silence")
            fixture.run("cell.switch", QVariantMap{{how, how == "automatic"}});
        fixture.pass(200);
        const auto entries = fixture.journal.entries();
        QCOMPARE(entries.last().event, Event::JogStops);
        QVERIFY(entries.last().time - last <= within);
        const Vector3d end = fixture.tip();
        fixture.run("cell.switch", QVariantMap{{"power", true}, {"automatic", false}});
        if (how == "let go")
            return; // the key may be pressed again
        // The same press must not start the robot again.
        fixture.live(25, {7});
        QCOMPARE(fixture.run("motion.jog.start", wish("y")).code, int(WrongState));
        fixture.live(100, {7});
        QVERIFY(fixture.isAt(end));
        QCOMPARE(fixture.events().count(Event::Jogs), 1);
    }
    void isRefused_data()
    {
        const QVariantMap automatic{{"automatic", true}}, noPower{{"power", false}};
        const QStringList away{"MoveL p3,v5,fine,torch1,wobj0"};
        addRows<QVariantMap, QStringList, QVariantMap, int, QString>(
            {{"in automatic mode", automatic, {}, wish("x"), 7, "automatic"},
             {"without power", noPower, {}, wish("x"), 7, "no_power"},
             {"under a program", {}, away, wish("x"), 7, "program_has_robot"},
             {"no axis", {}, {}, wish("w"), 4, ""},
             {"too fast", {}, {}, wish("x", 1, 1.5), 5, ""}});
    }
    void isRefused()
    {
        const auto &[name, switches, program, wanted, code, reason] =
            currentRow<QVariantMap, QStringList, QVariantMap, int, QString>();
        ProgramFixture fixture;
        fixture.live(25, {1});
        fixture.run("cell.switch", switches);
        if (!program.isEmpty())
            fixture.go(program);
        const Reply reply = fixture.run("motion.jog.start", wanted);
        QCOMPARE(reply.code, code);
        QCOMPARE(childAt(reply.value, "reason").toString(), reason);
        QVERIFY(!fixture.events().contains(Event::Jogs));
    }
    // The end of a move from the panel of a point is told.
    void movesAreToldToTheirEnd()
    {
        ProgramFixture fixture;
        const auto ends = [&](const QVariantMap &target) {
            fixture.run("motion.move.to_point", target);
            fixture.pass(100);
            fixture.told.clear();
            fixture.pass(20000);
            return fixture.get("motion.state").value.toMap();
        };
        const QVariantMap arrived = ends(ProgramFixture::target(p3));
        QCOMPARE(arrived["end"], QVariant("arrived"));
        QVERIFY(qAbs(childAt(fixture.lastTold("motion.state"), "tip.z").toDouble() - p3.z())
                < 0.01);
        const QVariantMap refused = ends(ProgramFixture::target({9000, 0, 0}));
        QCOMPARE(refused["end"], QVariant("refused"));
        QCOMPARE(refused["reason"], QVariant("unreachable"));
        QCOMPARE(refused["ends"].toInt(), arrived["ends"].toInt() + 1);
        fixture.run("motion.move.to_point", ProgramFixture::target(p1));
        fixture.pass(50);
        fixture.run("cell.switch", QVariantMap{{"fault", true}});
        fixture.pass(50);
        QCOMPARE(fixture.get("motion.state", "reason").value, QVariant("cell_fault"));
        const Vector3d end = fixture.tip();
        fixture.pass(1000);
        QVERIFY(fixture.isAt(end));
    }
};

QTEST_GUILESS_MAIN(tst_Jogging)
#include "tst_jogging.moc"
