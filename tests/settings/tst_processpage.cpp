#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QPushButton>
#include <QtTest>

#include "settings/processsettingspage.h"
#include "support/formhost.h"
#include "support/rows.h"

using testsupport::child;
using testsupport::FormHost;
using testsupport::Rows;

namespace {

const QString readDevice = QStringLiteral("get arc_weld.device_param");
const QString deviceNode = QStringLiteral("arc_weld.device_param");
const QVariantMap upTo40{{"unified", QVariantList{0, 200}}, {"separate", QVariantList{0, 40}}};

/// One of the three groups: its file set, and what its widgets are called after.
struct Group
{
    QString set, file, combo, lower, upper, otherCurrentUnit, otherVoltageUnit;
    double fixedMaximum, separateMaximum; ///< before and after a 350 A welder told its ranges

    QString currentMode() const { return "cbx_" + lower + "CurrentMode"; }
    QString voltageMode() const { return "cbx_" + lower + "VoltageMode"; }
    QStringList currentUnits() const { return {"lbl_" + lower + "CurrentUnit", otherCurrentUnit}; }
    QStringList voltageUnits() const { return {"lbl_" + lower + "VoltageUnit", otherVoltageUnit}; }
};

const Group arcStart{"arcon_param",
                     "arcondata",
                     "cbx_arconParamFileNumber",
                     "arcon",
                     "Arcon",
                     "lbl_retryCurrentIncrementUnit",
                     "lbl_retryVoltageIncrementUnit",
                     200,
                     35};
const Group weld{"weld_param", "arcdata", "cbx_weldingParamFileNumber", "weld", "Weld", "", "",
                 200,          35};
const Group arcEnd{"arcoff_param",
                   "arcoffdata",
                   "cbx_arcoffParamFileNumber",
                   "arcoff",
                   "Arcoff",
                   "",
                   "lblAntiStickVoltageUnit",
                   10000,
                   32};
const Rows<Group> groups{{"arc start", arcStart}, {"weld", weld}, {"arc end", arcEnd}};

/// The page as an operator finds it, with a closer look at one group.
struct Desk
{
    FormHost host;
    std::unique_ptr<ProcessSettingsPage> page;
    const Group &group;

    explicit Desk(const Group &group, const QVariant &device = {})
        : group(group)
    {
        if (device.isValid())
            host.link()->answers[readDevice] = device;
        page = std::make_unique<ProcessSettingsPage>(host.window(), host.window());
        page->initPage();
        outcome();
    }
    /// What was said by the page, and behind it what was asked.
    QStringList outcome()
    {
        QStringList lines = host.takeMessages();
        for (QString &line : lines)
            line.remove(" [process setting]");
        return lines + host.takeRequests();
    }
    template<typename Widget>
    Widget *find(const QString &name) const
    {
        return child<Widget>(page->wgt(), name);
    }
    QComboBox *combo(const QString &name) const { return find<QComboBox>(name); }
    QDoubleSpinBox *current() const
    {
        return find<QDoubleSpinBox>("sbx" + group.upper + "Current");
    }
    QDoubleSpinBox *box() const { return find<QDoubleSpinBox>("sbx" + group.upper + "Voltage"); }
    void press(const char *button) const { find<QPushButton>(button)->click(); }
    bool shows(const QString &widget) const { return !find<QWidget>(widget)->isHidden(); }
    void choose(int number) const { combo(group.combo)->setCurrentIndex(number - 1); }
    /// The voltage, its range and its unit, which stands in more than one place.
    QString voltage() const
    {
        return QString("%1 of %2..%3 %4")
            .arg(box()->value())
            .arg(box()->minimum())
            .arg(box()->maximum())
            .arg(units(group.voltageUnits()));
    }
    QString units(const QStringList &labels) const
    {
        QStringList texts;
        for (const QString &label : labels) {
            if (!label.isEmpty())
                texts.append(find<QLabel>(label)->text());
        }
        texts.removeDuplicates();
        return texts.join('|');
    }
    void storeFile(int number, const QVariantMap &values)
    {
        const QString file = group.file + QString::number(number);
        QVariantMap content = host.stored("arc_weld." + group.set, group.file + '1').toMap();
        for (auto it = values.begin(); it != values.end(); ++it)
            content[it.key()] = it.value();
        content["name"] = file;
        QCOMPARE(host.store("arc_weld." + group.set, file, content), 0);
    }
};

} // namespace

