#include <QComboBox>
#include <QtTest>
#include <cmath>

#include "pointdesk.h"
#include "support/rows.h"

using testsupport::Rows;

/// Moving the robot to a point or to a computed target, and stopping it.
class tst_PointMoves : public QObject
{
    Q_OBJECT
private slots:
    void staleTargetsMoveNothing()
    {
        for (const QString change : {"none", "point", "kind", "number", "line"}) {
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
    }
    void moves()
    {
        const Values p6{700, -100, 200, 180, 0, 180};
        const Values below6{700, -100, 190, 180, 0, 180};
        const Values below7{800, 0, 190, 180, 0, 180};
        const Rows<QString, QString, QString, Values> rows{
            {"target, joint", "wgtTarget", "btnPointMoveJ", "joint", poseOfP7},
            {"target, linear", "wgtTarget", "btnPointMoveL", "linear", poseOfP7},
            {"target computed, joint", "wgtTarget", "btnComplexMoveJ", "joint", below7},
            {"target computed, linear", "wgtTarget", "btnComplexMoveL", "linear", below7},
            {"aux, joint", "wgtAux", "btnPointMoveJ", "joint", p6},
            {"aux, linear", "wgtAux", "btnPointMoveL", "linear", p6},
            {"aux computed, joint", "wgtAux", "btnComplexMoveJ", "joint", below6},
            {"aux computed, linear", "wgtAux", "btnComplexMoveL", "linear", below6},
        };
        const QVariantMap frame{{"user_frame", "world"}, {"wobj", QVariantMap{{"name", "wobj0"}}}};
        for (const auto &[name, group, button, way, goal] : rows) {
            Desk desk(group,
                      "WMoveC Reltool(p6,0,0,10,0,0,0),Reltool(p7,0,0,10,0,0,0),v20,z5,tool0");
            desk.button("btnCompute")->click();
            // The request object keeps what was set; a second move must not inherit from the first.
            for (int i = 0; i < 2; ++i) {
                desk.button(button)->click();
                QCOMPARE(desk.host.takeRequests(), QStringList("do " + moveCommand + " request"));
                QCOMPARE(at(desk.sent(), "movetype").toString(), way);
                const Values got = valuesAt(at(desk.sent(), "cartesian.pose.frame"));
                for (int axis = 0; axis < goal.size(); ++axis)
                    QVERIFY(std::abs(got[axis] - goal[axis]) < 1e-9);
                QCOMPARE(at(desk.sent(), "coordinate"), QVariant(frame));
                QCOMPARE(at(desk.sent(), "tool").toString(), "tool0");
                QCOMPARE(desk.sent().toMap().size(), 4);
                desk.button("btnStop")->click();
                desk.host.takeRequests();
            }
        }
    }
    void frameOfWhatIsShown()
    {
        const Rows<QString, QString> rows{
            {"point", "world", "wobj0"},
            {"point without a frame", "default", "default"},
            {"robot", "world", "fixture1"},
            {"edited", "world", "wobj0"},
        };
        for (const auto &[shown, user, wobj] : rows) {
            Desk desk;
            Values goal = poseOfP7;
            if (shown == "point without a frame") {
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
            QCOMPARE(at(desk.sent(), "coordinate.user_frame").toString(), user);
            QCOMPARE(at(desk.sent(), "coordinate.wobj.name").toString(), wobj);
        }
    }
    void stops()
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
    void failedMotions()
    {
        const Rows<FormHost::Failure, QString> rows{
            {"refused", FormHost::Refused, "move to point fail"},
            {"no answer", FormHost::NoAnswer, "move to point fail"},
            {"not connected", FormHost::LinkDown, "tessa not connected"},
        };
        for (const auto &[name, failure, said] : rows) {
            Desk desk;
            desk.host.spoil(failure, "do " + moveCommand + " request");
            desk.button("btnPointMoveJ")->click();
            desk.host.spoil(failure, "do " + stopCommand + " request");
            desk.button("btnStop")->click();
            QCOMPARE(desk.said().join('|'),
                     QString("error: %1 [WMoveCPropertyWidget]|"
                             "error: stop move fail [WMoveCPropertyWidget]")
                         .arg(said));
        }
    }
};

QTEST_MAIN(tst_PointMoves)
#include "tst_pointmoves.moc"
