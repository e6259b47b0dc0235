#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

#include "page/monitorpage.h"
#include "settings/processsettingspage.h"
#include "support/formhost.h"
#include "support/rows.h"

using testsupport::child;
using testsupport::FormHost;
using testsupport::Rows;

namespace {

const QString stateNode = QStringLiteral("arc_weld.welder_state");
const QString readFile = QStringLiteral("get arc_weld.weld_param arcdata2");
const QString writeFile = QStringLiteral("set arc_weld.weld_param arcdata2");

struct Desk
{
    FormHost host;
    MonitorPage page{host.window(), host.window()};

    Desk()
    {
        for (const QString &node : {stateNode, QStringLiteral("arc_weld.weld_param")})
            host.host().service()->watch(&page, node, true);
        QCoreApplication::processEvents(); // what a first subscription may tell
    }
    QDoubleSpinBox *box(const char *name) { return child<QDoubleSpinBox>(page.wgt(), name); }
    void press(const char *name) { child<QPushButton>(page.wgt(), name)->click(); }
    QString saidAfter(const char *button)
    {
        press(button);
        return host.takeMessages().join('|');
    }
    /// The actual values, in the order in which they stand.
    QString actual()
    {
        QStringList values;
        for (const char *name : {"lblActualCurrent", "lblActualVoltage", "lblWeldingSpeed",
                                 "lblWeldingTime", "lblWeldingDistance", "lblWeldingWireUsed"})
            values.append(child<QLabel>(page.wgt(), name)->text());
        return values.join(' ');
    }
    /// What the controller was asked for when it told that name.
    QString asked(const QString &name)
    {
        host.takeRequests();
        host.notify(stateNode, QVariantMap{{"welding_name", name}});
        return host.takeRequests().join(", ");
    }
};

} // namespace

