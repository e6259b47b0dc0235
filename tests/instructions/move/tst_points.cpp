#include <QApplication>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QJsonObject>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QUuid>
#include <QtTest>
#include <cmath>

#include "instructions/move/moveforms.h"
#include "instructions/move/moveinsertwidget.h"
#include "instructions/move/movepropertypointwidget.h"
#include "support/formhost.h"
#include "support/rows.h"

using testsupport::child;
using testsupport::FormHost;
using testsupport::Rows;
using Values = QVector<double>;

namespace {

const QString project = QStringLiteral("orbo.project");
const QString pointList = QStringLiteral("point._list");
const QString readList = QStringLiteral("get orbo.project point._list");
const QString writeList = QStringLiteral("set orbo.project point._list");
const QString getPosition = QStringLiteral("do tl_program.get_rob_pos");
const QString moveCommand = QStringLiteral("do motion.move.to_point request");
const QString stopCommand = QStringLiteral("do motion.move.stop request");
const QStringList axes{"sbxX", "sbxY", "sbxZ", "sbxA", "sbxB", "sbxC"};
const Values poseOfP7{800, 0, 200, 180, 0, 180};
const Values somewhere{12.5, -3, 450.125, 1, 2, 3};

/// What stands at the dotted path in a map of maps.
QVariant at(const QVariant &map, const QString &path)
{
    QVariant value = map;
    for (const QString &part : path.split('.'))
        value = value.toMap().value(part);
    return value;
}

QVariant poseAnswer(const Values &v)
{
    const QVariantMap euler{{"a", v[3]}, {"b", v[4]}, {"c", v[5]}};
    const QVariantMap frame{{"pos", QVariantMap{{"x", v[0]}, {"y", v[1]}, {"z", v[2]}}},
                            {"ori", QVariantMap{{"euler", euler}}}};
    return QVariantMap{{"pose", QVariantMap{{"frame", frame}}}};
}

/// Does something about the host's question as soon as it is there.
void whenAsked(const std::function<void(QMessageBox *)> &act)
{
    QTimer::singleShot(0, qApp, [act] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box)
            qFatal("there is no question");
        act(box);
    });
}

// Whoever lacks the link says so without a name.
QString by(const QString &said, const QString &form)
{
    return " [" + (said == "tessa not connected" ? QString() : form) + ']';
}

void agree(QMessageBox *box)
{
    QCOMPARE(box->text(), "Determine the refresh point?");
    box->buttons().first()->click();
}

/// The property form of a circular move; a test looks at one point or at the other.
struct Desk
{
    FormHost host;
    std::unique_ptr<WMoveCPropertyWidget> form;
    MovePropertyPointWidget *panel;
    QWidget *group;

    explicit Desk(bool aux = false, const QString &points = "p6,p7")
        : form(std::make_unique<WMoveCPropertyWidget>(host.window()))
        , panel(child<MovePropertyPointWidget>(form.get(), "MovePropertyPointWidget"))
        , group(child(form.get(), aux ? "wgtAux" : "wgtTarget"))
    {
        fill(points);
    }
    void fill(const QString &points, const QString &with = "torch1,fixture1")
    {
        form->FillWith("WMoveC " + points + ",v20,z5," + with);
        host.takeRequests();
    }
    QPushButton *button(const QString &name) const { return child<QPushButton>(group, name); }
    QDoubleSpinBox *box(const char *row, const QString &axis) const
    {
        return child<QDoubleSpinBox>(child(group, row), axis);
    }
    void readPosition() const
    {
        whenAsked(agree);
        button("btnUpdateLocation")->click();
    }
    Values position() const
    {
        Values values;
        for (const QString &axis : axes)
            values.append(box("wgtPosition", axis)->value());
        return values;
    }
    QString computed() const
    {
        QStringList texts;
        for (const QString &axis : axes)
            texts.append(box("wgtComplex", axis)->text());
        return texts.join(' ').remove(QStringLiteral("–")).trimmed();
    }
    /// One of the items of the last command that was sent.
    QVariant sent(const QString &path) { return at(host.link()->lastPayload, path); }
    QString sentFrame()
    {
        return sent("coordinate.user_frame").toString() + ' '
            + sent("coordinate.wobj.name").toString();
    }
    Values sentPose()
    {
        Values values;
        for (const char *path :
             {"pos.x", "pos.y", "pos.z", "ori.euler.a", "ori.euler.b", "ori.euler.c"})
            values.append(at(sent("cartesian.pose.frame"), path).toDouble());
        return values;
    }
};

