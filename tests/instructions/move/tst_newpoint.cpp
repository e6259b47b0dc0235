#include <QComboBox>
#include <QJsonObject>
#include <QUuid>
#include <QtTest>

#include "instructions/moveinsertwidget.h"
#include "instructions/wmovecinsertwidget.h"
#include "instructions/wmovecpropertywidget.h"
#include "pointdesk.h"
#include "support/rows.h"

using testsupport::Rows;

namespace {

const QString project = QStringLiteral("orbo.project");
const QString pointList = QStringLiteral("point._list");
const QString readList = QStringLiteral("get orbo.project point._list");
const QString writeList = QStringLiteral("set orbo.project point._list");

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

QString pointIn(QWidget *form, const char *edit)
{
    return child<QComboBox>(child(form, edit), "cbxPoint")->currentText();
}

void newPoint(QWidget *form, const char *edit)
{
    child<QPushButton>(child(form, edit), "btnNewPoint")->click();
}

/// One of the forms with two points, and who reports in it.
struct Forms
{
    FormHost host;
    std::unique_ptr<tessa::BaseContentWidget> form;

    explicit Forms(const QString &kind)
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
    void isStoredWhole()
    {
        for (const QString kind : {"insert", "property"}) {
            Forms desk(kind);
            desk.host.takeRequests();
            newPoint(desk.form.get(), "wgtTarget");
            QCOMPARE(desk.host.takeMessages(), QStringList());
            QCOMPARE(desk.host.takeRequests(),
                     (QStringList{"do " + getPosition, readList, writeList}));
            const QVariantList points = storedPoints(desk.host);
            QCOMPARE(namesIn(points), QString("p1 p2 p3 p4 p5 p6 p7 p8 p9").split(' '));
            const QVariantMap point = points.last().toMap();
            QCOMPARE(point.keys(),
                     QString("cart coordinate description id joint name related_frame tool "
                             "uuid wobj")
                         .split(' '));
            QVERIFY(!QUuid::fromString(point.value("uuid").toString()).isNull());
            const QRegularExpression description(
                R"(^Auto generate at: \d{4}/\d\d/\d\d \d\d:\d\d:\d\d$)");
            QVERIFY(description.match(point.value("description").toString()).hasMatch());

            for (const auto &[path, value] :
                 {std::pair{"id", "p9"}, std::pair{"tool", "torch1"}, std::pair{"wobj", "wobj0"},
                  std::pair{"related_frame", "wobj"}, std::pair{"coordinate.user", "world"},
                  std::pair{"coordinate.wobj", "wobj0"}})
                QCOMPARE(at(point, path).toString(), QString(value));
            // The host's copy says the same, and so does the robot.
            QCOMPARE(m("orbo.project.point._list.p9")->toVariant(), QVariant(point));
            const auto answer = desk.host.host().helper()->controllerManager()->execRequest(
                getPosition, {}, QJsonObject{{"tool", "torch1"}, {"wobj", "wobj0"}}, true, 1600);
            QCOMPARE(answer->r("pose")->toVariant(), at(point, "cart.pose"));
            QCOMPARE(QVariant(answer->r("q")->getList()), at(point, "joint.q"));
            QCOMPARE(at(point, "joint.q").toList().size(), 6);
        }
    }
    void isChosenWhereItWasWanted()
    {
        for (const QString kind : {"insert", "property"}) {
            Forms desk(kind);
            const QString before = pointIn(desk.form.get(), "wgtTarget");
            newPoint(desk.form.get(), "wgtAux");
            QCOMPARE(pointIn(desk.form.get(), "wgtAux"), "p9");
            QCOMPARE(pointIn(desk.form.get(), "wgtTarget"), before);
            newPoint(desk.form.get(), "wgtTarget");
            QVERIFY(desk.form->ToString().startsWith("WMoveC p9,p10,"));
        }
    }
    void frameOfItsWorkObject()
    {
        // of the work object
        const Rows<QString, QString> rows{
            {"own list", "bench", "bench"},
            {"unknown", "shelf", "world"},
            {"none", "", "world"},
        };
        for (const auto &[name, userFrame, stored] : rows) {
            FormHost host;
            host.store(project, "user_frame._list",
                       QVariantList{QVariantMap{{"id", "bench"}, {"name", "bench"}}});
            host.store(
                project, "wobj._list",
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
    }
    void wishedName()
    {
        const Rows<QString, QString> rows{
            {"free", "seam_1", "seam_1"},
            {"taken", "p3", "p9"},
            {"none", "", "p9"},
            {"not a word", "p 9,\"x\"", "p9"},
        };
        for (const auto &[name, wished, given] : rows) {
            FormHost host;
            MoveInsertWidget panel(host.window());
            panel.initialize("movec");
            panel.autoAddNewPoint(wished, true, "torch1", "wobj0");
            QCOMPARE(namesIn(storedPoints(host)).last(), given);
            QVERIFY(panel.getParam().startsWith(given + ",p1,"));
        }
    }
    void keepsWhatAnotherPendantWrote()
    {
        Forms desk("property");
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
    void failures()
    {
        const QString ask = "do " + getPosition;
        const Rows<FormHost::Failure, QString, QString> rows{
            {"not connected", FormHost::LinkDown, ask, "tessa not connected"},
            {"position refused", FormHost::Refused, ask, "get robot position fail"},
            {"no answer to it", FormHost::NoAnswer, ask, "get robot position fail"},
            {"list refused", FormHost::Refused, readList, "create point fail"},
            {"no answer to the list", FormHost::NoAnswer, readList, "create point fail"},
            {"disk full", FormHost::DiskFull, writeList, "create point fail"},
            {"no answer to the write", FormHost::NoAnswer, writeList, "create point fail"},
        };
        for (const QString kind : {"insert", "property"}) {
            for (const auto &[name, failure, request, said] : rows) {
                Forms desk(kind);
                const QString before = desk.form->ToString();
                const kelp::ModuleObject *shown = m("orbo.project.point._list");
                const QVariant copy = shown->toVariant();
                const QVariantList stored = storedPoints(desk.host);
                desk.host.spoil(failure, request);
                newPoint(desk.form.get(), "wgtTarget");
                QCOMPARE(desk.host.takeMessages(), QStringList(desk.error(said)));
                QCOMPARE(desk.form->ToString(), before);
                QCOMPARE(shown->toVariant(), copy);
                QVERIFY(desk.host.mend());
                QCOMPARE(storedPoints(desk.host), stored);
            }
        }
    }
};

QTEST_MAIN(tst_NewPoint)
#include "tst_newpoint.moc"
