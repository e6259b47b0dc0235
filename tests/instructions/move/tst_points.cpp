#include <cmath>

#include "controller/core/fields.h"
#include "instructions/move/moveforms.h"
#include "instructions/move/moveinsertwidget.h"
#include "instructions/move/movepropertypointwidget.h"
#include "support/datarows.h"
#include "support/formhost.h"

using namespace testsupport;
using welmo::controller::childAt;
using Values = QVector<double>;

namespace {

const QString project = QStringLiteral("orbo.project");
const QString pointList = QStringLiteral("point._list");
const QString readList = QStringLiteral("get orbo.project point._list");
const QString writeList = QStringLiteral("set orbo.project point._list");
const QString getPosition = QStringLiteral("do tl_program.get_rob_pos");
const QString moveCommand = QStringLiteral("do motion.move.to_point request");
const QString stopCommand = QStringLiteral("do motion.move.stop request");
const char readPosition[] = "btnUpdateLocation";
const QStringList axes{"sbxX", "sbxY", "sbxZ", "sbxA", "sbxB", "sbxC"};
const Values poseOfP7{800, 0, 200, 180, 0, 180};
const Values somewhere{12.5, -3, 450.125, 1, 2, 3};

QVariant poseAnswer(const Values &v)
{
    const QVariantMap euler{{"a", v[3]}, {"b", v[4]}, {"c", v[5]}};
    const QVariantMap frame{{"pos", QVariantMap{{"x", v[0]}, {"y", v[1]}, {"z", v[2]}}},
                            {"ori", QVariantMap{{"euler", euler}}}};
    return QVariantMap{{"pose", QVariantMap{{"frame", frame}}}};
}

/// Acts on the host's question when it appears.
void whenAsked(const std::function<void(QMessageBox *)> &act)
{
    QTimer::singleShot(0, qApp, [act] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box)
            qFatal("there is no question");
        act(box);
    });
}

void agree(QMessageBox *box)
{
    QCOMPARE(box->text(), "Determine the refresh point?");
    box->buttons().constFirst()->click();
}

/// A form of a move, most often a circular one, and one of its two points.
struct Fixture
{
    FormHost host;
    std::unique_ptr<tessa::BaseContentWidget> form;
    MovePropertyPointWidget *panel = nullptr;
    QWidget *group = nullptr;

