#include "page/monitorpage.h"
#include "settings/processsettingspage.h"
#include "support/datarows.h"
#include "support/formhost.h"

using namespace testsupport;

namespace {

const QString stateNode = QStringLiteral("arc_weld.welder_state");
const QString readFile = QStringLiteral("get arc_weld.weld_param arcdata2");
const QString writeFile = QStringLiteral("set arc_weld.weld_param arcdata2");

struct Fixture
{
    FormHost host;
    MonitorPage page{host.window(), host.window()};

    Fixture()
    {
        for (const QString &node : {stateNode, QStringLiteral("arc_weld.weld_param")})
            host.host().service()->watch(&page, node, true);
        QCoreApplication::processEvents(); // a first subscription may tell values
    }
    QDoubleSpinBox *box(const char *name) { return child<QDoubleSpinBox>(page.wgt(), name); }
    void press(const char *name) { child<QPushButton>(page.wgt(), name)->click(); }
    QString saidAfter(const char *button)
    {
        press(button);
        return host.takeMessages().join('|');
    }
    /// The actual values, from top to bottom.
    QString actual()
    {
        QStringList values;
        for (const char *name : {"lblActualCurrent", "lblActualVoltage", "lblWeldingSpeed",
                                 "lblWeldingTime", "lblWeldingDistance", "lblWeldingWireUsed"})
            values.append(child<QLabel>(page.wgt(), name)->text());
        return values.join(' ');
    }
    /// What the page asks for when the controller tells this name of a weld.
    QString asked(const QString &name)
    {
        host.takeRequests();
        host.notify(stateNode, QVariantMap{{"welding_name", name}});
        return host.takeRequests().join(", ");
    }
};

} // namespace

