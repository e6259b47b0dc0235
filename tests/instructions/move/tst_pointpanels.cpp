#include <QApplication>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTabBar>
#include <QTimer>
#include <QtTest>
#include <cmath>

#include "instructions/movepropertypointwidget.h"
#include "instructions/wmovecpropertywidget.h"
#include "support/formhost.h"

using testsupport::child;
using testsupport::FormHost;

namespace {

using Values = QVector<double>;

const QString getPosition = QStringLiteral("tl_program.get_rob_pos");
const QString moveCommand = QStringLiteral("motion.move.to_point");
const QString stopCommand = QStringLiteral("motion.move.stop");
const QStringList axes{"sbxX", "sbxY", "sbxZ", "sbxA", "sbxB", "sbxC"};

QVariant at(const QVariant &map, const QString &path)
{
    QVariant value = map;
    for (const QString &part : path.split('.'))
        value = value.toMap().value(part);
    return value;
}

Values valuesAt(const QVariant &frame)
{
    Values values;
    for (const char *path :
         {"pos.x", "pos.y", "pos.z", "ori.euler.a", "ori.euler.b", "ori.euler.c"})
        values.append(at(frame, path).toDouble());
    return values;
}

QVariantMap poseAnswer(const Values &v)
{
    const QVariantMap euler{{"a", v[3]}, {"b", v[4]}, {"c", v[5]}};
    const QVariantMap frame{{"pos", QVariantMap{{"x", v[0]}, {"y", v[1]}, {"z", v[2]}}},
                            {"ori", QVariantMap{{"euler", euler}}}};
    return {{"pose", QVariantMap{{"frame", frame}}}, {"q", QVariantList{1, 2, 3, 4, 5, 6}}};
}

/// Touches the host's question as soon as it is there.
void answerQuestion(bool agree, QString *asked = nullptr)
{
    QTimer::singleShot(0, qApp, [agree, asked] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box)
            qFatal("there is no question");
        if (asked)
            *asked = box->text();
        if (agree)
            box->buttons().first()->click();
        else
            box->reject();
    });
}

/// The property form of a circular move; half of the tests look at one point, half at the other.
struct Desk
{
    FormHost host;
    std::unique_ptr<WMoveCPropertyWidget> form;
    QWidget *group;

    explicit Desk(const QString &which = "wgtTarget",
                  const QString &line = "WMoveC p6,p7,v20,z5,torch1,fixture1")
        : form(std::make_unique<WMoveCPropertyWidget>(host.window()))
        , group(child(form.get(), which))
    {
        form->FillWith(line);
        host.takeRequests();
    }

    MovePropertyPointWidget *panel() const
    {
        return child<MovePropertyPointWidget>(form.get(), "MovePropertyPointWidget");
    }
    QPushButton *button(const QString &name) const { return child<QPushButton>(group, name); }
    Values position() const
    {
        Values values;
        for (const QString &axis : axes)
            values.append(child<QDoubleSpinBox>(child(group, "wgtPosition"), axis)->value());
        return values;
    }
    QStringList computed() const
    {
        QStringList texts;
        for (const QString &axis : axes)
            texts.append(child<QLineEdit>(child(group, "wgtComplex"), axis)->text());
        texts.removeAll(QString());
        return texts;
    }
    QStringList said() { return host.takeMessages(); }
    QVariant sent() { return host.link()->lastPayload; }
};

const Values poseOfP7{800, 0, 200, 180, 0, 180};
const Values somewhere{12.5, -3, 450.125, 1, 2, 3};

} // namespace

/// Reading the robot's position, computing a target, moving to it and stopping.
class tst_PointPanels : public QObject
{
    Q_OBJECT
private slots:
    void showsThePoint();
    void readsThePosition();
    void missingValuesAreZero();
    void unconfirmedChangesNothing();
    void failedReadChangesNothing_data();
    void failedReadChangesNothing();
    void formMayGoWhileItAsks();
    void computes_data();
    void computes();
    void staleTargetsMoveNothing_data();
    void staleTargetsMoveNothing();
    void moves_data();
    void moves();
    void frameOfWhatIsShown_data();
    void frameOfWhatIsShown();
    void stops();
    void failedMotions_data();
    void failedMotions();
    void unknownPoint();
    void tabsOfBothPoints();
};

void tst_PointPanels::showsThePoint()
{
    const Desk desk;
    QCOMPARE(desk.position(), poseOfP7);
    child<QComboBox>(desk.group, "cbxPoint")->setCurrentIndex(1);
    QCOMPARE(desk.position(), (Values{800, -200, 215, 180, 35, 180}));
}

void tst_PointPanels::readsThePosition()
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

void tst_PointPanels::missingValuesAreZero()
{
    Desk desk;
    desk.host.link()->answers.insert("do " + getPosition, QVariantMap{{"q", QVariantList()}});
    answerQuestion(true);
    desk.panel()->onTargetUpdateLocationClicked();
    QCOMPARE(desk.position(), Values(6, 0));
}

void tst_PointPanels::unconfirmedChangesNothing()
{
    Desk desk;
    answerQuestion(false);
    desk.button("btnUpdateLocation")->click();
    QCOMPARE(desk.position(), poseOfP7);
    QCOMPARE(desk.host.takeRequests(), QStringList());
    QCOMPARE(desk.said(), QStringList());
}

void tst_PointPanels::failedReadChangesNothing_data()
{
    QTest::addColumn<QString>("failure");
    QTest::newRow("refused") << "refused";
    QTest::newRow("no answer") << "no answer";
    QTest::newRow("not connected") << "not connected";
}

