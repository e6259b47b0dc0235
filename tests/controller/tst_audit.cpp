#include <QtTest>

#include "controller/core/difference.h"
#include "controller/core/json.h"
#include "controllerfixture.h"
#include "schema/names.h"
#include "support/datarows.h"

using namespace testsupport;
using welmo::controller::AuditLog;
using welmo::controller::Reply;
using welmo::controller::Store;

namespace names = welmo::names;

namespace {

constexpr char points[] = "point._list";

/// Writes as a pendant on the network does.
Reply write(ControllerFixture *fixture, const QString &path, const QString &key,
            const QVariant &value)
{
    welmo::controller::Request request{ControllerFixture::Kind::Set, path, key, value};
    request.author = {"anna", "pendant", "2026-11-20 08:00:00"};
    return fixture->controller.handle(request);
}

QVariantMap page(ControllerFixture *fixture, const QString &key = {})
{
    return fixture->controller.handle({ControllerFixture::Kind::Get, names::audit, key, {}})
        .value.toMap();
}

int bytesOf(const QVariantMap &page)
{
    return welmo::controller::toJson(page).size();
}

} // namespace

/// The audit: who changed what, in bounded space, and whether somebody altered it.
class tst_Audit : public QObject
{
    Q_OBJECT
private slots:
    void keepsWhatChanged_data()
    {
        const QVariantMap before{{"a", 1}, {"b", QVariantMap{{"c", 2}, {"d", 3}}}, {"gone", true}};
        const QVariantMap after{{"a", 1}, {"b", QVariantMap{{"c", 2}, {"d", 4}}}, {"new", "x"}};
        const auto changes = [](const QString &in) {
            return QVariantList{QVariantMap{{"at", in + "b.d"}, {"old", 3}, {"new", 4}},
                                QVariantMap{{"at", in + "gone"}, {"old", true}},
                                QVariantMap{{"at", in + "new"}, {"new", "x"}}};
        };
        addRows<QVariant, QVariant, QVariantList>(
            {{"nothing", before, before, {}},
             {"in maps", before, after, changes("")},
             {"in lists", QVariantList{1, before}, QVariantList{1, after, 7},
              changes("1.") + QVariantList{QVariantMap{{"at", "2"}, {"new", 7}}}},
             {"a beginning", {}, 5, {QVariantMap{{"at", ""}, {"new", 5}}}}});
    }
    void keepsWhatChanged()
    {
        const auto &[name, old, now, expected] = currentRow<QVariant, QVariant, QVariantList>();
        QCOMPARE(welmo::controller::difference(old, now), expected);
        QCOMPARE(welmo::controller::applied(old, expected), now);
    }

    // A new point adds one change, however many points there are.
    void staysSmallWhilePointsAreTaught()
    {
        ControllerFixture fixture;
        QVariantList list = fixture.get("orbo.project", points).value.toList();
        for (int i = 0; i < 300; ++i) {
            const QString name = QStringLiteral("t%1").arg(i);
            list.append(with(list.first().toMap(), "id", name));
            QVERIFY(write(&fixture, names::project, points, list).ok());
        }
        QSet<qint64> seen;
        QVariantMap part = page(&fixture);
        for (; !part["entries"].toList().isEmpty();
             part = page(&fixture, part["before"].toString())) {
            QVERIFY(bytesOf(part) < 200 * 1024);
            for (const QVariant &entry : part["entries"].toList()) {
                QCOMPARE(entry.toMap()["changes"].toList().size(), 1);
                seen.insert(entry.toMap()["number"].toLongLong());
            }
            if (!part.contains("before"))
                break;
        }
        QCOMPARE(seen.size(), 300);
        QCOMPARE(fixture.get("cell.audit", "x").code, int(welmo::controller::UnknownKey));
    }

    void hasABudget()
    {
        ControllerFixture fixture;
        for (int i = 0; i < 600; ++i) {
            const QVariantMap large{{"name", "weavedata1"}, {"note", QString(7000, 'a' + i % 26)}};
            QVERIFY(write(&fixture, "arc_weld.weave_param", "weavedata1", large).ok());
        }
        qint64 bytes = 0;
        QVERIFY(
            fixture.store->database().readNumber("SELECT sum(length(content)) FROM audit", &bytes));
        QVERIFY(bytes > AuditLog::mostBytes / 2 && bytes <= AuditLog::mostBytes);
        QCOMPARE(page(&fixture).value("entries").toList().constLast().toMap()["number"],
                 QVariant(600));
        QVariantMap huge{{"name", "weavedata1"}, {"note", QString(13000, 'x')}};
        huge["more"] = QString(12000, 'y');
        QVERIFY(!write(&fixture, "arc_weld.weave_param", "weavedata1", huge).ok()); // too large
        QVariantMap point = fixture.get("orbo.project", points).value.toList().first().toMap();
        point["note"] = QString(60000, 'x');
        QVERIFY(write(&fixture, names::project, points, QVariantList{point}).ok());
        QVERIFY(page(&fixture).value("entries").toList().constLast().toMap().contains("omitted"));
    }

    void anotherHandShows_data()
    {
        addRows<QByteArray, int>(
            {{"nothing", "SELECT 1", 0},
             {"another user", "UPDATE audit SET user = 'bert' WHERE number = 2", 2},
             {"another value", "UPDATE audit SET content = '{}' WHERE number = 3", 3},
             {"one taken out", "DELETE FROM audit WHERE number = 2", 2},
             {"the oldest taken out", "DELETE FROM audit WHERE number = 1", 2},
             {"the newest taken out", "DELETE FROM audit WHERE number = 4", 4},
             {"all of it", "DELETE FROM audit", 1}});
    }
    void anotherHandShows()
    {
        const auto &[name, sql, broken] = currentRow<QByteArray, int>();
        const QTemporaryDir folder;
        const QString file = folder.filePath(name);
        QString problem;
        {
            ControllerFixture fixture(Store::open(file, &problem));
            for (int i = 1; i <= 4; ++i) {
                const QVariantMap content{{"name", "arcondata1"}, {"current", i}};
                QVERIFY(write(&fixture, "arc_weld.arcon_param", "arcondata1", content).ok());
            }
            QVERIFY(fixture.store->database().execute(sql.constData()));
        }
        const ControllerFixture fixture(Store::open(file, &problem));
        QCOMPARE(fixture.controller.complaints().size(), broken ? 1 : 0);
        if (broken)
            QVERIFY(fixture.controller.complaints().first().contains(QString::number(broken)));
        QCOMPARE(fixture.journal.entries().size(), broken ? 1 : 0);
    }
};

QTEST_GUILESS_MAIN(tst_Audit)
#include "tst_audit.moc"
