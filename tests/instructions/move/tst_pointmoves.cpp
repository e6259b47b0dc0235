#include <QComboBox>
#include <QtTest>
#include <cmath>

#include "pointdesk.h"

/// Moving the robot to a point or to a computed target, and stopping it.
class tst_PointMoves : public QObject
{
    Q_OBJECT
private slots:
    void staleTargetsMoveNothing_data();
    void staleTargetsMoveNothing();
    void moves_data();
    void moves();
    void frameOfWhatIsShown_data();
    void frameOfWhatIsShown();
    void stops();
    void failedMotions_data();
    void failedMotions();
};

void tst_PointMoves::staleTargetsMoveNothing_data()
{
    QTest::addColumn<QString>("change");
    QTest::newRow("nothing computed") << "none";
    QTest::newRow("another point") << "point";
    QTest::newRow("another kind") << "kind";
    QTest::newRow("another number") << "number";
    QTest::newRow("another line") << "line";
}

void tst_PointMoves::staleTargetsMoveNothing()
{
    QFETCH(QString, change);
    Desk desk("wgtTarget", "WMoveC p6,Offs(p7,1,2,3),v20,z5,torch1,fixture1");
    if (change != "none") {
        desk.button("btnCompute")->click();
        QVERIFY(desk.button("btnComplexMoveJ")->isEnabled());
    }
    if (change == "point")
        child<QComboBox>(desk.group, "cbxPoint")->setCurrentIndex(0);
    else if (change == "kind")
        child<QAbstractButton>(desk.group, "rbtnReltool")->click();
    else if (change == "number")
        child<QDoubleSpinBox>(child(desk.group, "wgtOffsets"), "sbxX")->setValue(2);
    else if (change == "line")
        desk.form->FillWith("WMoveC p6,Offs(p7,9,2,3),v20,z5,torch1,fixture1");
    QCOMPARE(desk.computed(), QStringList());
    QVERIFY(!desk.button("btnComplexMoveJ")->isEnabled());
    QVERIFY(!desk.button("btnComplexMoveL")->isEnabled());
    desk.panel()->onTargetComplexMoveJtoClicked();
    QCOMPARE(desk.host.takeRequests(), QStringList());
}

void tst_PointMoves::moves_data()
{
    QTest::addColumn<QString>("group");
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("way");
    QTest::addColumn<Values>("goal");
    for (const char *group : {"wgtTarget", "wgtAux"}) {
        const bool aux = qstrcmp(group, "wgtAux") == 0;
        const Values point{aux ? 700.0 : 800.0, aux ? -100.0 : 0.0, 200, 180, 0, 180};
        Values computed = point;
        computed[2] -= 10;
        QTest::addRow("%s, point, joint", group) << group << "btnPointMoveJ"
                                                 << "joint" << point;
        QTest::addRow("%s, point, linear", group) << group << "btnPointMoveL"
                                                  << "linear" << point;
        QTest::addRow("%s, computed, joint", group) << group << "btnComplexMoveJ"
                                                    << "joint" << computed;
        QTest::addRow("%s, computed, linear", group) << group << "btnComplexMoveL"
                                                     << "linear" << computed;
    }
}

void tst_PointMoves::moves()
{
    QFETCH(QString, group);
    QFETCH(QString, button);
    Desk desk(group, "WMoveC Reltool(p6,0,0,10,0,0,0),Reltool(p7,0,0,10,0,0,0),v20,z5,tool0");
    desk.button("btnCompute")->click();
    // The request object keeps what was set before; a second move must not inherit from the first.
    for (int i = 0; i < 2; ++i) {
        desk.button(button)->click();
        QCOMPARE(desk.host.takeRequests(), QStringList("do " + moveCommand + " request"));
        QTEST(at(desk.sent(), "movetype").toString(), "way");
        const Values got = valuesAt(at(desk.sent(), "cartesian.pose.frame"));
        QFETCH(Values, goal);
        for (int axis = 0; axis < goal.size(); ++axis)
            QVERIFY(std::abs(got[axis] - goal[axis]) < 1e-9);
        QCOMPARE(at(desk.sent(), "coordinate"),
                 QVariant(QVariantMap{{"user_frame", "world"},
                                      {"wobj", QVariantMap{{"name", "wobj0"}}}}));
        QCOMPARE(at(desk.sent(), "tool").toString(), "tool0");
        QCOMPARE(desk.sent().toMap().size(), 4);
        desk.button("btnStop")->click();
        desk.host.takeRequests();
    }
}