    explicit Fixture(bool aux = false, const QString &points = "p6,p7")
    {
        make<WMoveCPropertyWidget>(aux ? "wgtAux" : "wgtTarget");
        fill(points);
    }
    template<typename Form>
    void make(const char *point = "wgtTarget")
    {
        form = std::make_unique<Form>(host.window());
        panel = form->template findChild<MovePropertyPointWidget *>();
        group = child(form.get(), point);
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
    void press(const QString &name) const
    {
        if (name == readPosition)
            whenAsked(agree);
        button(name)->click();
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
    /// The value at @p path in the last command that was sent.
    QVariant sent(const QString &path) { return childAt(host.link()->lastPayload, path); }
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
            values.append(childAt(sent("cartesian.pose.frame"), path).toDouble());
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

} // namespace

/// A point in a form: reading the robot's position, computing a target, moving to both, and storing
/// a new point.
class tst_Points : public QObject
{
    Q_OBJECT
private slots:
    void moves_data()
    {
        // p7 looks straight down, its x axis points backwards; p2 is tilted by 35 degrees.
        const Values alongTheTilt{857.358, -200, 133.085, 180, 35, 180};
        addRows<QString, QString, Values>(
            {{"p7", "btnPointMoveJ", "joint", poseOfP7},
             {"p2", "btnPointMoveL", "linear", {800, -200, 215, 180, 35, 180}},
             {"Offs(p2,10,-20,30)", "btnComplexMoveJ", "joint", {810, -220, 245, 180, 35, 180}},
             {"Reltool(p7,10,0,0,0,0,0)", "btnComplexMoveL", "linear", {790, 0, 200, 180, 0, 180}},
             {"RelTool(p2,0,0,100,0,0,0)", "btnComplexMoveL", "linear", alongTheTilt},
             {"Reltool(p7,0,0,0,0,0,30)", "btnComplexMoveJ", "joint", {800, 0, 200, 180, 0, 150}}});
    }
    void moves()
    {
        const auto &[point, button, way, goal] = currentRow<QString, QString, Values>();
        for (const bool aux : {false, true}) {
            Fixture ui(aux, aux ? point + ",p1" : "p1," + point);
            QCOMPARE(ui.computed(), QString());
            ui.button("btnCompute")->click();
            QStringList texts;
            for (const double value : goal)
                texts.append(QString::number(value, 'f', 3));
            QCOMPARE(ui.computed(), texts.join(' '));
            // The request object keeps old items; a second move must not send them.
            for (int i = 0; i < 2; ++i) {
                ui.button(button)->click();
                QCOMPARE(ui.host.takeRequests(), QStringList(moveCommand));
                QCOMPARE(ui.sent("movetype").toString(), way);
                for (int axis = 0; axis < goal.size(); ++axis)
                    QVERIFY(std::abs(ui.sentPose().at(axis) - goal[axis]) < 0.001);
                QCOMPARE(ui.sentFrame(), "world wobj0");
                QCOMPARE(ui.sent("tool").toString(), "torch1");
                QCOMPARE(ui.host.link()->lastPayload.toMap().size(), 4);
                ui.button("btnStop")->click();
                QCOMPARE(ui.host.takeRequests(), QStringList(stopCommand));
                QCOMPARE(ui.host.link()->lastPayload, QVariant(QVariantMap{{"stoptype", 1}}));
            }
            QCOMPARE(ui.host.takeMessages(), QStringList());
        }
    }
    void staleTargetsMoveNothing_data()
    {
        addRows<std::function<void(Fixture &)>>(
            {{"point",
              [](Fixture &ui) { child<QComboBox>(ui.group, "cbxPoint")->setCurrentIndex(0); }},
             {"kind",
              [](Fixture &ui) { child<QAbstractButton>(ui.group, "rbtnReltool")->click(); }},
             {"number", [](Fixture &ui) { ui.box("wgtOffsets", "sbxX")->setValue(2); }},
             {"line", [](Fixture &ui) { ui.fill("p6,Offs(p7,9,2,3)"); }}});
    }
    void staleTargetsMoveNothing()
    {
        const auto &[name, change] = currentRow<std::function<void(Fixture &)>>();
        Fixture ui(false, "p6,Offs(p7,1,2,3)");
        ui.button("btnCompute")->click();
        QVERIFY(ui.button("btnComplexMoveJ")->isEnabled());
        change(ui);
        QCOMPARE(ui.computed(), QString());
        QVERIFY(!ui.button("btnComplexMoveJ")->isEnabled());
        QVERIFY(!ui.button("btnComplexMoveL")->isEnabled());
        ui.panel->onTargetComplexMoveJtoClicked();
        QCOMPARE(ui.host.takeRequests(), QStringList());
    }
    void whatIsShownIsMovedToInItsFrame()
    {
        for (const bool aux : {false, true}) {
            Fixture ui(aux, "p7,p7");
            const QString line = ui.form->ToString();
            ui.host.link()->answers = {{getPosition, poseAnswer(somewhere)}, {moveCommand, 0}};
            const auto move = [&ui] {
                ui.button("btnPointMoveL")->click();
                return ui.sentFrame();
            };
            ui.box("wgtPosition", "sbxZ")->setValue(250.5);
            QCOMPARE(move(), "world wobj0");
            QCOMPARE(ui.sentPose(), (Values{800, 0, 250.5, 180, 0, 180}));
            ui.press(readPosition);
            QCOMPARE(ui.position(), somewhere);
            QCOMPARE(move(), "world fixture1");
            QCOMPARE(ui.sentPose(), somewhere);
            m("orbo.project.point._list.p7")->removeChild("coordinate");
            ui.fill("p6,p6");
            ui.fill("p7,p7");
            QCOMPARE(move(), "default default");
            QCOMPARE(ui.form->ToString(), line);
            QCOMPARE(ui.host.takeMessages(), QStringList());
        }
    }
    // The tool and the object of the line count, not the active ones.
    void asksWithTheLinesToolAndObject()
    {
        Fixture ui;
        m("orbo.toolpage.wobj")->set(nullptr, QString(), "fixture1");
        ui.make<WMoveCPropertyWidget>();
        const auto asked = [&ui] {
            ui.press(readPosition);
            return ui.sent("parameters.tool").toString() + ' '
                + ui.sent("parameters.wobj").toString();
        };
        ui.fill("p6,p7", "tool0,wobj0");
        QCOMPARE(asked(), "tool0 wobj0");
        child<QComboBox>(ui.form.get(), "cbxTool")->setCurrentIndex(1);
        QCOMPARE(asked(), "torch1 wobj0");
        ui.fill("p6,p7", "tool0,fixture1");
        QCOMPARE(asked(), "tool0 fixture1");
    }
    void theQuestion()
    {
        Fixture ui;
        whenAsked([](QMessageBox *box) { box->reject(); });
        ui.button("btnUpdateLocation")->click();
        QCOMPARE(ui.position(), poseOfP7);
        whenAsked([&ui](QMessageBox *box) { // the form may be closed while it asks
            ui.form.reset();
            box->buttons().constFirst()->click();
        });
        qobject_cast<welmo::PointGroup *>(ui.group)->updateLocation();
        QCOMPARE(ui.host.takeRequests(), QStringList());
    }
    void failures_data()
    {
        const QString noPosition = "get robot position fail", noMove = "move to point fail";
        const QString noPoint = "create point fail", noLink = "tessa not connected";
        // the button; the request that fails, and how; the message
        addRows<QString, QString, FormHost::Failure, QString>(
            {{"position refused", readPosition, getPosition, FormHost::Refused, noPosition},
             {"no position", readPosition, getPosition, FormHost::NoAnswer, noPosition},
             {"no link for it", readPosition, getPosition, FormHost::LinkDown, noPosition},
             {"move refused", "btnPointMoveJ", moveCommand, FormHost::Refused, noMove},
             {"move not answered", "btnPointMoveJ", moveCommand, FormHost::NoAnswer, noMove},
             {"no link to move", "btnPointMoveJ", moveCommand, FormHost::LinkDown, noLink},
             {"stop refused", "btnStop", stopCommand, FormHost::Refused, "stop move fail"},
             {"no link to stop", "btnStop", stopCommand, FormHost::LinkDown, "stop move fail"},
             {"no link for a point", "btnNewPoint", getPosition, FormHost::LinkDown, noLink},
             {"no position for one", "btnNewPoint", getPosition, FormHost::NoAnswer, noPosition},
             {"list refused", "btnNewPoint", readList, FormHost::Refused, noPoint},
             {"no answer to the list", "btnNewPoint", readList, FormHost::NoAnswer, noPoint},
             {"disk full", "btnNewPoint", writeList, FormHost::DiskFull, noPoint},
             {"no answer to the write", "btnNewPoint", writeList, FormHost::NoAnswer, noPoint}});
    }
    void failures()
    {
        const auto &[name, button, request, failure, said] =
            currentRow<QString, QString, FormHost::Failure, QString>();
        Fixture ui;
        if (name == "list refused") // each kind of form reports under its own name
            ui.make<WMoveCInsertWidget>();
        const QString line = ui.form->ToString();
        const kelp::ModuleObject *list = m("orbo.project.point._list");
        const QVariant copy = list->toVariant();
        const QVariantList stored = storedPoints(ui.host);
        ui.host.spoil(failure, request);
        ui.press(button);
        // A message about the missing link names no form.
        const QString by = said == "tessa not connected" ? QString() : ui.form->objectName();
        QCOMPARE(ui.host.takeMessages(), QStringList("error: " + said + " [" + by + ']'));
        QCOMPARE(ui.form->ToString(), line);
        QCOMPARE(list->toVariant(), copy);
        QVERIFY(ui.host.mend());
        QCOMPARE(storedPoints(ui.host), stored);
        if (!ui.panel)
            return;
        QCOMPARE(ui.position(), poseOfP7);
        // The form still moves to the point, in the frame of the point.
        ui.press("btnPointMoveJ");
        QCOMPARE(ui.sentFrame(), "world wobj0");
    }
    void unknownPoint()
    {
        Fixture ui(false, "p6,Offs(p99,1,2,3)");
        QCOMPARE(ui.host.takeMessages(),
                 QStringList("warning: There is no point p99 in the project "
                             "[WMoveCPropertyWidget]"));
        for (const char *name : {"btnPointMoveJ", "btnPointMoveL", "btnCompute"})
            QVERIFY(!ui.button(name)->isEnabled());
        ui.panel->onTargetPointMoveJtoClicked();
        ui.panel->onTargetOffsConfirmClicked();
        QCOMPARE(ui.computed(), QString());
        QCOMPARE(ui.host.takeRequests(), QStringList());
        ui.panel->setPointlist();
        QCOMPARE(ui.panel->getParam(), "p6,Offs(p99,1,2,3)");
        auto *points = child<QComboBox>(ui.group, "cbxPoint");
        const int count = points->count();
        ui.fill("p6,p98"); // this unknown name replaces the other one
        QCOMPARE(points->count(), count);
        QCOMPARE(ui.panel->getParam(), "p6,p98");
        ui.host.takeMessages();
        m("orbo.project.point.system_list")->c("home", true)->set(nullptr, "name", "home");
        ui.fill("p6,home");
        QCOMPARE(ui.host.takeMessages(), QStringList());
    }
    void aPointTaughtElsewhereIsTold_data()
    {
        const QString objects = "%1 was taught in wobj0; the line uses fixture1";
        const QString tools = "%1 was taught with torch1; the line uses tool0";
        addRows<QString, QString>({{"the same", "torch1,wobj0", ""},
                                   {"another object", "torch1,fixture1", objects},
                                   {"another tool", "tool0,wobj0", tools},
                                   {"both", "tool0,fixture1", objects + '\n' + tools}});
    }
    // p7 and p6 were taught with torch1 in wobj0.
    void aPointTaughtElsewhereIsTold()
    {
        const auto &[name, with, said] = currentRow<QString, QString>();
        Fixture ui;
        WMoveLInsertWidget insert(ui.host.window());
        ui.fill("p6,p7", with);
        for (const char *combo : {"cbxTool", "cbxWobj"})
            child<QComboBox>(&insert, combo)
                ->setCurrentText(child<QComboBox>(ui.form.get(), combo)->currentText());
        for (const QWidget *form :
             {static_cast<QWidget *>(ui.group),
              static_cast<QWidget *>(child(&insert, "wgtTarget")->parentWidget())}) {
            const QString point = child<QComboBox>(form, "cbxPoint")->currentText();
            auto *label = child<QLabel>(form, "lblTaught");
            QCOMPARE(label->text(), QString(said).replace("%1", point));
            QCOMPARE(label->parentWidget()->isHidden(), said.isEmpty());
        }
        child<QPushButton>(ui.group, "btnTaught")->click();
        QCOMPARE(ui.form->ToString(), "WMoveC p6,p7,v20,z5,torch1,wobj0");
        QVERIFY(child<QLabel>(ui.group, "lblTaught")->parentWidget()->isHidden());
    }
    void aNewPointIsStoredWholeAndChosen()
    {
        for (const bool insert : {true, false}) {
            Fixture ui;
            ui.fill("p1,p1", "torch1,wobj0");
            if (insert)
                ui.make<WMoveCInsertWidget>();
            const auto points = [&ui] { return ui.form->ToString().section(',', 0, 1); };
            QVariantList expected = storedPoints(ui.host);
            ui.host.takeRequests();
            ui.press("btnNewPoint");
            QCOMPARE(ui.host.takeRequests(), QStringList({getPosition, readList, writeList}));
            const QVariantMap point = storedPoints(ui.host).constLast().toMap();
            QCOMPARE(storedPoints(ui.host), expected << point);
            QStringList texts;
            for (const char *path : {"name", "id", "tool", "wobj", "related_frame",
                                     "coordinate.user", "coordinate.wobj"})
                texts.append(childAt(point, path).toString());
            QCOMPARE(texts.join(' '), "p9 p9 torch1 wobj0 wobj world wobj0");
            QVERIFY(!QUuid::fromString(point.value("uuid").toString()).isNull());
            static const QRegularExpression description(
                R"(^Auto generate at: \d{4}/\d\d/\d\d \d\d:\d\d:\d\d$)");
            QVERIFY(description.match(point.value("description").toString()).hasMatch());
            // The host's copy and the robot agree with it.
            QCOMPARE(m("orbo.project.point._list.p9")->toVariant(), QVariant(point));
            const auto answer = ui.host.host().helper()->controllerManager()->execRequest(
                "tl_program.get_rob_pos", {}, QJsonObject{{"tool", "torch1"}, {"wobj", "wobj0"}},
                true, 1600);
            QCOMPARE(answer->r("pose")->toVariant(), childAt(point, "cart.pose"));
            QCOMPARE(QVariant(answer->r("q")->getList()), childAt(point, "joint.q"));
            QCOMPARE(childAt(point, "joint.q").toList().size(), 6);

            QCOMPARE(points(), "WMoveC p1,p9");
            child<QPushButton>(child(ui.form.get(), "wgtAux"), "btnNewPoint")->click();
            QCOMPARE(points(), "WMoveC p10,p9");
            QCOMPARE(ui.host.takeMessages(), QStringList());
        }
    }
    void nameAndFrameOfANewPoint_data()
    {
        addRows<QString, QString, QString>(
            {// the wanted name; the frame of the work object; what is stored
             {"free, own list", "seam_1", "bench", "seam_1 bench"},
             {"taken, unknown frame", "p3", "shelf", "p9 world"},
             {"neither", "", "", "p9 world"},
             {"not a word", "p 9,\"x\"", "bench", "p9 bench"}});
    }
    void nameAndFrameOfANewPoint()
    {
        const auto &[name, wished, frame, stored] = currentRow<QString, QString, QString>();
        FormHost host;
        host.store(project, "user_frame._list", QVariantList{entry("bench", "bench")});
        host.store(project, "wobj._list", QVariantList{entry("w", "w")});
        QVERIFY(host.disconnect() && host.connect()); // so that the host reads the project again
        m("orbo.project.wobj._list.w")->set(nullptr, "user_frame", frame);
        MoveInsertWidget panel(host.window());
        panel.initialize("movec");
        panel.autoAddNewPoint(wished, true, "tool0", "w");
        const QVariant point = storedPoints(host).constLast();
        QCOMPARE(childAt(point, "name").toString() + ' '
                     + childAt(point, "coordinate.user").toString(),
                 stored);
        QCOMPARE(childAt(point, "coordinate.wobj").toString() + childAt(point, "tool").toString(),
                 "wtool0");
        QVERIFY(panel.getParam().startsWith(childAt(point, "name").toString() + ",p1,"));
    }
    void aNewPointKeepsWhatAnotherPendantWrote()
    {
        Fixture ui;
        QVariantList points = storedPoints(ui.host);
        points << entry("x", "p9") << entry("p10", "seam");
        QCOMPARE(ui.host.store(project, pointList, points), 0);
        ui.press("btnNewPoint");
        const QVariantList now = storedPoints(ui.host);
        QCOMPARE(now.mid(0, points.size()), points);
        QCOMPARE(childAt(now.last(), "name").toString(), "p11");
    }
};

QTEST_MAIN(tst_Points)
#include "tst_points.moc"
