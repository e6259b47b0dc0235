#include <QtTest>

#include "seams.h"
#include "support/datarows.h"
#include "support/heap.h"

using namespace welmo::book;
using namespace testsupport;

namespace {

Limits currentLimits()
{
    Limits limits;
    limits.file = "arcdata1";
    limits.current = {170, 190};
    return limits;
}

QVariantMap alarm(int id, const char *code)
{
    return {{"id", id}, {"code", code}, {"arguments", QVariantList{"98.9"}}};
}

using Act = std::function<void(Workshop &)>;

} // namespace

/// What the recorder makes of what a controller tells.
class tst_SeamRecorder : public QObject
{
    Q_OBJECT
private slots:
    void aSeamTellsWhatWasWelded()
    {
        Workshop shop;
        shop.recorder.setMode("real");
        shop.recorder.fileInUse = [](const QString &) { return FileInUse{7, {175, 19, 6}}; };
        shop.recorder.tellProgram({{"name", "vgroove.tl"}, {"state", "running"}, {"line", 5}});
        shop.tell({{"phase", "idle"}, {"program", "vgroove.tl"}, {"line", 6}}); // who knows better
        shop.weld(4000);
        QCOMPARE(shop.seams.size(), 1);
        const Seam seam = shop.seams.first();
        QCOMPARE(seam.program + ' ' + QString::number(seam.line), QString("vgroove.tl 6"));
        QCOMPARE(seam.arconFile + ' ' + seam.weldFile + ' ' + seam.arcoffFile,
                 QString("arcondata1 arcdata1 arcoffdata1"));
        QCOMPARE(seam.weldVersion, 7);
        QCOMPARE(*seam.setCurrent, 175.0);
        QCOMPARE(seam.current.mean, 180.0);
        QCOMPARE(seam.current.deviation, 0.0);
        QCOMPARE(seam.arcTime, 4.4);
        QCOMPARE(seam.length, 22.0);
        QCOMPARE(*seam.gasTime, 5.2);
        // 180 A · 20 V / 5 mm/s = 720 J/mm
        QVERIFY(qFuzzyCompare(*seam.arcEnergy, 0.72));
        QVERIFY(qFuzzyCompare(*seam.heatInput, 0.72 * 0.8));
        QCOMPARE(seam.ended, ending::regular);
        QVERIFY(!seam.wire);
        QCOMPARE(shop.course.size(), 44);
    }
    void endingsAndTroubles_data()
    {
        // how it ended, strikes again, gaps, why, the verdict
        addRows<QString, Act>(
            {{"regular", "regular 0 0 - 1", [](auto &) {}},
             {"stopped by hand", "stopped 0 0 stopped 2", [](auto &shop) { shop.quit(); }},
             {"alarm of the program", "alarm 0 0 alarm 3",
              [](auto &shop) {
                  shop.recorder.tellProgram({{"state", "error"}, {"message", "the arc broke"}});
                  shop.quit();
              }},
             {"alarm with a code", "alarm 0 0 alarm 3 arc_lost [\"98.9\"]",
              [](auto &shop) {
                  shop.recorder.tellAlarms({alarm(7, "no_gas"), alarm(8, "arc_lost")});
                  shop.recorder.tellProgram({{"state", "error"}, {"message", "line 7: arc_lost"}});
                  shop.quit();
              }},
             {"an alarm that ends nothing", "regular 0 0 - 1 arc_restruck [\"98.9\"]",
              [](auto &shop) { shop.recorder.tellAlarms({alarm(9, "arc_restruck")}); }},
             {"an alarm that is told late", "alarm 0 0 alarm 3",
              [](auto &shop) {
                  shop.arc(0);
                  shop.phase("idle");
                  shop.pass(100);
                  shop.recorder.tellProgram({{"state", "error"}, {"message", "the arc broke"}});
                  shop.pass(1000);
              }},
             {"link lost", "link_lost 0 0 incomplete 2",
              [](auto &shop) { shop.recorder.tellLink(false, shop.now); }},
             {"struck again", "regular 1 0 restrike 2",
              [](auto &shop) {
                  shop.phase("ignition");
                  shop.pass(200);
                  shop.phase("welding");
              }},
             {"a gap in the arc", "regular 0 1 interruption 2",
              [](auto &shop) {
                  shop.arc(0);
                  shop.pass(300);
                  shop.arc(180);
              }},
             {"paused and carried on", "regular 0 1 interruption 2", [](auto &shop) {
                  shop.arc(0);
                  shop.phase("idle");
                  shop.recorder.tellProgram({{"state", "paused"}});
                  shop.pass(60000);
                  shop.recorder.tellProgram({{"state", "running"}});
                  shop.phase("ignition");
                  shop.arc(180);
                  shop.pass(200);
                  shop.phase("welding");
              }}});
    }
    void endingsAndTroubles()
    {
        const auto &[name, seen, act] = currentRow<QString, Act>();
        Workshop shop;
        shop.recorder.limitsOf = [](const QString &) { return currentLimits(); };
        shop.recorder.tellAlarms({alarm(6, "wire_stuck")}); // before it was looked at
        shop.recorder.tellProgram({{"name", "a.tl"}, {"state", "running"}, {"line", 2}});
        shop.tell({{"phase", "ignition"}, {"welding_name", "arcondata1"}});
        shop.arc(180);
        shop.tell({{"phase", "welding"}, {"welding_name", "arcdata1"}});
        shop.pass(3000);
        act(shop);
        if (shop.recorder.isBusy() && shop.recorder.actual().current > 0) {
            shop.phase("crater");
            shop.quit();
        }
        shop.pass(2000);
        QCOMPARE(shop.seams.size(), 1);
        const Seam seam = shop.seams.first();
        QVERIFY(shop.course.size() < 50); // a pause is no part of the course
        const QString told =
            seam.alarmArguments.isEmpty() ? QString() : seam.alarm + ' ' + seam.alarmArguments;
        QCOMPARE(QStringLiteral("%1 %2 %3 %4 %5 %6")
                     .arg(seam.ended)
                     .arg(seam.restrikes)
                     .arg(seam.interruptions)
                     .arg(seam.reason.isEmpty() ? "-" : seam.reason)
                     .arg(int(seam.verdict))
                     .arg(told)
                     .trimmed(),
                 seen);
    }
    void withoutPhasesTheArcItselfCounts()
    {
        Workshop shop;
        for (int i = 0; i < 2; ++i) {
            shop.arc(150);
            shop.pass(1000);
            shop.arc(0, 0, 0); // struck again within the second
            shop.pass(500);
            shop.arc(150);
            shop.pass(1000);
            shop.arc(0, 0, 0);
            shop.pass(3000);
        }
        QCOMPARE(shop.seams.size(), 2);
        QCOMPARE(shop.seams.last().ended, ending::regular);
        QVERIFY(qAbs(shop.seams.last().duration - 2500) < 100);
        QVERIFY(!shop.seams.last().gasTime);
    }
    void theClockHarmsNothing_data()
    {
        // ms that it is turned, minutes that the zone moves; when the seam ends, and what is noted
        addRows<int, int, QString, int>(
            {{"set back", -3600 * 1000, 0, "2023-11-15T00:00:01", -3600 * 1000},
             {"over midnight", 0, 0, "2023-11-15T00:00:01", 0},
             {"summer ends", 0, -60, "2023-11-15T00:00:01", 0}});
    }
    void theClockHarmsNothing()
    {
        const auto &[name, turned, zone, ends, moved] = currentRow<int, int, QString, int>();
        Workshop shop;
        shop.now.wall = 1700002799000; // 23:59:59 in its zone
        shop.tell({{"phase", "welding"}, {"welding_name", "arcdata1"}});
        shop.arc(180);
        shop.pass(1000);
        shop.now.wall += turned;
        shop.now.utcOffset += zone;
        shop.pass(1000);
        shop.quit();
        const Seam seam = shop.seams.first();
        QCOMPARE(seam.startedAt().toString("yyyy-MM-ddTHH:mm:ss"), QString("2023-11-14T23:59:59"));
        QCOMPARE(seam.endedAt().toString("yyyy-MM-ddTHH:mm:ss"), ends);
        QCOMPARE(seam.clockMoved, moved);
        QCOMPARE(seam.duration, 2300);
    }
    void aTrimIsRecordedAsWelded_data()
    {
        const auto set = [](double current) { return QVariantMap{{"set_current", current}}; };
        // what happens in the weld; version, set current and number of trims in its record
        addRows<Act, QString>(
            {{"none", [](auto &) {}, "7 175 0"},
             {"file saved", [](auto &shop) { shop.save("arcdata1"); }, "8 190 1"},
             {"another file saved", [](auto &shop) { shop.save("arcdata2"); }, "7 175 0"},
             {"saved after the arc",
              [](auto &shop) {
                  shop.phase("idle");
                  shop.save("arcdata1");
              },
              "7 175 0"},
             {"told by the controller",
              [set](auto &shop) {
                  shop.tell(set(175));
                  shop.tell(set(181));
              },
              "7 181 1"},
             {"saved and told",
              [set](auto &shop) {
                  shop.tell(set(175));
                  shop.save("arcdata1");
                  shop.tell(set(190));
                  shop.tell(set(0)); // no seam any more
              },
              "8 190 1"}});
    }
    void aTrimIsRecordedAsWelded()
    {
        const auto &[name, act, seen] = currentRow<Act, QString>();
        Workshop shop;
        shop.recorder.fileInUse = [&](const QString &) { return shop.file; };
        shop.file = {7, {175, {}, {}}};
        shop.tell({{"phase", "welding"}, {"welding_name", "arcdata1"}});
        shop.arc(180);
        shop.pass(1000);
        act(shop);
        shop.quit();
        const Seam seam = shop.seams.first();
        QCOMPARE(QStringLiteral("%1 %2 %3")
                     .arg(seam.weldVersion)
                     .arg(seam.setCurrent.value_or(0))
                     .arg(seam.trims),
                 seen);
    }
    void aDayOfWeldingTakesNoMemory()
    {
        Workshop shop;
        qint64 before = 0;
        for (int weld = 0; weld < 24 * 60; ++weld) { // one a minute
            shop.weld(30000);
            shop.pass(27000);
            shop.forget();
            if (weld == 60)
                before = heapInUse();
        }
        QCOMPARE(shop.begun, 24 * 60);
        QVERIFY(heapInUse() - before < 10000);
    }
    void aSampleBeyondTheLimitIsToldWithin200Ms()
    {
        Workshop shop;
        shop.recorder.limitsOf = [](const QString &) { return currentLimits(); };
        shop.tell({{"phase", "welding"}, {"welding_name", "arcdata1"}});
        shop.arc(300); // masked: the arc has just been struck
        shop.pass(400);
        shop.arc(180);
        shop.pass(2000);
        QCOMPARE(shop.alarms, QStringList());
        shop.arc(195);
        shop.pass(180);
        QCOMPARE(shop.alarms.size(), 1);
        QVERIFY2(shop.alarms.first().startsWith("current 195"), qPrintable(shop.alarms.first()));
        shop.pass(2000);
        QCOMPARE(shop.alarms.size(), 1);
        shop.phase("crater");
        shop.quit();
        QCOMPARE(shop.seams.first().verdict, Verdict::Red);
        QCOMPARE(shop.seams.first().reason, QString("current"));
    }
    void testAndSimulationAreNotJudged()
    {
        Workshop shop;
        shop.recorder.setMode("simu");
        shop.recorder.limitsOf = [](const QString &) { return currentLimits(); };
        shop.weld(3000, 300);
        QCOMPARE(shop.seams.first().mode, QString("simu"));
        QCOMPARE(shop.seams.first().verdict, Verdict::None);
    }
    void limitsAreLearntFromTenSeams()
    {
        QVector<Seam> good;
        for (int i = 0; i < 9; ++i) {
            Seam seam;
            seam.arcTime = 10;
            seam.current = {180.0 + (i % 2 ? 2 : -2), 170, 190, 3};
            seam.length = 50;
            good.append(seam);
        }
        QVERIFY(!learnt("arcdata1", good));
        good.append(good[1]);
        const auto limits = learnt("arcdata1", good);
        QVERIFY(limits);
        QCOMPARE(limits->learntFrom, 10);
        // Within a seam 3 A, between them 2 A: together √13.
        QVERIFY(qAbs(*limits->current.high - (180 + 3 * std::sqrt(13))) < 0.01);
        QVERIFY(!limits->heatInput.isSet());
    }
};

QTEST_GUILESS_MAIN(tst_SeamRecorder)
#include "tst_seamrecorder.moc"
