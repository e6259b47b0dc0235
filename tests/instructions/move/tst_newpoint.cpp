#include <QComboBox>
#include <QJsonObject>
#include <QPushButton>
#include <QUuid>
#include <QtTest>

#include "instructions/moveinsertwidget.h"
#include "instructions/wmovecinsertwidget.h"
#include "instructions/wmovecpropertywidget.h"
#include "support/formhost.h"

using testsupport::child;
using testsupport::FormHost;

namespace {

const QString project = QStringLiteral("orbo.project");
const QString pointList = QStringLiteral("point._list");
const QString getPosition = QStringLiteral("tl_program.get_rob_pos");

QVariantList storedPoints(FormHost &host)
{
    return host.stored(project, pointList).toList();
}

QStringList namesIn(const QVariantList &points)
{
    QStringList names;
    for (const QVariant &point : points)
        names.append(point.toMap().value("name").toString());
    return names;
}

QStringList shownPoints()
{
    return m("orbo.project.point._list")->cmobjNames();
}

QVariant at(const QVariant &map, const QString &path)
{
    QVariant value = map;
    for (const QString &part : path.split('.'))
        value = value.toMap().value(part);
    return value;
}

QString pointIn(QWidget *form, const char *edit)
{
    return child<QComboBox>(child(form, edit), "cbxPoint")->currentText();
}

void newPoint(QWidget *form, const char *edit)
{
    child<QPushButton>(child(form, edit), "btnNewPoint")->click();
}

/// One of the forms with two points, and who reports in it.
struct Desk
{
    FormHost host;
    std::unique_ptr<tessa::BaseContentWidget> form;

    explicit Desk(const QString &kind)
    {
        if (kind == "insert") {
            form = std::make_unique<WMoveCInsertWidget>(host.window());
        } else {
            form = std::make_unique<WMoveCPropertyWidget>(host.window());
            form->FillWith("WMoveC p2,p3,v20,z5,torch1,wobj0");
        }
    }
    QString error(const QString &text) const
    {
        return "error: " + text + " [" + form->objectName() + ']';
    }
};

} // namespace

/// Storing where the robot is as a project point.
class tst_NewPoint : public QObject
{
    Q_OBJECT
private slots:
    void isStoredWhole_data();
    void isStoredWhole();
    void isChosenWhereItWasWanted();
    void frameOfItsWorkObject_data();
    void frameOfItsWorkObject();
    void wishedName_data();
    void wishedName();
    void keepsWhatAnotherPendantWrote();
    void failures_data();
    void failures();
};

void tst_NewPoint::isStoredWhole_data()
{
    QTest::addColumn<QString>("kind");
    QTest::newRow("insert") << "insert";
    QTest::newRow("property") << "property";
}

void tst_NewPoint::isStoredWhole()
{
    QFETCH(QString, kind);
    Desk desk(kind);
    desk.host.takeRequests();
    newPoint(desk.form.get(), "wgtTarget");
    QCOMPARE(desk.host.takeMessages(), QStringList());
    QCOMPARE(desk.host.takeRequests(),
             (QStringList{"do " + getPosition, "get orbo.project point._list",
                          "set orbo.project point._list"}));
    const QVariantList points = storedPoints(desk.host);
    QCOMPARE(namesIn(points), QString("p1 p2 p3 p4 p5 p6 p7 p8 p9").split(' '));
    const QVariantMap point = points.last().toMap();
    QCOMPARE(point.keys(),
             QString("cart coordinate description id joint name related_frame tool "
                     "uuid wobj")
                 .split(' '));
    QCOMPARE(point.value("id").toString(), "p9");
    QVERIFY(!QUuid::fromString(point.value("uuid").toString()).isNull());
    const QRegularExpression description(R"(^Auto generate at: \d{4}/\d\d/\d\d \d\d:\d\d:\d\d$)");
    QVERIFY(description.match(point.value("description").toString()).hasMatch());
    QCOMPARE(point.value("tool").toString(), "torch1");
    QCOMPARE(point.value("wobj").toString(), "wobj0");
    QCOMPARE(point.value("related_frame").toString(), "wobj");
    QCOMPARE(at(point, "coordinate.user").toString(), "world");
    QCOMPARE(at(point, "coordinate.wobj").toString(), "wobj0");
    // The host's copy says the same, and so does the robot.
    QCOMPARE(m("orbo.project.point._list.p9")->toVariant(), QVariant(point));
    const auto answer = desk.host.host().helper()->controllerManager()->execRequest(
        getPosition, {}, QJsonObject{{"tool", "torch1"}, {"wobj", "wobj0"}}, true, 1600);
    QCOMPARE(answer->r("pose")->toVariant(), at(point, "cart.pose"));
    QCOMPARE(QVariant(answer->r("q")->getList()), at(point, "joint.q"));
    QCOMPARE(at(point, "joint.q").toList().size(), 6);
}

void tst_NewPoint::isChosenWhereItWasWanted()
{
    for (const QString kind : {"insert", "property"}) {
        Desk desk(kind);
        const QString before = pointIn(desk.form.get(), "wgtTarget");
        newPoint(desk.form.get(), "wgtAux");
        QCOMPARE(pointIn(desk.form.get(), "wgtAux"), "p9");
        QCOMPARE(pointIn(desk.form.get(), "wgtTarget"), before);
        newPoint(desk.form.get(), "wgtTarget");
        QVERIFY(desk.form->ToString().startsWith("WMoveC p9,p10,"));
    }
}