void tst_PointMoves::frameOfWhatIsShown_data()
{
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("user");
    QTest::addColumn<QString>("wobj");
    QTest::newRow("point") << "point"
                           << "world"
                           << "wobj0";
    QTest::newRow("point without a frame") << "bare"
                                           << "default"
                                           << "default";
    QTest::newRow("robot") << "robot"
                           << "world"
                           << "fixture1";
    QTest::newRow("edited") << "edited"
                            << "world"
                            << "wobj0";
}

void tst_PointMoves::frameOfWhatIsShown()
{
    QFETCH(QString, shown);
    Desk desk;
    Values goal = poseOfP7;
    if (shown == "bare") {
        m("orbo.project.point._list.p7")->removeChild("coordinate");
        desk.form->FillWith("WMoveC p6,p6,v20,z5,torch1,fixture1");
        desk.form->FillWith("WMoveC p6,p7,v20,z5,torch1,fixture1");
    } else if (shown == "robot") {
        goal = somewhere;
        desk.host.link()->answers.insert("do " + getPosition, poseAnswer(somewhere));
        answerQuestion(true);
        desk.button("btnUpdateLocation")->click();
    } else if (shown == "edited") {
        goal[2] = 250.5;
        child<QDoubleSpinBox>(child(desk.group, "wgtPosition"), "sbxZ")->setValue(250.5);
    }
    desk.button("btnPointMoveL")->click();
    QCOMPARE(valuesAt(at(desk.sent(), "cartesian.pose.frame")), goal);
    QTEST(at(desk.sent(), "coordinate.user_frame").toString(), "user");
    QTEST(at(desk.sent(), "coordinate.wobj.name").toString(), "wobj");
}

void tst_PointMoves::stops()
{
    Desk desk;
    desk.button("btnPointMoveJ")->click();
    desk.button("btnPointMoveL")->click(); // refused while the robot moves
    QCOMPARE(desk.said(), QStringList("error: move to point fail [WMoveCPropertyWidget]"));
    desk.host.takeRequests();
    desk.button("btnStop")->click();
    QCOMPARE(desk.host.takeRequests(), QStringList("do " + stopCommand + " request"));
    QCOMPARE(desk.sent(), QVariant(QVariantMap{{"stoptype", 1}}));
    QCOMPARE(desk.said(), QStringList());
    desk.button("btnPointMoveJ")->click();
    QCOMPARE(desk.said(), QStringList());
}

void tst_PointMoves::failedMotions_data()
{
    QTest::addColumn<QString>("failure");
    QTest::addColumn<QStringList>("said");
    QTest::newRow("refused") << "refused" << QStringList{"move to point fail", "stop move fail"};
    QTest::newRow("no answer") << "no answer"
                               << QStringList{"move to point fail", "stop move fail"};
    QTest::newRow("not connected")
        << "not connected" << QStringList{"tessa not connected", "stop move fail"};
}

void tst_PointMoves::failedMotions()
{
    QFETCH(QString, failure);
    QFETCH(QStringList, said);
    Desk desk;
    if (failure == "refused") {
        desk.host.faults()->setCode(moveCommand, 7);
        desk.host.faults()->setCode(stopCommand, 7);
    } else if (failure == "no answer") {
        desk.host.link()->breakAt = "do " + moveCommand + " request";
    } else {
        QVERIFY(desk.host.disconnect());
    }
    desk.button("btnPointMoveJ")->click();
    desk.button("btnStop")->click();
    for (QString &text : said)
        text = "error: " + text + " [WMoveCPropertyWidget]";
    QCOMPARE(desk.said(), said);
}

QTEST_MAIN(tst_PointMoves)
#include "tst_pointmoves.moc"