/// The panel in the side bar: it shows the weld and trims its current and voltage.
class tst_MonitorPage : public QObject
{
    Q_OBJECT

private slots:
    void actualValues()
    {
        Fixture ui;
        const std::pair<QVariantMap, QString> told[] = {
            {{{"current", 120.2}, {"voltage", 20}}, "120 20 0 0 0 0"},
            {{{"current", 90}}, "120 20 0 0 0 0"}, // without a voltage it is not shown
            {{{"voltage", 9}}, "120 20 0 0 0 0"},
            {{{"welding_speed", 8.3}}, "120 20 8 0 0 0"},
            {{{"welding_time", 1.23456789}}, "120 20 8 1.23457 0 0"},
            {{{"welding_wire_used", 0.25}}, "120 20 8 1.23457 0 0.25"},
            {{{"welding_distance", 1234567}}, "120 20 8 1.23457 1.23457e+06 0.25"},
        };
        for (const auto &[values, shown] : told) {
            // A host may also tell values that did not change.
            ui.page.onWelderStateChanged(values);
            QCOMPARE(ui.actual(), shown);
        }
    }
    void theNameDecidesTheSet()
    {
        Fixture ui;
        QCOMPARE(ui.asked("arcdata2"), "get arc_weld.weld_param arcdata2");
        QCOMPARE(ui.asked("arcdata_arcon"), "get arc_weld.arcon_param arcdata_arcon");
        QCOMPARE(ui.asked("arcoffdata3"), "get arc_weld.arcoff_param arcoffdata3");
        QCOMPARE(ui.asked("Arcdata1"), "get arc_weld. Arcdata1");
        QCOMPARE(ui.asked("Arcdata1"), QString());
    }
    void trimming()
    {
        Fixture ui;
        const QVariantMap file{{"current", 995.0}, {"voltage", 120.0}, {"speed", 12}};
        ui.host.link()->answers[readFile] = file;
        ui.asked("arcdata2");
        const std::tuple<const char *, const char *, double> presses[] = {
            {"btnCurrentAdd1", "sbxCurrent", 996},  {"btnCurrentAdd10", "sbxCurrent", 1000},
            {"btnCurrentSub10", "sbxCurrent", 990}, {"btnCurrentSub1", "sbxCurrent", 989},
            {"btnVoltageAdd10", "sbxVoltage", 130}, {"btnVoltageAdd1", "sbxVoltage", 131},
            {"btnVoltageSub1", "sbxVoltage", 130},  {"btnVoltageSub10", "sbxVoltage", 120}};
        for (const auto &[button, box, value] : presses) {
            ui.press(button);
            QCOMPARE(ui.box(box)->value(), value);
        }
        ui.host.link()->answers[writeFile] = 0;
        QCOMPARE(ui.saidAfter("btnSave"), "info: save succeed [monitor]");
        QVariantMap trimmed = file;
        trimmed["current"] = 989.0;
        QCOMPARE(ui.host.link()->lastPayload.toMap(), trimmed);

        ui.host.link()->answers.clear();
        ui.host.link()->answers[readFile] = trimmed;
        ui.host.spoil(FormHost::Refused, writeFile);
        QCOMPARE(ui.saidAfter("btnSave"), "error: save error [monitor]");
        ui.host.spoil(FormHost::LinkDown, {});
        for (const char *button : {"btnCurrentAdd1", "btnVoltageSub10"})
            QCOMPARE(ui.saidAfter(button), "error: tessa is not connected [monitor]");
        QCOMPARE(ui.box("sbxCurrent")->value(), 989.0);
    }
    void whatABoxCannotShowIsTold_data()
    {
        addRows<const char *, double>(
            {{"untouched", "btnVoltageAdd1", 1000}, {"trimmed", "btnCurrentSub1", 999}});
    }
    // The forms allow a larger current than this box.
    void whatABoxCannotShowIsTold()
    {
        const auto &[name, button, current] = currentRow<const char *, double>();
        Fixture ui;
        auto &answers = ui.host.link()->answers;
        answers[readFile] = QVariantMap{{"current", 1500.0}, {"voltage", 20.5}};
        answers[writeFile] = 0;
        ui.asked("arcdata2");
        ui.press(button);
        QCOMPARE(ui.saidAfter("btnSave"),
                 "warning: arcdata2: 1500 A is stored, 1000 A is shown [monitor]|"
                 "info: save succeed [monitor]");
        QCOMPARE(ui.host.link()->lastPayload.toMap()["current"], QVariant(current));
    }
    void eachConnectionTakesTheWeldAsItStands()
    {
        Fixture ui;
        auto *name = child<QLineEdit>(ui.page.wgt(), "ledtWeldingName");
        QCOMPARE(name->text() + name->placeholderText(), "no weld data in use");
        QVERIFY(ui.host.disconnect());
        auto &answers = ui.host.link()->answers;
        const QVariantMap weld{{"current", 120}, {"voltage", 20}, {"welding_name", "arcdata2"}};
        answers["get " + stateNode] = answers["watch " + stateNode] = weld;
        for (const double stored : {110.0, 115.0}) { // what another pendant stored meanwhile
            answers[readFile] = QVariantMap{{"current", stored}, {"voltage", 20.5}};
            QVERIFY(ui.host.connect());
            QCOMPARE(ui.actual(), "120 20 0 0 0 0");
            QCOMPARE(name->text(), "arcdata2");
            QCOMPARE(ui.box("sbxCurrent")->value(), stored);
            ui.host.spoil(FormHost::LinkDown, {});
        }
        answers.remove(readFile);
        ui.host.spoil(FormHost::Refused, readFile);
        ui.host.takeMessages();
        QVERIFY(ui.host.connect());
        QCOMPARE(ui.host.takeMessages(),
                 QStringList("error: arcdata2: read parameter error [monitor]"));
        QCOMPARE(ui.box("sbxCurrent")->value(), 115.0);
    }
    // The operator is told when another pendant saved the value, and the first save is not done.
    void whatWasSavedElsewhereIsNotUndone()
    {
        Fixture ui;
        auto &answers = ui.host.link()->answers;
        const auto file = [](double current) {
            return QVariantMap{{"current", current}, {"voltage", 20.0}};
        };
        answers[readFile] = file(100);
        ui.asked("arcdata2");
        ui.press("btnCurrentAdd10");
        answers[readFile] = file(180);
        const QString told = "\"Current\" was changed elsewhere to 180";
        QVERIFY(ui.saidAfter("btnSave").contains(told));
        QVERIFY(!ui.host.takeRequests().contains(writeFile));
        answers[readFile] = file(200); // the page hears of it before the save
        ui.host.notify("arc_weld.weld_param", QVariantMap{{"arcdata2", file(200)}});
        QVERIFY(ui.host.takeMessages().join('|').contains("changed elsewhere to 200"));
        QCOMPARE(ui.box("sbxCurrent")->value(), 110.0);
        answers[writeFile] = 0;
        QCOMPARE(ui.saidAfter("btnSave"), "info: save succeed [monitor]");
    }
    void nothingIsTypedIntoABoxThatIsBeingEdited()
    {
        Fixture ui;
        auto &answers = ui.host.link()->answers;
        answers[readFile] = QVariantMap{{"current", 100.0}, {"voltage", 20.0}};
        ui.asked("arcdata2");
        QDoubleSpinBox *box = ui.box("sbxCurrent");
        const QString half = ui.host.typeHalf(box, "5");
        const QVariantMap theirs{{"current", 180.0}, {"voltage", 21.0}};
        answers[readFile] = theirs;
        ui.host.notify("arc_weld.weld_param", QVariantMap{{"arcdata2", theirs}});
        QCOMPARE(ui.box("sbxVoltage")->value(), 21.0);
        QCOMPARE(box->text(), half);
        QTest::keyClicks(box, "5\t");
        QCOMPARE(box->value(), 55.0);
    }
    // Neither may undo what the other saved.
    void theFormsShowWhatIsTrimmedAndTheOtherWayRound()
    {
        Fixture ui;
        ProcessSettingsPage forms(ui.host.window(), ui.host.window());
        forms.initPage();
        ui.asked("arcdata1");
        ui.press("btnCurrentAdd10");
        ui.press("btnSave");
        QTRY_COMPARE(child<QDoubleSpinBox>(forms.wgt(), "sbxWeldCurrent")->value(), 10.0);
        ui.press("btnCurrentAdd1");
        child<QSpinBox>(forms.wgt(), "sbxWeldSpeed")->setValue(12);
        child<QDoubleSpinBox>(forms.wgt(), "sbxWeldVoltage")->setValue(90);
        child<QPushButton>(forms.wgt(), "btnWeldingSave")->click();
        QTRY_COMPARE(ui.box("sbxVoltage")->value(), 90.0);
        ui.press("btnSave");
        const QVariantMap file = ui.host.stored("arc_weld.weld_param", "arcdata1").toMap();
        QCOMPARE(file["weld_speed"].toInt(), 12);
        QCOMPARE(file["current"].toDouble(), 11.0);
    }
    void withoutTheLinkActualValuesAreGrey()
    {
        Fixture ui;
        QVERIFY(child(ui.page.wgt(), "lblActualCurrent")->isEnabled());
        QVERIFY(ui.host.disconnect());
        QTRY_VERIFY(!child(ui.page.wgt(), "lblActualCurrent")->isEnabled());
        QVERIFY(ui.host.mend());
        QTRY_VERIFY(child(ui.page.wgt(), "lblWeldingTime")->isEnabled());
    }
    // A save would lose the rest of a file that could not be read.
    void nothingIsSavedOverAFileThatCouldNotBeRead()
    {
        Fixture ui;
        ui.host.spoil(FormHost::Refused, readFile);
        QCOMPARE(ui.asked("arcdata2"), readFile);
        QCOMPARE(ui.host.takeMessages(),
                 QStringList("error: arcdata2: read parameter error [monitor]"));
        QCOMPARE(ui.saidAfter("btnSave"), "error: save error [monitor]");
        QCOMPARE(ui.host.takeRequests(), QStringList(readFile));
    }
};

QTEST_MAIN(tst_MonitorPage)
#include "tst_monitorpage.moc"
