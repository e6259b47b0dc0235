#include <QLabel>
#include <QTest>
#include <functional>

#include "support/programtouch.h"
#include "support/rows.h"
#include "support/testpendant.h"

using testsupport::Rows;
using testsupport::Setup;
using testsupport::TestPendant;
using welmo::controller::Faults;

/// What went wrong is told, kept, and led back to its cause.
class TestAlarms : public QObject
{
    Q_OBJECT
private slots:
    // Each cause turns its own row red, and no other.
    void whyThereIsNoArc()
    {
        Setup setup;
        setup.example = true;
        TestPendant pendant(setup);
        auto *service = pendant.host()->service();
        testsupport::ProgramTouch(pendant).open("fillet.tl");
        pendant.open("home");
        pendant.click("btnWhyNoArc");
        const auto red = [&] {
            QStringList rows;
            for (const QLabel *label : pendant.find("pgArcChecks")->findChildren<QLabel *>()) {
                if (label->property("verdict") == "bad")
                    rows.append(label->objectName().section('_', 1));
            }
            return rows.join(' ');
        };
        const auto mode = [&](const char *word) {
            service->execCommand(nullptr, "arc_weld.set_weld_mode", QVariantMap{{"mode", word}});
        };
        const auto turn = [&](const char *what, bool on) {
            return [=] { service->execCommand(nullptr, "cell.switch", QVariantMap{{what, on}}); };
        };
        const auto welder = [&](const char *key, bool on) {
            return [=] {
                auto setting =
                    service->get(nullptr, "arc_weld.welder_setting")->toVariant().toMap();
                setting[key] = on;
                service->execCommand(nullptr, "arc_weld.set_welder", setting);
            };
        };
        const auto current = [&](const char *set, const char *file, double amperes) {
            return [=] {
                kelp::ModuleObject object("file");
                object.importFromVariant(nullptr,
                                         QVariantMap{{"name", file}, {"current", amperes}});
                service->set(nullptr, set, file, &object);
            };
        };
        const auto fault = [&](Faults::Fault which, bool on) {
            return [=, &pendant] { pendant.faults()->set(which, on); };
        };
        using Fault = Faults::Fault;
        const auto switched = [&](const char *name, Fault which) {
            return std::tuple{name, std::function<void()>(fault(which, true)),
                              std::function<void()>(fault(which, false))};
        };
        using Row = std::tuple<const char *, std::function<void()>, std::function<void()>>;
        const QVector<Row> rows{
            switched("welder", Fault::WelderError),
            switched("wire_moves", Fault::WireStuck),
            switched("wire_free", Fault::WireSticks),
            switched("gas", Fault::NoGas),
            switched("strikes", Fault::NoArc),
            switched("burns", Fault::ArcBreaks),
            switched("storage", Fault::DiskFull),
            {"power", turn("power", false), turn("power", true)},
            {"stop", turn("fault", true), turn("fault", false)},
            {"enabled", welder("enable", false), welder("enable", true)},
            {"connected", welder("connect_to_welder", false), welder("connect_to_welder", true)},
            {"mode", [&] { mode("test_run"); }, [&] { mode("real"); }},
            {"start_file", current("arc_weld.arcon_param", "arcondata1", 0),
             current("arc_weld.arcon_param", "arcondata1", 100)},
            {"weld_file", current("arc_weld.weld_param", "arcdata1", 900),
             current("arc_weld.weld_param", "arcdata1", 100)},
            switched("link", Fault::LinkDown),
        };
        mode("real");
        QTRY_COMPARE(red(), QString());
        for (const auto &[row, spoil, mend] : rows) {
            spoil();
            QTRY_COMPARE(red(), QString(row));
            mend();
            QTRY_COMPARE(red(), QString());
        }
        pendant.click("btnCheck_gas");
        QVERIFY(pendant.find("btnClearFaults")->isVisible());
    }
    // An alarm stays over a start in another language, where it is told in that one.
    void anAlarmIsKept()
    {
        Setup setup;
        setup.keepFiles = setup.example = true;
        TestPendant pendant(setup);
        QVERIFY(!pendant.find("pndAlarm")->isVisible());
        pendant.faults()->set(Faults::Fault::NoArc, true);
        pendant.click("btnWeldExample");
        const auto text = [&] { return pendant.find<QLabel>("lblAlarm")->text(); };
        QTRY_VERIFY_WITH_TIMEOUT(text().contains("line 6, the arc does not strike"), 30000);
        const QString run = pendant.find<QLabel>("lblRunState")->text();
        QVERIFY2(run.contains("1 fault: line 6, the arc does not strike; 0 of 1 seams"),
                 qPrintable(run));
        pendant.changeDisplay("cbxLanguage", "zh_CN");
        QTRY_VERIFY(text().contains(QString::fromUtf8("第 6 行，无法起弧")));
        QVERIFY(pendant.find("pndAlarm")->isVisible());
        pendant.click("btnAlarmAcknowledge");
        QTRY_VERIFY(!pendant.find("pndAlarm")->isVisible());
        pendant.restart();
        QVERIFY(!pendant.find("pndAlarm")->isVisible());
    }
};

QTEST_MAIN(TestAlarms)
#include "tst_alarms.moc"
