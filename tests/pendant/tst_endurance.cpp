
#include "kelp/registry.h"
#include "pando/bmodule.h"
#include "pendant/app/pluginloader.h"
#include "pendant/program/formpane.h"
#include "support/files.h"
#include "support/heap.h"
#include "support/programtouch.h"
#include "support/testpendant.h"

using namespace testsupport;
using welmo::pendant::FormPane;

namespace {

/// By how much the heap grows while @p once runs @p count times; the caches are filled before.
template<typename Work>
qint64 growthOver(int count, Work once)
{
    const auto repeat = [&](int times) {
        for (int i = 0; i < times; ++i)
            once(i);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    };
    repeat(count / 10);
    const qint64 before = heapInUse();
    repeat(count);
    return heapInUse() - before;
}

bool isLibraryMapped()
{
    return contentOf("/proc/self/maps").contains("libwelmo.so");
}

// What an allocator may keep; one small object left behind each time is far more.
constexpr qint64 slack = qint64(300) * 1024;
// Qt 5.15 keeps some 200 bytes of a spin box's style until another box has the same address. Over
// 10,000 forms that is 66 bytes for each spin box.
constexpr qint64 keptByQt = 90;
// ./dev soak runs at full length. A tenth of that does not fill Qt's caches, so that only objects
// are counted then.
const bool atLength = qEnvironmentVariableIsSet("WELMO_SOAK");
const int openings = atLength ? 10000 : 1000;
const int notified = atLength ? 1000000 : 100000;

} // namespace

/// A pendant that is never switched off keeps its memory.
class tst_Endurance : public QObject
{
    Q_OBJECT

private slots:
    // What the library registers with the host and Qt is there while it is loaded, and gone
    // afterwards.
    void libraryComesAndGoes()
    {
        const QString resource = QStringLiteral(":/welmo/template/welmo.json");
        for (int round = 0; round < 100; ++round) {
            welmo::pendant::PluginLoader loader(WELMO_MODULE);
            QVERIFY2(loader.load(), qPrintable(loader.error()));
            QCOMPARE(bfactory()->keys(), QStringList{"welmo"});
            QCOMPARE(kelp::versionManager().size(), 8);
            QVERIFY(QFile::exists(resource));
            QVERIFY(isLibraryMapped());
        }
        QVERIFY(bfactory()->keys().isEmpty());
        QVERIFY(kelp::versionManager().isEmpty());
        QVERIFY(!QFile::exists(resource));
        QVERIFY(!isLibraryMapped());
        TestPendant pendant;
        pendant.open("arcweldpackage");
    }
    void formOpenings()
    {
        const QStringList lines{R"(ArcOn "arcondata1","arcdata1")",
                                R"(ArcOff "arcoffdata1")",
                                R"(WeaveOn "weavedata1")",
                                "WeaveOff",
                                R"(SegOn "segdata1")",
                                "SegOff",
                                "WMoveL p1,v10,fine,torch1,wobj0",
                                "WMoveC p1,p2,v10,fine,torch1,wobj0",
                                "DetectGas 0.5",
                                "FeedOnWire 0.5",
                                "FeedBackWire 0.5",
                                R"(ArcOn "what")"};
        TestPendant pendant;
        auto *pane = pendant.window()->findChild<FormPane *>();
        // Objects are counted too, since the limit of bytes has to allow for Qt's own.
        const auto objects = [&pendant] {
            return pendant.window()->findChildren<QObject *>().size()
                + pendant.host()->findChildren<QObject *>().size();
        };
        int kept = 0;
        qint64 fields = 0;
        const qint64 growth = growthOver(openings, [&](int i) {
            pane->openEdit(lines[i % lines.size()], i, true);
            fields += pane->findChildren<QAbstractSpinBox *>().size();
            if (i == lines.size() - 1)
                kept = objects();
        });
        pane->openEdit(lines.last(), 1, true);
        QCOMPARE(objects(), kept);
        QVERIFY2(growth < slack + fields * keptByQt || !atLength,
                 qPrintable(QString::number(growth)));
    }
    void notifications()
    {
        TestPendant pendant;
        pendant.open("arcweldpackage");
        const qint64 growth = growthOver(notified, [&](int i) {
            const QVariantMap values{{"current", i % 400},
                                     {"voltage", i % 40},
                                     {"welding_time", i / 8.0},
                                     {"robot_ready", i % 2 == 0},
                                     {"wire " + QString::number(i % 50), i}};
            emit pendant.host()->link()->notified("arc_weld.welder_state", values);
        });
        QVERIFY2(growth < slack, qPrintable(QString::number(growth)));
    }
    /// The window is closed while the pendant waits for an answer that does not come.
    void closedWithAFormOpenAndACallPending()
    {
        for (const bool late : {true, false}) {
            TestPendant pendant;
            pendant.open("program");
            ProgramTouch(pendant).insert("ArcOn");
            QTimer::singleShot(0, pendant.window(), [&] { pendant.window()->close(); });
            if (late)
                pendant.faults()->setDelay(10000);
            else
                pendant.faults()->loseAnswers(1);
            pendant.host()->service()->exchange(
                {tessa::LinkRequest::Kind::Get, "arc_weld.weld_mode", {}, {}}, 50);
            QTRY_VERIFY(!pendant.window()->isVisible());
            pendant.app().stop();
            QVERIFY(!tessa::Host::current());
        }
    }
};

QTEST_MAIN(tst_Endurance)
#include "tst_endurance.moc"
