#include <QtTest>

#include "programbench.h"

using namespace welmo::controller;
using Eigen::Vector3d;
using Event = Journal::Event;

Q_DECLARE_METATYPE(Eigen::Vector3d)

namespace {

QVariantMap wish(const QString &axis, int direction = 1, double part = 0.4)
{
    return {{"axis", axis}, {"direction", direction}, {"override", part}};
}

double joint(ProgramBench &bench, int index)
{
    return bench.get("motion.state", "q").value.toList().at(index).toDouble();
}

} // namespace

/// The robot moves by hand as it is told, and only while a living pendant proves a hand on the key.
class tst_Jogging : public QObject
{
    Q_OBJECT
private slots:
    void goesWhereItIsTold_data()
    {
        QTest::addColumn<QString>("axis");
        QTest::addColumn<QString>("frame");
        QTest::addColumn<int>("direction");
        QTest::addColumn<Vector3d>("way"); // of the tip in a second, mm

        const double s = 100; // two fifths of 250 mm/s
        QTest::newRow("x") << "x"
                           << "" << 1 << Vector3d(s, 0, 0);
        QTest::newRow("y, back") << "y"
                                 << "base" << -1 << Vector3d(0, -s, 0);
        QTest::newRow("down along the torch") << "z"
                                              << "tool" << 1 << Vector3d(0, 0, -s);
        QTest::newRow("in a turned work object") << "x"
                                                 << "wobj" << 1 << Vector3d(0, s, 0);
        QTest::newRow("about the tip") << "b"
                                       << "base" << 1 << Vector3d(0, 0, 0);
    }
    void goesWhereItIsTold()
    {
        QFETCH(QString, axis);
        QFETCH(QString, frame);
        QFETCH(int, direction);
        QFETCH(Vector3d, way);
        ProgramBench bench;
        bench.set("orbo.project", "wobj._list",
                  QVariantList{QVariantMap{
                      {"id", "turned"},
                      {"name", "turned"},
                      {"user_frame", "world"},
                      {"frame", QVariantMap{{"pose", withChild({}, "frame.ori.euler.c", 90.0)}}}}});
        const double before = joint(bench, 4);
        bench.live(25, {1});
        QVariantMap wanted = wish(axis, direction);
        if (!frame.isEmpty())
            wanted["frame"] = frame;
        wanted["wobj"] = "turned";
        QVERIFY(bench.run("motion.jog.start", wanted).ok());
        QCOMPARE(bench.get("motion.state", "state").value, QVariant("jogs"));
        bench.live(1000, {1});
        QVERIFY(bench.run("motion.jog.stop").ok());
        QVERIFY((bench.tip() - p1 - way).norm() < 0.5);
        QVERIFY(!way.isZero() || qAbs(joint(bench, 4) - before) > 5);
        const Vector3d end = bench.tip();
        bench.live(100, {1});
        QVERIFY(bench.isAt(end));
    }
    void everyJoint()
    {
        ProgramBench bench;
        for (int i = 0; i < 6; ++i) {
            const double before = joint(bench, i);
            bench.live(25, {i + 1});
            QVERIFY(bench.run("motion.jog.start", wish("j" + QString::number(i + 1), -1)).ok());
            bench.live(500, {i + 1});
            QVERIFY(bench.run("motion.jog.stop").ok());
            QVERIFY(qAbs(joint(bench, i) - before + 6) < 0.2); // at 12 degrees a second
        }
    }
    void stops_data()
    {
        QTest::addColumn<QString>("how");
        QTest::addColumn<int>("within"); // ms

        QTest::newRow("no beat") << "silence" << 100;
        QTest::newRow("no key") << "let go" << 35;
        QTest::newRow("another key") << "other" << 35;
        QTest::newRow("no link") << "link" << 10;
        QTest::newRow("no power") << "power" << 10;
        QTest::newRow("automatic mode") << "automatic" << 10;
        QTest::newRow("stopped by another pendant") << "stop" << 10;
    }
    void stops()
    {
        QFETCH(QString, how);
        ProgramBench bench;
        bench.live(25, {7});
        QVERIFY(bench.run("motion.jog.start", wish("y")).ok());
        bench.live(500, {7});
        const qint64 last = bench.now;
        if (how == "let go" || how == "other")
            bench.live(25, how == "other" ? QVector<int>{8} : QVector<int>{});
        else if (how == "link")
            bench.controller.losePendant();
        else if (how == "stop")
            bench.run("motion.move.stop");
        else if (how != "silence")
            bench.run("cell.switch", QVariantMap{{how, how == "automatic"}});
        bench.pass(200);
        const auto entries = bench.journal.entries();
        QCOMPARE(entries.last().event, Event::JogStops);
        QFETCH(int, within);
        QVERIFY(entries.last().time - last <= within);
        const Vector3d end = bench.tip();
        bench.run("cell.switch", QVariantMap{{"power", true}, {"automatic", false}});
        if (how == "let go")
            return; // the next press may count anew
        // The same press moves nothing again.
        bench.live(25, {7});
        QCOMPARE(bench.run("motion.jog.start", wish("y")).code, int(WrongState));
        bench.live(100, {7});
        QVERIFY(bench.isAt(end));
        QCOMPARE(bench.events().count(Event::Jogs), 1);
    }
    void isRefused_data()
    {
        QTest::addColumn<QVariantMap>("switches");
        QTest::addColumn<QStringList>("program");
        QTest::addColumn<QVariantMap>("wanted");
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("reason");

        const QVariantMap none;
        const QStringList away{"MoveL p3,v5,fine,torch1,wobj0"};
        QTest::newRow("in automatic mode")
            << QVariantMap{{"automatic", true}} << QStringList() << wish("x") << 7 << "automatic";
        QTest::newRow("without power")
            << QVariantMap{{"power", false}} << QStringList() << wish("x") << 7 << "no_power";
        QTest::newRow("under a program") << none << away << wish("x") << 7 << "program_has_robot";
        QTest::newRow("no axis") << none << QStringList() << wish("w") << 4 << "";
        QTest::newRow("too fast") << none << QStringList() << wish("x", 1, 1.5) << 5 << "";
    }
    void isRefused()
    {
        QFETCH(QVariantMap, switches);
        QFETCH(QStringList, program);
        QFETCH(QVariantMap, wanted);
        ProgramBench bench;
        bench.live(25, {1});
        bench.run("cell.switch", switches);
        if (!program.isEmpty())
            bench.go(program);
        const Reply reply = bench.run("motion.jog.start", wanted);
        QTEST(reply.code, "code");
        QTEST(childAt(reply.value, "reason").toString(), "reason");
        QVERIFY(!bench.events().contains(Event::Jogs));
    }
    // What a point's panel set off is told to its end.
    void movesAreToldToTheirEnd()
    {
        ProgramBench bench;
        const auto ends = [&](const QVariantMap &target) {
            bench.run("motion.move.to_point", target);
            bench.pass(100);
            bench.told.clear();
            bench.pass(20000);
            return bench.get("motion.state").value.toMap();
        };
        const QVariantMap arrived = ends(ProgramBench::target(p3));
        QCOMPARE(arrived["end"], QVariant("arrived"));
        QVERIFY(qAbs(childAt(bench.lastTold("motion.state"), "tip.z").toDouble() - p3.z()) < 0.01);
        const QVariantMap refused = ends(ProgramBench::target({9000, 0, 0}));
        QCOMPARE(refused["end"], QVariant("refused"));
        QCOMPARE(refused["reason"], QVariant("unreachable"));
        QCOMPARE(refused["ends"].toInt(), arrived["ends"].toInt() + 1);
        bench.run("motion.move.to_point", ProgramBench::target(p1));
        bench.pass(50);
        bench.run("cell.switch", QVariantMap{{"fault", true}});
        bench.pass(50);
        QCOMPARE(bench.get("motion.state", "reason").value, QVariant("cell_fault"));
        const Vector3d end = bench.tip();
        bench.pass(1000);
        QVERIFY(bench.isAt(end));
    }
};

QTEST_GUILESS_MAIN(tst_Jogging)
#include "tst_jogging.moc"