void tst_PointPanels::failedReadChangesNothing()
{
    QFETCH(QString, failure);
    Desk desk;
    const QString line = desk.form->ToString();
    if (failure == "refused")
        desk.host.faults()->setCode(getPosition, 7);
    else if (failure == "no answer")
        desk.host.link()->breakAt = "do " + getPosition;
    else
        QVERIFY(desk.host.disconnect());
    answerQuestion(true);
    desk.button("btnUpdateLocation")->click();
    QCOMPARE(desk.said(), QStringList("error: get robot position fail [WMoveCPropertyWidget]"));
    QCOMPARE(desk.position(), poseOfP7);
    QCOMPARE(desk.form->ToString(), line);
    // What can be moved to is still the point, in the point's own frame.
    desk.host.faults()->clear();
    QVERIFY(desk.host.connect());
    desk.button("btnPointMoveJ")->click();
    QCOMPARE(at(desk.sent(), "coordinate.wobj.name").toString(), "wobj0");
}

void tst_PointPanels::formMayGoWhileItAsks()
{
    Desk desk;
    QTimer::singleShot(0, qApp, [&desk] {
        QPointer<QMessageBox> box(qobject_cast<QMessageBox *>(QApplication::activeModalWidget()));
        QVERIFY(box);
        desk.form.reset();
        QVERIFY(box);
        box->buttons().first()->click();
    });
    PointGroup *group = qobject_cast<PointGroup *>(desk.group);
    group->updateLocation();
    QCOMPARE(desk.host.takeRequests(), QStringList());
}

void tst_PointPanels::computes_data()
{
    QTest::addColumn<QString>("point");
    QTest::addColumn<QStringList>("target");
    const auto row = [](const char *name, const QString &point, const QString &target) {
        QTest::newRow(name) << point << target.split(' ');
    };
    // p7 looks straight down, its x axis points backwards; p2 is tilted by 35 degrees.
    row("as it is", "p7", "800.000 0.000 200.000 180.000 0.000 180.000");
    row("offset goes along the frame", "Offs(p2,10,-20,30)",
        "810.000 -220.000 245.000 180.000 35.000 180.000");
    row("tool x", "Reltool(p7,10,0,0,0,0,0)", "790.000 0.000 200.000 180.000 0.000 180.000");
    row("tool y", "Reltool(p7,0,10,0,0,0,0)", "800.000 10.000 200.000 180.000 0.000 180.000");
    row("tool z goes down", "Reltool(p7,0,0,10,0,0,0)",
        "800.000 0.000 190.000 180.000 0.000 180.000");
    row("tilted tool", "RelTool(p2,0,0,100,0,0,0)",
        "857.358 -200.000 133.085 180.000 35.000 180.000");
    row("turned about its axis", "Reltool(p7,0,0,0,0,0,30)",
        "800.000 0.000 200.000 180.000 0.000 150.000");
    row("tilted further", "Reltool(p2,0,0,0,0,-10,0)",
        "800.000 -200.000 215.000 180.000 45.000 180.000");
}

void tst_PointPanels::computes()
{
    QFETCH(QString, point);
    for (const QString which : {"wgtTarget", "wgtAux"}) {
        const QString line = which == "wgtAux" ? "WMoveC %1,p1,v20,z5,torch1,fixture1"
                                               : "WMoveC p1,%1,v20,z5,torch1,fixture1";
        const Desk desk(which, line.arg(point));
        QCOMPARE(desk.computed(), QStringList());
        desk.button("btnCompute")->click();
        QTEST(desk.computed(), "target");
    }
}

void tst_PointPanels::staleTargetsMoveNothing_data()
{
    QTest::addColumn<QString>("change");
    QTest::newRow("nothing computed") << "none";
    QTest::newRow("another point") << "point";
    QTest::newRow("another kind") << "kind";
    QTest::newRow("another number") << "number";
    QTest::newRow("another line") << "line";
}

void tst_PointPanels::staleTargetsMoveNothing()
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

void tst_PointPanels::moves_data()
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

void tst_PointPanels::moves()
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

void tst_PointPanels::frameOfWhatIsShown_data()
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

void tst_PointPanels::frameOfWhatIsShown()
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

void tst_PointPanels::stops()
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

void tst_PointPanels::failedMotions_data()
{
    QTest::addColumn<QString>("failure");
    QTest::addColumn<QStringList>("said");
    QTest::newRow("refused") << "refused" << QStringList{"move to point fail", "stop move fail"};
    QTest::newRow("no answer") << "no answer"
                               << QStringList{"move to point fail", "stop move fail"};
    QTest::newRow("not connected")
        << "not connected" << QStringList{"tessa not connected", "stop move fail"};
}

void tst_PointPanels::failedMotions()
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

void tst_PointPanels::unknownPoint()
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

void tst_PointPanels::tabsOfBothPoints()
{
    FormHost host;
    MovePropertyPointWidget panel(host.window());
    for (const bool circular : {false, true}) {
        panel.initialize(circular ? "movec" : "movel");
        QCOMPARE(!child<QTabBar>(&panel, "qt_tabwidget_tabbar")->isHidden(), circular);
        QCOMPARE(panel.getParam(), circular ? "p1,p1" : "p1");
    }
    panel.setAuxPoint("Offs(p3,1,2,3)");
    panel.setTargetPoint("p4");
    QCOMPARE(panel.getParam(), "Offs(p3,1,2,3),p4");
    QCOMPARE(panel.splitPoint("RelTool(p1, 2,3)"), (QStringList{"RelTool", "p1", "2", "3"}));
    QCOMPARE(panel.splitPoint("p1"), (QStringList{"default", "p1"}));
}

QTEST_MAIN(tst_PointPanels)
#include "tst_pointpanels.moc"