/// The side bar's panel: actual values, and what is trimmed.
class tst_MonitorPage : public QObject
{
    Q_OBJECT

private slots:
    void actualValues()
    {
        Desk desk;
        const Rows<QVariantMap, QString> rows{
            {"both", {{"current", 120.2}, {"voltage", 20}}, "120 20 0 0 0 0"},
            {"current alone", {{"current", 90}}, "120 20 0 0 0 0"},
            {"voltage alone", {{"voltage", 9}}, "120 20 0 0 0 0"},
            {"speed", {{"welding_speed", 8.3}}, "120 20 8 0 0 0"},
            {"time", {{"welding_time", 1.23456789}}, "120 20 8 1.23457 0 0"},
            {"wire", {{"welding_wire_used", 0.25}}, "120 20 8 1.23457 0 0.25"},
            {"way", {{"welding_distance", 1234567}}, "120 20 8 1.23457 1.23457e+06 0.25"},
        };
        for (const auto &[name, values, shown] : rows) {
            desk.page.onWelderStateChanged(values); // a host may tell more than what changed
            QCOMPARE(desk.actual(), shown);
        }
    }
    void theNameDecidesTheSet()
    {
        Desk desk;
        QCOMPARE(desk.asked("arcdata2"), "get arc_weld.weld_param arcdata2");
        QCOMPARE(desk.asked("arcdata_arcon"), "get arc_weld.arcon_param arcdata_arcon");
        QCOMPARE(desk.asked("arcoffdata3"), "get arc_weld.arcoff_param arcoffdata3");
        QCOMPARE(desk.asked("Arcdata1"), "get arc_weld. Arcdata1");
        QCOMPARE(desk.asked("Arcdata1"), QString());
    }
    void trimming()
    {
        Desk desk;
        const QVariantMap file{{"current", 995.0}, {"voltage", 120.0}, {"speed", 12}};
        desk.host.link()->answers[readFile] = file;
        desk.asked("arcdata2");
        const Rows<const char *, double> rows{
            {"btnCurrentAdd1", "sbxCurrent", 996},  {"btnCurrentAdd10", "sbxCurrent", 1000},
            {"btnCurrentSub10", "sbxCurrent", 990}, {"btnCurrentSub1", "sbxCurrent", 989},
            {"btnVoltageAdd10", "sbxVoltage", 130}, {"btnVoltageAdd1", "sbxVoltage", 131},
            {"btnVoltageSub1", "sbxVoltage", 130},  {"btnVoltageSub10", "sbxVoltage", 120}};
        for (const auto &[button, box, value] : rows) {
            desk.press(button);
            QCOMPARE(desk.box(box)->value(), value);
        }
        desk.host.link()->answers[writeFile] = 0;
        QCOMPARE(desk.saidAfter("btnSave"), "info: save succeed [monitor]");
        QVariantMap trimmed = file;
        trimmed["current"] = 989.0;
        QCOMPARE(desk.host.link()->lastPayload.toMap(), trimmed);

        desk.host.link()->answers.clear();
        desk.host.link()->answers[readFile] = trimmed;
        desk.host.spoil(FormHost::Refused, writeFile);
        QCOMPARE(desk.saidAfter("btnSave"), "error: save error [monitor]");
        desk.host.spoil(FormHost::LinkDown, {});
        for (const char *button : {"btnCurrentAdd1", "btnVoltageSub10"})
            QCOMPARE(desk.saidAfter(button), "error: tessa is not connected [monitor]");
        QCOMPARE(desk.box("sbxCurrent")->value(), 989.0);
    }
    // The forms let a current go further than this box does.
    void whatABoxCannotShowIsTold()
    {
        const Rows<const char *, double> rows{{"untouched", "btnVoltageAdd1", 1000},
                                              {"trimmed", "btnCurrentSub1", 999}};
        for (const auto &[name, button, current] : rows) {
            Desk desk;
            auto &answers = desk.host.link()->answers;
            answers[readFile] = QVariantMap{{"current", 1500.0}, {"voltage", 20.5}};
            answers[writeFile] = 0;
            desk.asked("arcdata2");
            desk.press(button);
            QCOMPARE(desk.saidAfter("btnSave"),
                     "warning: arcdata2: 1500 A is stored, 1000 A is shown [monitor]|"
                     "info: save succeed [monitor]");
            QCOMPARE(desk.host.link()->lastPayload.toMap()["current"], QVariant(current));
        }
    }
    void aNameOfNoSetIsTheControllersToJudge()
    {
        Desk desk;
        desk.asked("Arcdata1");
        QCOMPARE(desk.saidAfter("btnSave"), "error: save error [monitor]");
        QCOMPARE(desk.host.takeRequests().last(), "set arc_weld. Arcdata1");
        desk.page.onChangeCurrentClicked(); // nobody sent it
        desk.page.onChangeVoltageClicked();
        QCOMPARE(desk.box("sbxCurrent")->value(), 0.0);
    }
    void eachConnectionTakesTheWeldAsItStands()
    {
        Desk desk;
        auto *name = child<QLineEdit>(desk.page.wgt(), "ledtWeldingName");
        QCOMPARE(name->text() + name->placeholderText(), "no weld data in use");
        QVERIFY(desk.host.disconnect());
        auto &answers = desk.host.link()->answers;
        const QVariantMap weld{{"current", 120}, {"voltage", 20}, {"welding_name", "arcdata2"}};
        answers["get " + stateNode] = answers["watch " + stateNode] = weld;
        for (const double stored : {110.0, 115.0}) { // by another pendant, meanwhile
            answers[readFile] = QVariantMap{{"current", stored}, {"voltage", 20.5}};
            QVERIFY(desk.host.connect());
            QCOMPARE(desk.actual(), "120 20 0 0 0 0");
            QCOMPARE(name->text(), "arcdata2");
            QCOMPARE(desk.box("sbxCurrent")->value(), stored);
            desk.host.spoil(FormHost::LinkDown, {});
        }
        answers.remove(readFile);
        desk.host.spoil(FormHost::Refused, readFile);
        desk.host.takeMessages();
        QVERIFY(desk.host.connect());
        QCOMPARE(desk.host.takeMessages(),
                 QStringList("error: arcdata2: read parameter error [monitor]"));
        QCOMPARE(desk.box("sbxCurrent")->value(), 115.0);
    }
    // What another pendant saved since is not undone by a trim of the other value.
    void aTrimLeavesTheOtherValueToOthers()
    {
        Desk desk;
        auto &answers = desk.host.link()->answers;
        answers[readFile] = QVariantMap{{"current", 100.0}, {"voltage", 20.0}, {"weld_speed", 5}};
        answers[writeFile] = 0;
        desk.asked("arcdata2");
        desk.press("btnVoltageAdd1");
        answers[readFile] = QVariantMap{{"current", 180.0}, {"voltage", 20.0}, {"weld_speed", 9}};
        desk.press("btnSave");
        QCOMPARE(desk.host.link()->lastPayload.toMap(),
                 (QVariantMap{{"current", 180.0}, {"voltage", 21.0}, {"weld_speed", 9}}));
    }
    // News of a value that is trimmed here are told, and the save that did not know is not done.
    void whatWasSavedElsewhereIsNotUndone()
    {
        Desk desk;
        auto &answers = desk.host.link()->answers;
        const auto file = [](double current) {
            return QVariantMap{{"current", current}, {"voltage", 20.0}};
        };
        answers[readFile] = file(100);
        desk.asked("arcdata2");
        desk.press("btnCurrentAdd10");
        answers[readFile] = file(180);
        const QString told = "\"current\" was changed elsewhere to 180";
        QVERIFY(desk.saidAfter("btnSave").contains(told));
        QVERIFY(!desk.host.takeRequests().contains(writeFile));
        answers[readFile] = file(200); // the news come before the save
        desk.host.notify("arc_weld.weld_param", QVariantMap{{"arcdata2", file(200)}});
        QVERIFY(desk.host.takeMessages().join('|').contains("changed elsewhere to 200"));
        QCOMPARE(desk.box("sbxCurrent")->value(), 110.0);
        answers[writeFile] = 0;
        QCOMPARE(desk.saidAfter("btnSave"), "info: save succeed [monitor]");
    }
    // What one saves, the other must not undo.
    void theFormsShowWhatIsTrimmedAndTheOtherWayRound()
    {
        Desk desk;
        ProcessSettingsPage forms(desk.host.window(), desk.host.window());
        forms.initPage();
        desk.asked("arcdata1");
        desk.press("btnCurrentAdd10");
        desk.press("btnSave");
        QTRY_COMPARE(child<QDoubleSpinBox>(forms.wgt(), "sbxWeldCurrent")->value(), 10.0);
        desk.press("btnCurrentAdd1");
        child<QSpinBox>(forms.wgt(), "sbxWeldSpeed")->setValue(12);
        child<QDoubleSpinBox>(forms.wgt(), "sbxWeldVoltage")->setValue(90);
        child<QPushButton>(forms.wgt(), "btnWeldingSave")->click();
        QTRY_COMPARE(desk.box("sbxVoltage")->value(), 90.0);
        desk.press("btnSave");
        const QVariantMap file = desk.host.stored("arc_weld.weld_param", "arcdata1").toMap();
        QCOMPARE(file["weld_speed"].toInt(), 12);
        QCOMPARE(file["current"].toDouble(), 11.0);
    }
    void withoutTheLinkActualValuesAreGrey()
    {
        Desk desk;
        QVERIFY(child(desk.page.wgt(), "lblActualCurrent")->isEnabled());
        QVERIFY(desk.host.disconnect());
        QTRY_VERIFY(!child(desk.page.wgt(), "lblActualCurrent")->isEnabled());
        QVERIFY(desk.host.mend());
        QTRY_VERIFY(child(desk.page.wgt(), "lblWeldingTime")->isEnabled());
    }
    // The rest of a file that could not be read would be lost.
    void nothingIsSavedOverAFileThatCouldNotBeRead()
    {
        Desk desk;
        desk.host.spoil(FormHost::Refused, readFile);
        QCOMPARE(desk.asked("arcdata2"), readFile);
        QCOMPARE(desk.host.takeMessages(),
                 QStringList("error: arcdata2: read parameter error [monitor]"));
        QCOMPARE(desk.saidAfter("btnSave"), "error: save error [monitor]");
        QCOMPARE(desk.host.takeRequests(), QStringList(readFile));
    }
};

QTEST_MAIN(tst_MonitorPage)
#include "tst_monitorpage.moc"