/// What the process page adds to its files: the welder's modes and ranges, the rules between
/// fields, and the buttons that act at once.
class tst_ProcessPage : public QObject
{
    Q_OBJECT

private slots:
    void requestsInOrder()
    {
        FormHost host;
        ProcessSettingsPage page(host.window(), host.window());
        const QStringList files{"arc_weld.arcon_param arcondata1", "arc_weld.weld_param arcdata1",
                                "arc_weld.arcoff_param arcoffdata1"};
        QStringList created{readDevice};
        for (const QString &file : files)
            created += {"get " + file, "set " + file};
        QCOMPARE(host.takeRequests(), created);
        page.initPage();
        QCOMPARE(host.takeRequests(),
                 QStringList({"watch " + deviceNode, readDevice, "get " + files[0],
                              "get " + files[1], "get " + files[2]}));
        QCOMPARE(host.takeMessages(), QStringList());
    }
    void unitsAndRangesFollowTheModes()
    {
        for (const auto &[name, group] : groups) {
            Desk desk(group);
            desk.current()->setValue(123.5);
            desk.combo(group.currentMode())->setCurrentIndex(1);
            QCOMPARE(desk.units(group.currentUnits()), QString("mm/s"));
            desk.combo(group.currentMode())->setCurrentIndex(0);
            QCOMPARE(desk.units(group.currentUnits()), QString("A"));
            QCOMPARE(desk.current()->value(), 123.5);
            QCOMPARE(desk.current()->maximum(), 2000.0);

            desk.box()->setValue(150);
            QCOMPARE(desk.voltage(), QString("150 of 0..200 %"));
            desk.combo(group.voltageMode())->setCurrentIndex(1);
            QCOMPARE(desk.voltage(), QString("%1 of 0..%1 V").arg(group.separateMaximum));
        }
    }
    void aStoredVoltageIsClampedByTheRangeShownBefore()
    {
        for (const auto &[name, group] : groups) {
            Desk desk(group);
            desk.storeFile(2, {{"voltage_mode", "separate"}, {"voltage", 30.0}});
            desk.storeFile(3, {{"voltage_mode", "unified"}, {"voltage", 150.0}});
            desk.choose(2);
            QCOMPARE(desk.voltage(), QString("30 of 0..%1 V").arg(group.separateMaximum));
            desk.choose(3);
            QCOMPARE(desk.voltage(), QString("%1 of 0..200 %").arg(group.separateMaximum));
        }
    }
    void theArcEndHasRangesOfItsOwn()
    {
        // The general range clamps on the way to the second one, which is the wider here.
        const QVariantMap upTo90{{"unified", QVariantList{0, 900}},
                                 {"separate", QVariantList{0, 90}}};
        Desk desk(arcEnd, QVariantMap{{"voltage_range", upTo40}, {"arcoff_voltage_range", upTo90}});
        desk.box()->setValue(700);
        desk.combo(desk.group.voltageMode())->setCurrentIndex(1);
        QCOMPARE(desk.voltage(), QString("40 of 0..90 V"));
    }
    void withoutTheWeldersRangesTheFixedOnesHold()
    {
        for (const auto &[name, group] : groups) {
            Desk desk(group);
            for (const QVariantList &range :
                 {QVariantList{}, QVariantList{"a", "b"}, QVariantList{5}, QVariantList{9, 1}}) {
                desk.page->getWelderParamRange(); // the ranges of the connected welder...
                const QVariantMap ranges{{"unified", range}, {"separate", range}};
                desk.host.link()->answers[readDevice] =
                    QVariantMap{{"voltage_range", ranges}, {"arcoff_voltage_range", ranges}};
                desk.page->getWelderParamRange(); // ...do not stay for another one
                for (const char *unit : {"%", "V"}) {
                    QCOMPARE(desk.voltage(), QString("0 of 0..%1 ").arg(group.fixedMaximum) + unit);
                    desk.combo(group.voltageMode())->setCurrentIndex(*unit == '%');
                }
                desk.host.link()->answers.clear();
            }
        }
    }
    void modesComeFromTheWelder()
    {
        // In an order of its own, with one mode less and one that nobody knows.
        const QVariantMap device{{"work_mode", QStringList{"Job", "Low Spatter", "Laser"}},
                                 {"voltage_mode", QStringList{"Separate", "Unified"}},
                                 {"current_mode", QStringList{"Wire Feed"}},
                                 {"voltage_range", upTo40}};
        Desk desk(weld);
        desk.storeFile(2, {{"mode", "low_spatter"}});
        desk.choose(2);
        desk.host.takeRequests();
        desk.host.link()->answers[readDevice] = device;
        desk.host.notify(deviceNode, QVariantMap{{"work_mode", "changed"}});
        QCOMPARE(desk.host.takeRequests(), QStringList(readDevice)); // no file is read anew
        QVERIFY(desk.host.takeMessages().join('|').contains("unknown modes: Laser"));
        const QComboBox *work = desk.combo("cbx_weldWorkMode");
        QCOMPARE(work->count(), 2);
        QCOMPARE(work->currentText(), QString("Low Spatter")); // the user's choice is kept

        QComboBox *voltageMode = desk.combo(desk.group.voltageMode());
        QCOMPARE(voltageMode->currentText(), QString("Unified"));
        QCOMPARE(desk.voltage(), QString("0 of 0..200 %"));
        voltageMode->setCurrentIndex(0);
        QCOMPARE(desk.voltage(), QString("0 of 0..40 V"));
        // "Current" is not offered: an empty choice, no wrong unit, and the file keeps its code.
        QCOMPARE(desk.combo(desk.group.currentMode())->currentIndex(), -1);
        QCOMPARE(desk.units(desk.group.currentUnits()), QString("mm/s"));
        desk.press("btnWeldingSave");
        QCOMPARE(desk.host.stored("arc_weld.weld_param", "arcdata2").toMap()["current_mode"],
                 QVariant("current"));
    }
    void aPreArcTimeExcludesAMovingStart()
    {
        Desk desk(arcStart);
        auto *time = desk.find<QSpinBox>("sbxArconLeadTime");
        QComboBox *moving = desk.combo("cbx_moveArcon");
        QCOMPARE(time->value(), 200);
        QVERIFY(!moving->isEnabled() && !desk.find<QWidget>("sbxMoveDistance")->isEnabled());
        time->setValue(0);
        emit time->editingFinished();
        for (const char *name :
             {"lbl_moveArcon", "cbx_moveArcon", "lbl_moveDistance", "sbxMoveDistance",
              "lblMoveDistanceUnit", "lbl_returnSpeed", "sbxReturnSpeed", "lblReturnSpeedUnit",
              "lbl_stepDis", "sbxStepDis", "lblStepDisUnit"})
            QVERIFY2(desk.find<QWidget>(name)->isEnabled(), name);
        QCOMPARE(moving->currentText(), QString("Close"));
        moving->setCurrentIndex(0);
        time->setValue(1);
        emit time->editingFinished();
        QCOMPARE(moving->currentText(), QString("Close"));
        QVERIFY(!moving->isEnabled());
        // The rule also meets a file that holds both.
        desk.storeFile(2, {{"scratch_arcon", QVariantMap{{"enable", true}}}, {"prearc_time", 5}});
        desk.choose(2);
        QCOMPARE(moving->currentText(), QString("Close"));
    }
    void theBackDistanceIsForWeldsThatAreTakenUpAgain()
    {
        Desk desk(weld);
        const auto shown = [&desk] {
            return int(desk.shows("lbl_reStartBackDistance")) + desk.shows("sbxReStartBackDistance")
                + desk.shows("lblReStartBackDistanceUnit");
        };
        QComboBox *option = desk.combo("cbxArcBreakOption");
        // The options in order; an empty choice leaves it as it is.
        for (const auto &[index, count] : {std::pair{-1, 0}, std::pair{1, 3}, std::pair{-1, 3},
                                           std::pair{0, 0}, std::pair{2, 3}}) {
            option->setCurrentIndex(index);
            QCOMPARE(shown(), count);
        }
        QCOMPARE(desk.find<QSpinBox>("sbxReStartBackDistance")->value(), 10);
        QVERIFY(!desk.shows("sbxRetryOffset") && !desk.shows("lbl_retryOffset"));
    }
    void enableSendsTheEditedValues()
    {
        Desk desk(weld);
        QVERIFY(desk.shows("btnWeldingEnable"));
        const QVariant before = desk.host.stored("arc_weld.weld_param", "arcdata1");
        desk.current()->setValue(180);
        desk.press("btnWeldingEnable");
        QCOMPARE(desk.outcome(),
                 QStringList({"info: enable succeed", "get arc_weld.welder_state",
                              "do arc_weld.enable_weld_param arcdata1"}));
        QCOMPARE(desk.host.link()->lastPayload.toMap()["current"], QVariant(180.0));
        QCOMPARE(desk.host.stored("arc_weld.weld_param", "arcdata1"), before);
    }
    void enableThatCannotBe()
    {
        const QString state = "get arc_weld.welder_state";
        const QString command = "do arc_weld.enable_weld_param arcdata1";
        const Rows<QString> rows{
            {"no link", "error: tessa is not connected"},
            {"welder", "error: welder state error|" + state},
            {"not read", "error: enable error|" + state},
            {"refused", "error: enable error|" + state + '|' + command},
        };
        for (const auto &[fault, outcome] : rows) {
            Desk desk(weld);
            if (fault == "no link")
                QVERIFY(desk.host.disconnect());
            desk.host.faults()->set(controller::Faults::Fault::WelderError, fault == "welder");
            if (fault == "refused")
                desk.host.spoil(FormHost::Refused, command);
            if (fault == "not read") {
                desk.host.faults()->setCode("arc_weld.weld_param", 8, 1);
                desk.choose(4);
            }
            desk.current()->setValue(180);
            desk.outcome();
            desk.press("btnWeldingEnable");
            QCOMPARE(desk.outcome().join('|'), outcome);
            QCOMPARE(m("welmo.process_setting.weld_param.default.current")->getInt(-1), 0);
        }
    }
    void removes()
    {
        for (const auto &[name, group] : groups) {
            Desk desk(group);
            const QString node = "arc_weld." + group.set;
            const QString command = "arc_weld.remove." + group.set;
            const auto remove = [&desk, name = name] {
                const QList<int> numbers{2, 17};
                if (name == "arc start")
                    desk.page->removeArconParam(numbers);
                else if (name == "weld")
                    desk.page->removeWeldParam(numbers);
                else
                    desk.page->removeArcoffParam(numbers);
                return desk.outcome();
            };
            desk.storeFile(2, {});
            desk.host.faults()->setCode(command, 8, 1);
            QCOMPARE(remove(), QStringList({"error: remove parameter error", "do " + command}));
            QVERIFY(desk.host.stored(node, group.file + '2').isValid());
            QCOMPARE(remove(), QStringList({"info: remove parameter success", "do " + command}));
            QVERIFY(!desk.host.stored(node, group.file + '2').isValid());
            QVERIFY(desk.host.stored(node, group.file + '1').isValid());
            QVERIFY(desk.host.disconnect());
            QCOMPARE(remove(), QStringList("error: tessa not connected"));
        }
    }
    void aForeignSenderIsToldOfSuccessAndSavesNothing()
    {
        Desk desk(weld);
        desk.current()->setValue(180);
        desk.page->onSaveButtonClicked();
        QCOMPARE(desk.outcome(), QStringList("info: save parameter succeed"));
        desk.page->onCancelButtonClicked();
        desk.page->onParamFileNumberChanged(3);
        QCOMPARE(desk.outcome(), QStringList());
        QCOMPARE(desk.current()->value(), 180.0);
    }
};

QTEST_MAIN(tst_ProcessPage)
#include "tst_processpage.moc"
