#include <QComboBox>
#include <QPointer>
#include <QTabWidget>
#include <QtTest>

#include "pointdesk.h"
#include "support/rows.h"

using testsupport::Rows;

/// What the panel of the points shows, reading the robot's position, computing a target.
class tst_PointPanels : public QObject
{
    Q_OBJECT
private slots:
    void showsThePoint()
    {
        const Desk desk;
        QCOMPARE(desk.position(), poseOfP7);
        child<QComboBox>(desk.group, "cbxPoint")->setCurrentIndex(1);
        QCOMPARE(desk.position(), (Values{800, -200, 215, 180, 35, 180}));
    }
    void readsThePosition()
    {
        for (const QString which : {"wgtTarget", "wgtAux"}) {
            Desk desk(which);
            desk.host.link()->answers.insert("do " + getPosition, poseAnswer(somewhere));
            const QString line = desk.form->ToString();
            QString asked;
            answerQuestion(true, &asked);
            desk.button("btnUpdateLocation")->click();
            QCOMPARE(asked, "Determine the refresh point?");
            QCOMPARE(desk.position(), somewhere);
            QCOMPARE(at(desk.sent(), "parameters"),
                     QVariant(QVariantMap{{"tool", "torch1"}, {"wobj", "fixture1"}}));
            QCOMPARE(desk.form->ToString(), line);
            QCOMPARE(desk.said(), QStringList());
        }
    }
    // What is active on the pendant is another matter, also when the line names the first of a
    // list.
    void asksWithTheLinesToolAndObject()
    {
        FormHost host;
        m("orbo.toolpage.wobj")->set(nullptr, QString(), "fixture1");
        WMoveCPropertyWidget form(host.window());
        const auto asked = [&host, &form] {
            answerQuestion(true);
            child<MovePropertyPointWidget>(&form, "MovePropertyPointWidget")
                ->onAuxUpdateLocationClicked();
            const QVariant parameters = at(host.link()->lastPayload, "parameters");
            return at(parameters, "tool").toString() + ' ' + at(parameters, "wobj").toString();
        };
        form.FillWith("WMoveC p6,p7,v20,z5,tool0,wobj0");
        QCOMPARE(asked(), "tool0 wobj0");
        child<QComboBox>(&form, "cbxTool")->setCurrentIndex(1);
        QCOMPARE(asked(), "torch1 wobj0");
        form.FillWith("WMoveC p6,p7,v20,z5,tool0,fixture1");
        QCOMPARE(asked(), "tool0 fixture1");
    }
    void missingValuesAreZero()
    {
        Desk desk;
        answerQuestion(false);
        desk.button("btnUpdateLocation")->click();
        QCOMPARE(desk.position(), poseOfP7); // not confirmed: nothing changes
        QCOMPARE(desk.host.takeRequests(), QStringList());
        desk.host.link()->answers.insert("do " + getPosition, QVariantMap{{"q", QVariantList()}});
        answerQuestion(true);
        desk.panel()->onTargetUpdateLocationClicked();
        QCOMPARE(desk.position(), Values(6, 0));
    }
    void failedReadChangesNothing()
    {
        for (const auto failure : {FormHost::Refused, FormHost::NoAnswer, FormHost::LinkDown}) {
            Desk desk;
            const QString line = desk.form->ToString();
            desk.host.spoil(failure, "do " + getPosition);
            answerQuestion(true);
            desk.button("btnUpdateLocation")->click();
            QCOMPARE(desk.said(),
                     QStringList("error: get robot position fail [WMoveCPropertyWidget]"));
            QCOMPARE(desk.position(), poseOfP7);
            QCOMPARE(desk.form->ToString(), line);
            // What can be moved to is still the point, in the point's own frame.
            QVERIFY(desk.host.mend());
            desk.button("btnPointMoveJ")->click();
            QCOMPARE(at(desk.sent(), "coordinate.wobj.name").toString(), "wobj0");
        }
    }
    void formMayGoWhileItAsks()
    {
        Desk desk;
        QTimer::singleShot(0, qApp, [&desk] {
            QPointer<QMessageBox> box(
                qobject_cast<QMessageBox *>(QApplication::activeModalWidget()));
            QVERIFY(box);
            desk.form.reset();
            QVERIFY(box);
            box->buttons().first()->click();
        });
        PointGroup *group = qobject_cast<PointGroup *>(desk.group);
        group->updateLocation();
        QCOMPARE(desk.host.takeRequests(), QStringList());
    }
    void computes()
    {
        // p7 looks straight down, its x axis points backwards; p2 is tilted by 35 degrees.
        const Rows<QString> rows{
            {"p7", "800.000 0.000 200.000 180.000 0.000 180.000"},
            {"Offs(p2,10,-20,30)", "810.000 -220.000 245.000 180.000 35.000 180.000"},
            {"Reltool(p7,10,0,0,0,0,0)", "790.000 0.000 200.000 180.000 0.000 180.000"},
            {"Reltool(p7,0,10,0,0,0,0)", "800.000 10.000 200.000 180.000 0.000 180.000"},
            {"Reltool(p7,0,0,10,0,0,0)", "800.000 0.000 190.000 180.000 0.000 180.000"},
            {"RelTool(p2,0,0,100,0,0,0)", "857.358 -200.000 133.085 180.000 35.000 180.000"},
            {"Reltool(p7,0,0,0,0,0,30)", "800.000 0.000 200.000 180.000 0.000 150.000"},
            {"Reltool(p2,0,0,0,0,-10,0)", "800.000 -200.000 215.000 180.000 45.000 180.000"},
        };
        for (const auto &[point, target] : rows) {
            for (const bool aux : {false, true}) {
                const QString points = aux ? point + ",p1" : "p1," + point;
                const Desk desk(aux ? "wgtAux" : "wgtTarget",
                                "WMoveC " + points + ",v20,z5,torch1,fixture1");
                QCOMPARE(desk.computed(), QStringList());
                desk.button("btnCompute")->click();
                QCOMPARE(desk.computed().join(' '), target);
            }
        }
    }
    void unknownPoint()
    {
        const QString line = "WMoveC p6,Offs(p99,1,2,3),v20,z5,torch1,fixture1";
        Desk desk("wgtTarget", line);
        QCOMPARE(desk.said(),
                 QStringList("warning: There is no point p99 in the project "
                             "[WMoveCPropertyWidget]"));
        QCOMPARE(desk.form->ToString(), line);
        for (const char *name : {"btnPointMoveJ", "btnPointMoveL", "btnCompute"})
            QVERIFY(!desk.button(name)->isEnabled());
        desk.panel()->onTargetPointMoveJtoClicked();
        desk.panel()->onTargetOffsConfirmClicked();
        QCOMPARE(desk.computed(), QStringList());
        QCOMPARE(desk.host.takeRequests(), QStringList());
        desk.panel()->setPointlist();
        QCOMPARE(desk.form->ToString(), line);
    }
    void tabsOfBothPoints()
    {
        FormHost host;
        MovePropertyPointWidget panel(host.window());
        for (const bool circular : {false, true, false, true}) {
            panel.initialize(circular ? "movec" : "movel");
            QCOMPARE(child<QTabWidget>(&panel, "twgtPoints")->count(), circular ? 2 : 1);
            QCOMPARE(panel.getParam(), circular ? "p1,p1" : "p1");
            panel.onAuxOffsConfirmClicked(); // without such a point: nothing to do
            panel.setAuxPoint("p1");
        }
        panel.setAuxPoint("Offs(p3,1,2,3)");
        panel.setTargetPoint("p4");
        QCOMPARE(panel.getParam(), "Offs(p3,1,2,3),p4");
        QCOMPARE(panel.splitPoint("RelTool(p1, 2,3)"), (QStringList{"RelTool", "p1", "2", "3"}));
        QCOMPARE(panel.splitPoint("p1"), (QStringList{"default", "p1"}));
    }
};

QTEST_MAIN(tst_PointPanels)
#include "tst_pointpanels.moc"