QVariantList storedPoints(FormHost &host)
{
    return host.stored(project, pointList).toList();
}

QVariantMap entry(const QString &id, const QString &name)
{
    return {{"id", id}, {"name", name}, {"user_frame", "bench"}};
}

/// One of the forms with two points.
struct Forms
{
    FormHost host;
    std::unique_ptr<tessa::BaseContentWidget> form;

    explicit Forms(bool insert)
    {
        if (insert)
            form = std::make_unique<WMoveCInsertWidget>(host.window());
        else
            form = std::make_unique<WMoveCPropertyWidget>(host.window());
        form->FillWith("WMoveC p1,p1,v5,fine,torch1,wobj0");
        host.takeRequests();
    }
    void newPoint(const char *edit)
    {
        child<QPushButton>(child(form.get(), edit), "btnNewPoint")->click();
    }
};

} // namespace

/// Reading the robot's position, computing a target, moving to either, stopping; and storing where
/// the robot is as a project point.
class tst_Points : public QObject
{
    Q_OBJECT
private slots:
    void moves()
    {
        // p7 looks straight down, its x axis points backwards; p2 is tilted by 35 degrees.
        const Rows<QString, QString, Values> rows{
            {"p7", "btnPointMoveJ", "joint", poseOfP7},
            {"p2", "btnPointMoveL", "linear", {800, -200, 215, 180, 35, 180}},
            {"Offs(p2,10,-20,30)", "btnComplexMoveJ", "joint", {810, -220, 245, 180, 35, 180}},
            {"Reltool(p7,10,0,0,0,0,0)", "btnComplexMoveL", "linear", {790, 0, 200, 180, 0, 180}},
            {"RelTool(p2,0,0,100,0,0,0)",
             "btnComplexMoveL",
             "linear",
             {857.358, -200, 133.085, 180, 35, 180}},
            {"Reltool(p7,0,0,0,0,0,30)", "btnComplexMoveJ", "joint", {800, 0, 200, 180, 0, 150}},
        };
        for (const auto &[point, button, way, goal] : rows) {
            for (const bool aux : {false, true}) {
                Desk desk(aux, aux ? point + ",p1" : "p1," + point);
                QCOMPARE(desk.computed(), QString());
                desk.button("btnCompute")->click();
                QStringList texts;
                for (const double value : goal)
                    texts.append(QString::number(value, 'f', 3));
                QCOMPARE(desk.computed(), texts.join(' '));
                // The request object keeps what was set; a second move must not inherit from it.
                for (int i = 0; i < 2; ++i) {
                    desk.button(button)->click();
                    QCOMPARE(desk.host.takeRequests(), QStringList(moveCommand));
                    QCOMPARE(desk.sent("movetype").toString(), way);
                    for (int axis = 0; axis < goal.size(); ++axis)
                        QVERIFY(std::abs(desk.sentPose()[axis] - goal[axis]) < 0.001);
                    QCOMPARE(desk.sentFrame(), "world wobj0");
                    QCOMPARE(desk.sent("tool").toString(), "torch1");
                    QCOMPARE(desk.host.link()->lastPayload.toMap().size(), 4);
                    desk.button("btnStop")->click();
                    QCOMPARE(desk.host.takeRequests(), QStringList(stopCommand));
                    QCOMPARE(desk.host.link()->lastPayload, QVariant(QVariantMap{{"stoptype", 1}}));
                }
                QCOMPARE(desk.host.takeMessages(), QStringList());
            }
        }
    }
    void staleTargetsMoveNothing()
    {
        const Rows<std::function<void(Desk &)>> rows{
            {"point",
             [](Desk &desk) { child<QComboBox>(desk.group, "cbxPoint")->setCurrentIndex(0); }},
            {"kind",
             [](Desk &desk) { child<QAbstractButton>(desk.group, "rbtnReltool")->click(); }},
            {"number", [](Desk &desk) { desk.box("wgtOffsets", "sbxX")->setValue(2); }},
            {"line", [](Desk &desk) { desk.fill("p6,Offs(p7,9,2,3)"); }},
        };
        for (const auto &[name, change] : rows) {
            Desk desk(false, "p6,Offs(p7,1,2,3)");
            desk.button("btnCompute")->click();
            QVERIFY(desk.button("btnComplexMoveJ")->isEnabled());
            change(desk);
            QCOMPARE(desk.computed(), QString());
            QVERIFY(!desk.button("btnComplexMoveJ")->isEnabled());
            QVERIFY(!desk.button("btnComplexMoveL")->isEnabled());
            desk.panel->onTargetComplexMoveJtoClicked();
            QCOMPARE(desk.host.takeRequests(), QStringList());
        }
    }
    void whatIsShownIsMovedToInItsFrame()
    {
        for (const bool aux : {false, true}) {
            Desk desk(aux, "p7,p7");
            const QString line = desk.form->ToString();
            desk.host.link()->answers = {{getPosition, poseAnswer(somewhere)}, {moveCommand, 0}};
            const auto move = [&desk] {
                desk.button("btnPointMoveL")->click();
                return desk.sentFrame();
            };
            desk.box("wgtPosition", "sbxZ")->setValue(250.5);
            QCOMPARE(move(), "world wobj0");
            QCOMPARE(desk.sentPose(), (Values{800, 0, 250.5, 180, 0, 180}));
            desk.readPosition();
            QCOMPARE(desk.position(), somewhere);
            QCOMPARE(move(), "world fixture1");
            QCOMPARE(desk.sentPose(), somewhere);
            m("orbo.project.point._list.p7")->removeChild("coordinate");
            desk.fill("p6,p6");
            desk.fill("p7,p7");
            QCOMPARE(move(), "default default");
            QCOMPARE(desk.form->ToString(), line);
            QCOMPARE(desk.host.takeMessages(), QStringList());
        }
    }
    // What is active on the pendant is another matter, also when the line names the first of a
    // list.
    void asksWithTheLinesToolAndObject()
    {
        Desk desk;
        m("orbo.toolpage.wobj")->set(nullptr, QString(), "fixture1");
        desk.form = std::make_unique<WMoveCPropertyWidget>(desk.host.window());
        desk.group = child(desk.form.get(), "wgtTarget");
        const auto asked = [&desk] {
            desk.readPosition();
            return desk.sent("parameters.tool").toString() + ' '
                + desk.sent("parameters.wobj").toString();
        };
        desk.fill("p6,p7", "tool0,wobj0");
        QCOMPARE(asked(), "tool0 wobj0");
        child<QComboBox>(desk.form.get(), "cbxTool")->setCurrentIndex(1);
        QCOMPARE(asked(), "torch1 wobj0");
        desk.fill("p6,p7", "tool0,fixture1");
        QCOMPARE(asked(), "tool0 fixture1");
    }
    void theQuestion()
    {
        Desk desk;
        whenAsked([](QMessageBox *box) { box->reject(); });
        desk.button("btnUpdateLocation")->click();
        QCOMPARE(desk.position(), poseOfP7);
        whenAsked([&desk](QMessageBox *box) { // the form may go while it asks
            desk.form.reset();
            box->buttons().first()->click();
        });
        qobject_cast<welmo::PointGroup *>(desk.group)->updateLocation();
        QCOMPARE(desk.host.takeRequests(), QStringList());
    }
    void failures()
    {
        const QString noPosition = "get robot position fail";
        const QString noMove = "move to point fail";
        const Rows<QString, FormHost::Failure, QString> rows{
            {"position refused", getPosition, FormHost::Refused, noPosition},
            {"no position", getPosition, FormHost::NoAnswer, noPosition},
            {"no link for it", getPosition, FormHost::LinkDown, noPosition},
            {"move refused", moveCommand, FormHost::Refused, noMove},
            {"move not answered", moveCommand, FormHost::NoAnswer, noMove},
            {"no link to move", moveCommand, FormHost::LinkDown, "tessa not connected"},
            {"stop refused", stopCommand, FormHost::Refused, "stop move fail"},
            {"no link to stop", stopCommand, FormHost::LinkDown, "stop move fail"},
        };
        for (const auto &[name, request, failure, said] : rows) {
            Desk desk;
            const QString line = desk.form->ToString();
            desk.host.spoil(failure, request);
            if (request == getPosition)
                desk.readPosition();
            else
                desk.button(request == stopCommand ? "btnStop" : "btnPointMoveJ")->click();
            QCOMPARE(desk.host.takeMessages(),
                     QStringList("error: " + said + by(said, "WMoveCPropertyWidget")));
            QCOMPARE(desk.position(), poseOfP7);
            QCOMPARE(desk.form->ToString(), line);
            // What can be moved to is still the point, in the point's own frame.
            QVERIFY(desk.host.mend());
            desk.button("btnPointMoveJ")->click();
            QCOMPARE(desk.sentFrame(), "world wobj0");
        }
    }
    void unknownPoint()
    {
        Desk desk(false, "p6,Offs(p99,1,2,3)");
        QCOMPARE(desk.host.takeMessages(),
                 QStringList("warning: There is no point p99 in the project "
                             "[WMoveCPropertyWidget]"));
        for (const char *name : {"btnPointMoveJ", "btnPointMoveL", "btnCompute"})
            QVERIFY(!desk.button(name)->isEnabled());
        desk.panel->onTargetPointMoveJtoClicked();
        desk.panel->onTargetOffsConfirmClicked();
        QCOMPARE(desk.computed(), QString());
        QCOMPARE(desk.host.takeRequests(), QStringList());
        desk.panel->setPointlist();
        QCOMPARE(desk.panel->getParam(), "p6,Offs(p99,1,2,3)");
        auto *points = child<QComboBox>(desk.group, "cbxPoint");
        const int count = points->count();
        desk.fill("p6,p98"); // whose name takes the other's place
        QCOMPARE(points->count(), count);
        QCOMPARE(desk.panel->getParam(), "p6,p98");
        desk.host.takeMessages();
        m("orbo.project.point.system_list")->c("home", true)->set(nullptr, "name", "home");
        desk.fill("p6,home");
        QCOMPARE(desk.host.takeMessages(), QStringList());
    }
    void anUnknownFunctionIsAPlainPointWithItsNumbers()
    {
        Desk desk(false, "p6,Foo(p7,1,2,3)");
        QVERIFY(child<QAbstractButton>(desk.group, "rbtnPlain")->isChecked());
        QCOMPARE(desk.box("wgtOffsets", "sbxZ")->value(), 3.0);
        QVERIFY(desk.box("wgtComplex", "sbxX")->isReadOnly());
        QCOMPARE(desk.panel->getParam(), "p6,p7");
    }
    // p7 and p6 were taught with torch1 in wobj0.
    void aPointTaughtElsewhereIsTold()
    {
        const QString objects = "%1 was taught in wobj0; the line uses fixture1";
        const QString tools = "%1 was taught with torch1; the line uses tool0";
        const Rows<QString, QString> rows{
            {"the same", "torch1,wobj0", ""},
            {"another object", "torch1,fixture1", objects},
            {"another tool", "tool0,wobj0", tools},
            {"both", "tool0,fixture1", objects + '\n' + tools},
        };
        for (const auto &[name, with, said] : rows) {
            Desk desk;
            WMoveLInsertWidget insert(desk.host.window());
            desk.fill("p6,p7", with);
            for (const char *combo : {"cbxTool", "cbxWobj"})
                child<QComboBox>(&insert, combo)
                    ->setCurrentText(child<QComboBox>(desk.form.get(), combo)->currentText());
            for (const QWidget *form :
                 {static_cast<QWidget *>(desk.group),
                  static_cast<QWidget *>(child(&insert, "wgtTarget")->parentWidget())}) {
                const QString point = child<QComboBox>(form, "cbxPoint")->currentText();
                auto *label = child<QLabel>(form, "lblTaught");
                QCOMPARE(label->text(), QString(said).replace("%1", point));
                QCOMPARE(label->parentWidget()->isHidden(), said.isEmpty());
            }
            child<QPushButton>(desk.group, "btnTaught")->click();
            QCOMPARE(desk.form->ToString(), "WMoveC p6,p7,v20,z5,torch1,wobj0");
            QVERIFY(child<QLabel>(desk.group, "lblTaught")->parentWidget()->isHidden());
        }
    }
    void aNewPointIsStoredWholeAndChosen()
    {
        for (const bool insert : {true, false}) {
            Forms desk(insert);
            QVariantList expected = storedPoints(desk.host);
            desk.newPoint("wgtTarget");
            QCOMPARE(desk.host.takeRequests(), QStringList({getPosition, readList, writeList}));
            const QVariantMap point = storedPoints(desk.host).last().toMap();
            QCOMPARE(storedPoints(desk.host), expected << point);
            QStringList texts;
            for (const char *path : {"name", "id", "tool", "wobj", "related_frame",
                                     "coordinate.user", "coordinate.wobj"})
                texts.append(at(point, path).toString());
            QCOMPARE(texts.join(' '), "p9 p9 torch1 wobj0 wobj world wobj0");
            QVERIFY(!QUuid::fromString(point.value("uuid").toString()).isNull());
            const QRegularExpression description(
                R"(^Auto generate at: \d{4}/\d\d/\d\d \d\d:\d\d:\d\d$)");
            QVERIFY(description.match(point.value("description").toString()).hasMatch());
            // The host's copy says the same, and so does the robot.
            QCOMPARE(m("orbo.project.point._list.p9")->toVariant(), QVariant(point));
            const auto answer = desk.host.host().helper()->controllerManager()->execRequest(
                "tl_program.get_rob_pos", {}, QJsonObject{{"tool", "torch1"}, {"wobj", "wobj0"}},
                true, 1600);
            QCOMPARE(answer->r("pose")->toVariant(), at(point, "cart.pose"));
            QCOMPARE(QVariant(answer->r("q")->getList()), at(point, "joint.q"));
            QCOMPARE(at(point, "joint.q").toList().size(), 6);

            QCOMPARE(desk.form->ToString(), "WMoveC p1,p9,v5,fine,torch1,wobj0");
            desk.newPoint("wgtAux");
            QCOMPARE(desk.form->ToString(), "WMoveC p10,p9,v5,fine,torch1,wobj0");
            QCOMPARE(desk.host.takeMessages(), QStringList());
        }
    }
    void nameAndFrameOfANewPoint()
    {
        const Rows<QString, QString, QString> rows{
            // the wished name and the work object's frame; what is stored
            {"free, own list", "seam_1", "bench", "seam_1 bench"},
            {"taken, unknown frame", "p3", "shelf", "p9 world"},
            {"neither", "", "", "p9 world"},
            {"not a word", "p 9,\"x\"", "bench", "p9 bench"},
        };
        for (const auto &[name, wished, frame, stored] : rows) {
            FormHost host;
            host.store(project, "user_frame._list", QVariantList{entry("bench", "bench")});
            host.store(project, "wobj._list", QVariantList{entry("w", "w")});
            QVERIFY(host.disconnect() && host.connect()); // the host reads its copy anew
            m("orbo.project.wobj._list.w")->set(nullptr, "user_frame", frame);
            MoveInsertWidget panel(host.window());
            panel.initialize("movec");
            panel.autoAddNewPoint(wished, true, "tool0", "w");
            const QVariant point = storedPoints(host).last();
            QCOMPARE(at(point, "name").toString() + ' ' + at(point, "coordinate.user").toString(),
                     stored);
            QCOMPARE(at(point, "coordinate.wobj").toString() + at(point, "tool").toString(),
                     "wtool0");
            QVERIFY(panel.getParam().startsWith(at(point, "name").toString() + ",p1,"));
        }
    }
    void aNewPointKeepsWhatAnotherPendantWrote()
    {
        Forms desk(false);
        QVariantList points = storedPoints(desk.host);
        points << entry("x", "p9") << entry("p10", "seam");
        QCOMPARE(desk.host.store(project, pointList, points), 0);
        desk.newPoint("wgtTarget");
        const QVariantList now = storedPoints(desk.host);
        QCOMPARE(now.mid(0, points.size()), points);
        QCOMPARE(at(now.last(), "name").toString(), "p11");
    }
    void failuresOfANewPoint()
    {
        const Rows<FormHost::Failure, QString, QString> rows{
            {"not connected", FormHost::LinkDown, getPosition, "tessa not connected"},
            {"position refused", FormHost::Refused, getPosition, "get robot position fail"},
            {"no answer to it", FormHost::NoAnswer, getPosition, "get robot position fail"},
            {"list refused", FormHost::Refused, readList, "create point fail"},
            {"no answer to the list", FormHost::NoAnswer, readList, "create point fail"},
            {"disk full", FormHost::DiskFull, writeList, "create point fail"},
            {"no answer to the write", FormHost::NoAnswer, writeList, "create point fail"},
        };
        for (const auto &[name, failure, request, said] : rows) {
            Forms desk(request == readList); // both report under their own name
            const QString before = desk.form->ToString();
            const kelp::ModuleObject *shown = m("orbo.project.point._list");
            const QVariant copy = shown->toVariant();
            const QVariantList stored = storedPoints(desk.host);
            desk.host.spoil(failure, request);
            desk.newPoint("wgtTarget");
            QCOMPARE(desk.host.takeMessages(),
                     QStringList("error: " + said + by(said, desk.form->objectName())));
            QCOMPARE(desk.form->ToString(), before);
            QCOMPARE(shown->toVariant(), copy);
            QVERIFY(desk.host.mend());
            QCOMPARE(storedPoints(desk.host), stored);
        }
    }
};

QTEST_MAIN(tst_Points)
#include "tst_points.moc"
