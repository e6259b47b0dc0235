#include <QtTest>

#include "controller/program/programplan.h"
#include "programfixture.h"
#include "support/datarows.h"
#include "support/files.h"
#include "tl/parse.h"

using namespace welmo::controller;
using namespace testsupport;

namespace {

/// The plan of the lines on this controller, starting at these joints.
ProgramPlan planOf(ProgramFixture &fixture, const QStringList &lines, const Joints &from)
{
    std::vector<welmo::tl::ParsedLine> parsed;
    for (const QString &line : lines)
        parsed.push_back(welmo::tl::parse(line));
    const ControllerContext reader(*fixture.store, fixture.faults, fixture.journal,
                                   [] { return 0; });
    return ProgramPlan::make(reader, parsed, from);
}

} // namespace

/// The plan of a program agrees with its run.
class tst_ProgramPlan : public QObject
{
    Q_OBJECT
private slots:
    void agreesWithTheRun_data()
    {
        // legs, seams, legs that weave
        addRows<int, int, int>({{"fillet.tl", 6, 1, 0},
                                {"pipe.tl", 6, 3, 0},
                                {"stitch.tl", 10, 4, 0},
                                {"vgroove.tl", 12, 3, 2}});
    }
    void agreesWithTheRun()
    {
        const auto &[name, legs, seams, swayed] = currentRow<int, int, int>();
        ProgramFixture fixture;
        fixture.set("arc_weld.weave_param", "weavedata1",
                    QVariantMap{{"name", "weavedata1"},
                                {"pattern", "triangular"},
                                {"weaving_reference", "length"},
                                {"weave_length_frequency", 5.0},
                                {"amplitude", QVariantMap{{"left", 2.0}, {"right", 3.0}}}});
        const QStringList lines = QString::fromUtf8(contentOf(EXAMPLES "/" + name)).split('\n');
        Joints from{};
        const QVariantList joints = fixture.get("motion.state", "q").value.toList();
        for (size_t i = 0; i < from.size(); ++i)
            from[i] = joints.at(int(i)).toDouble();
        const ProgramPlan plan = planOf(fixture, lines, from);

        QVERIFY(fixture.go(lines).ok());
        const double seconds = double(fixture.finish()) / 1000;
        const QVariantMap result = fixture.state("result").toMap();
        const auto isNear = [](double expected, double actual) {
            if (qAbs(expected - actual) > 0.05 * actual)
                qWarning("%g instead of %g", expected, actual);
            return actual > 0 && qAbs(expected - actual) <= 0.05 * actual;
        };
        QCOMPARE(result["end"], QVariant("finished"));
        QVERIFY(isNear(plan.seconds, seconds));
        QVERIFY(isNear(plan.arcSeconds, result["arc_seconds"].toDouble()));
        QVERIFY(isNear(plan.seamLength, result["welded"].toDouble()));
        QVERIFY(isNear(plan.wire, result["wire"].toDouble()));
        QVERIFY(plan.failed.empty());

        const auto count = [&plan](const auto &which) {
            return int(std::count_if(plan.legs.begin(), plan.legs.end(), which));
        };
        QCOMPARE(int(plan.legs.size()), legs);
        QCOMPARE(count([](const auto &leg) { return leg.isSeam; }), seams);
        QCOMPARE(count([](const auto &leg) { return !leg.weave.empty(); }), swayed);
        const auto &end = plan.legs.back().way.back();
        QVERIFY(fixture.isAt({end[0], end[1], end[2]}));
        // Both sides of a weave together are as wide as its file says.
        for (const auto &leg : plan.legs) {
            double left = 0, right = 0;
            for (const auto &place : leg.weave) {
                const double across = place[0] - leg.way.front()[0];
                const double off = std::hypot(across, place[2] - leg.way.front()[2]);
                (across < 0 ? left : right) = std::max(across < 0 ? left : right, off);
            }
            QVERIFY(leg.weave.empty() || qAbs(left + right - 5) < 0.2);
        }
    }
    void whatCannotBeDoneIsLeftOut()
    {
        ProgramFixture fixture;
        const QStringList lines{"MoveL p99,v50,fine,torch1", "MoveL p3,v50,fine,torch1",
                                "ArcOn \"arcondata40\",\"arcdata1\"",
                                "MoveL Offs(p3,5000,0,0),v50,fine,torch1"};
        const ProgramPlan plan = planOf(fixture, lines, {0, 20, -5, 0, 75, 0});
        QCOMPARE(plan.failed, (std::vector<int>{0, 2, 3}));
        QCOMPARE(int(plan.legs.size()), 1);
    }
};

QTEST_GUILESS_MAIN(tst_ProgramPlan)
#include "tst_programplan.moc"
