#include <QTableWidget>
#include <functional>

#include "support/datarows.h"
#include "support/files.h"
#include "support/programtouch.h"
#include "support/testpendant.h"

using namespace testsupport;
using welmo::controller::Faults;

/// Alarms, and the list of reasons why there is no arc.
class TestAlarms : public QObject
{
    Q_OBJECT
private slots:
    // Each cause turns only its own row red.
    void whyThereIsNoArc()
    {
        TestPendant pendant(withExample());
        auto *service = pendant.host()->service();
        ProgramTouch(pendant).open("fillet.tl");
        pendant.open("home");
        pendant.click("btnWhyNoArc");
        const auto red = [&] {
            QStringList rows;
            const QRegularExpression each("^lblCheck_");
            for (const auto *label : pendant.find("pgArcChecks")->findChildren<QLabel *>(each)) {
                if (label->property("verdict") == "bad")
                    rows.append(label->objectName().section('_', 1));
            }
            return rows.join(' ');
        };
        using Fault = Faults::Fault;
        using Spoil = std::function<void(bool)>; // false: mend it again
        const auto fault = [&](Fault which) -> Spoil {
            return [=, &pendant](bool on) { pendant.faults()->set(which, on); };
        };
        const auto turn = [&](const char *what, bool to) -> Spoil {
            return [=](bool bad) {
                service->execCommand(nullptr, "cell.switch", QVariantMap{{what, bad == to}});
            };
        };
        const auto welder = [&](const char *key) -> Spoil {
            return [=](bool bad) {
                auto setting =
                    service->get(nullptr, "arc_weld.welder_setting")->toVariant().toMap();
                setting[key] = !bad;
                service->execCommand(nullptr, "arc_weld.set_welder", setting);
            };
        };
        const auto current = [&](const char *set, const char *file, double amperes) -> Spoil {
            return [=](bool bad) {
                const QVariantMap content{{"name", file}, {"current", bad ? amperes : 100.0}};
                kelp::ModuleObject object("file");
                object.importFromVariant(nullptr, content);
                service->set(nullptr, set, file, &object);
            };
        };
        const Spoil mode = [&](bool bad) {
            const QVariantMap payload{{"mode", bad ? "test_run" : "real"}};
            service->execCommand(nullptr, "arc_weld.set_weld_mode", payload);
        };
        const QVector<std::pair<const char *, Spoil>> rows{
            {"welder", fault(Fault::WelderError)},
            {"wire_moves", fault(Fault::WireStuck)},
            {"wire_free", fault(Fault::WireSticks)},
            {"gas", fault(Fault::NoGas)},
            {"strikes", fault(Fault::NoArc)},
            {"burns", fault(Fault::ArcBreaks)},
            {"storage", fault(Fault::DiskFull)},
            {"power", turn("power", false)},
            {"stop", turn("fault", true)},
            {"enabled", welder("enable")},
            {"connected", welder("connect_to_welder")},
            {"mode", mode},
            {"start_file", current("arc_weld.arcon_param", "arcondata1", 0)},
            {"weld_file", current("arc_weld.weld_param", "arcdata1", 900)},
            {"link", fault(Fault::LinkDown)},
        };
        mode(false);
        QTRY_COMPARE(red(), QString());
        for (const auto &[row, spoil] : rows) {
            spoil(true);
            QTRY_COMPARE(red(), QString(row));
            spoil(false);
            QTRY_COMPARE(red(), QString());
        }
        pendant.click("btnCheck_gas");
        QVERIFY(pendant.find("btnClearFaults")->isVisible());
    }
    void beforeTheRun_data()
    {
        const QString seam = "ArcOn \"arcondata1\",\"arcdata1\"\nArcOff \"arcoffdata1\"\n";
        const QString start = "arc_weld.arcon_param", weld = "arc_weld.weld_param";
        const QString otherFile = QString(seam).replace("arcdata1", "arcdata9");
        const QString otherWord = QString(seam).replace("ArcOn", "arcon");
        addRows<QString, QString, QString, double, QString>(
            {{"fine", seam, weld, "arcdata1", 120, ""},
             {"0 A", seam, start, "arcondata1", 0, "nothing burns at 0 A"},
             {"too much", seam, weld, "arcdata1", 900, "the machine gives 350 A"},
             {"no file", otherFile, weld, "arcdata1", 120, "the controller has no such file"},
             {"near miss", otherWord, weld, "arcdata1", 120,
              "no instruction and passed over; ArcOn may be meant"}});
    }
    // With real welding, a run that would strike an arc waits until the operator has seen what is
    // wrong.
    void beforeTheRun()
    {
        const auto &[name, program, node, file, current, finding] =
            currentRow<QString, QString, QString, double, QString>();
        TestPendant pendant(withExample());
        QDir(pendant.dataFolder()).mkpath("programs");
        writeFile(pendant.dataFolder() + "/programs/seam.tl", program.toUtf8());
        ProgramTouch(pendant).open("seam.tl");
        auto *service = pendant.host()->service();
        kelp::ModuleObject object("file");
        object.importFromVariant(nullptr, QVariantMap{{"name", file}, {"current", current}});
        QCOMPARE(service->set(nullptr, node, file, &object)->getInt(), 0);
        const auto *table = pendant.find<QTableWidget>("tblRunCheck");
        const auto findings = [table] {
            QStringList found;
            for (int row = 0; row < table->rowCount(); ++row)
                found.append(table->item(row, 6)->text());
            found.removeAll({});
            return found.join(' ');
        };
        for (const QString &mode : {QString("real"), QString("simu")}) {
            service->execCommand(nullptr, "arc_weld.set_weld_mode", QVariantMap{{"mode", mode}});
            const QString word = mode == "real" ? "Real welding" : "Simulation";
            QTRY_COMPARE(pendant.find<QLabel>("lblModeText")->text(), word);
            pendant.click("btnProgramRun");
            const bool asks = mode == "real" && !finding.isEmpty();
            QCOMPARE(table->isVisible(), asks);
            const auto *state = pendant.find<QLabel>("lblRunState");
            QTRY_COMPARE(state->text() == "Ready", asks);
            if (asks)
                pendant.click("btnRunCheckBack");
            pendant.click("btnProgramStop");
            QTRY_VERIFY(pendant.find("btnProgramRun")->isEnabled());
        }
        pendant.click("btnProgramLook");
        QCOMPARE(findings(), finding);
    }
    // While the link is lost, a run can be stopped, but the program cannot be changed.
    void linkLostInARun()
    {
        TestPendant pendant(withExample());
        ProgramTouch(pendant).open("fillet.tl");
        const auto may = [&](const char *name) { return pendant.find(name)->isEnabled(); };
        const auto *banner = pendant.find<QLabel>("lblAlarm");
        pendant.click("btnProgramRun");
        QTRY_VERIFY(may("btnProgramPause"));
        QVERIFY(!may("btnInsertLine") && !may("btnOpenProgram"));
        pendant.faults()->set(Faults::Fault::LinkDown, true);
        QTRY_VERIFY(banner->text().startsWith("Link lost "));
        QVERIFY(banner->isVisible() && may("btnProgramStop"));
        QVERIFY(!may("btnInsertLine") && !may("btnOpenProgram") && !may("btnProgramRun"));
        pendant.faults()->clear();
        QVERIFY(pendant.waitConnected());
        QTRY_VERIFY(!banner->isVisible() || !banner->text().startsWith("Link lost "));
        pendant.click("btnProgramStop");
        QTRY_VERIFY(may("btnInsertLine") && may("btnOpenProgram"));
    }
    // An alarm is still there after a start in another language, and is told in that language.
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