void tst_NewPoint::frameOfItsWorkObject_data()
{
    QTest::addColumn<QString>("userFrame"); // of the work object
    QTest::addColumn<QString>("stored");
    QTest::newRow("own list") << "bench"
                              << "bench";
    QTest::newRow("unknown") << "shelf"
                             << "world";
    QTest::newRow("none") << ""
                          << "world";
}

void tst_NewPoint::frameOfItsWorkObject()
{
    QFETCH(QString, userFrame);
    QFETCH(QString, stored);
    FormHost host;
    host.store(project, "user_frame._list",
               QVariantList{QVariantMap{{"id", "bench"}, {"name", "bench"}}});
    host.store(project, "wobj._list",
               QVariantList{QVariantMap{{"id", "w"}, {"name", "w"}, {"user_frame", "bench"}}});
    QVERIFY(host.disconnect() && host.connect()); // the host reads its copy anew
    m("orbo.project.wobj._list.w")->set(nullptr, "user_frame", userFrame);
    MoveInsertWidget panel(host.window());
    panel.initialize("movel");
    panel.autoAddNewPoint({}, false, "tool0", "w");
    QCOMPARE(host.takeMessages(), QStringList());
    const QVariant point = storedPoints(host).last();
    QCOMPARE(at(point, "coordinate.user").toString(), stored);
    QCOMPARE(at(point, "coordinate.wobj").toString(), "w");
    QCOMPARE(at(point, "tool").toString(), "tool0");
}

void tst_NewPoint::wishedName_data()
{
    QTest::addColumn<QString>("wished");
    QTest::addColumn<QString>("name");
    QTest::newRow("free") << "seam_1"
                          << "seam_1";
    QTest::newRow("taken") << "p3"
                           << "p9";
    QTest::newRow("none") << ""
                          << "p9";
    QTest::newRow("not a word") << "p 9,\"x\""
                                << "p9";
}

void tst_NewPoint::wishedName()
{
    QFETCH(QString, wished);
    QFETCH(QString, name);
    FormHost host;
    MoveInsertWidget panel(host.window());
    panel.initialize("movec");
    panel.autoAddNewPoint(wished, true, "torch1", "wobj0");
    QCOMPARE(namesIn(storedPoints(host)).last(), name);
    QVERIFY(panel.getParam().startsWith(name + ",p1,"));
}

void tst_NewPoint::keepsWhatAnotherPendantWrote()
{
    Desk desk("property");
    QVariantList points = storedPoints(desk.host);
    points.append(QVariantMap{{"id", "x"}, {"name", "p9"}, {"uuid", "theirs"}});
    points.append(QVariantMap{{"id", "p10"}, {"name", "seam"}, {"uuid", "theirs"}});
    QCOMPARE(desk.host.store(project, pointList, points), 0);
    newPoint(desk.form.get(), "wgtTarget");
    QCOMPARE(desk.host.takeMessages(), QStringList());
    const QVariantList now = storedPoints(desk.host);
    QCOMPARE(now.mid(0, points.size()), points);
    QCOMPARE(namesIn(now).last(), "p11");
}

void tst_NewPoint::failures_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("failure");
    QTest::addColumn<QString>("said");
    for (const char *kind : {"insert", "property"}) {
        const auto row = [kind](const char *failure, const char *said) {
            QTest::addRow("%s, %s", kind, failure) << kind << failure << said;
        };
        row("not connected", "tessa not connected");
        row("position refused", "get robot position fail");
        row("no answer to the position", "get robot position fail");
        row("list refused", "create point fail");
        row("no answer to the list", "create point fail");
        row("disk full", "create point fail");
        row("no answer to the write", "create point fail");
    }
}

void tst_NewPoint::failures()
{
    QFETCH(QString, kind);
    QFETCH(QString, failure);
    QFETCH(QString, said);
    Desk desk(kind);
    const QString before = desk.form->ToString();
    const QStringList shown = shownPoints();
    const QVariantList stored = storedPoints(desk.host);
    if (failure == "not connected")
        QVERIFY(desk.host.disconnect());
    else if (failure == "position refused")
        desk.host.faults()->setCode(getPosition, 7);
    else if (failure == "no answer to the position")
        desk.host.link()->breakAt = "do " + getPosition;
    else if (failure == "list refused")
        desk.host.faults()->setCode(project, 8);
    else if (failure == "no answer to the list")
        desk.host.link()->breakAt = "get orbo.project point._list";
    else if (failure == "disk full")
        desk.host.faults()->set(controller::Faults::Fault::DiskFull, true);
    else
        desk.host.link()->breakAt = "set orbo.project point._list";
    newPoint(desk.form.get(), "wgtTarget");
    QCOMPARE(desk.host.takeMessages(), QStringList(desk.error(said)));
    QCOMPARE(desk.form->ToString(), before);
    QCOMPARE(shownPoints(), shown);
    desk.host.faults()->clear();
    QVERIFY(desk.host.connect());
    QCOMPARE(storedPoints(desk.host), stored);
}

QTEST_MAIN(tst_NewPoint)
#include "tst_newpoint.moc"
