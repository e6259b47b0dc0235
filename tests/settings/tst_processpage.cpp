#include "settings/processsettingspage.h"
#include "support/datarows.h"
#include "support/formhost.h"

using namespace testsupport;

namespace {

const QString readDevice = QStringLiteral("get arc_weld.device_param");
const QString enableWeld = QStringLiteral("do arc_weld.enable_weld_param arcdata1");
const QString deviceNode = QStringLiteral("arc_weld.device_param");
const QVariantMap upTo40{{"unified", QVariantList{0, 200}}, {"separate", QVariantList{0, 40}}};

/// The names in one of the three groups, and the labels that show a unit a second time.
struct Group
{
    QString name, combo, file, otherCurrentUnit, otherVoltageUnit;
    double fixedMaximum, separateMaximum; ///< before and after the 350 A welder tells its ranges

    QString set() const { return "arc_weld." + name + "_param"; }
};

const Group arcStart{
    "arcon", "arcon", "arcondata", "lbl_retryCurrentIncrementUnit", "lbl_retryVoltageIncrementUnit",
    200,     35};
const Group weld{"weld", "welding", "arcdata", {}, {}, 200, 35};
const Group arcEnd{"arcoff", "arcoff", "arcoffdata", {}, "lblAntiStickVoltageUnit", 10000, 32};
const Group groups[] = {arcStart, weld, arcEnd};

/// The page, and the controls of one of its groups.
struct Fixture
{
    FormHost host;
    const Group &group;
    ProcessSettingsPage page{host.window(), host.window()};
    QDoubleSpinBox *current = box("Current");
    QDoubleSpinBox *voltage = box("Voltage");
    QComboBox *currentMode = combo("cbx_" + group.name + "CurrentMode");
    QComboBox *voltageMode = combo("cbx_" + group.name + "VoltageMode");

    explicit Fixture(const Group &group)
        : group(group)
    {
        page.initPage();
        outcome();
    }
    /// What the page said, then what it asked the controller.
    QString outcome()
    {
        const QStringList lines = host.takeMessages() + host.takeRequests();
        return lines.join('|').remove(" [process setting]");
    }
    template<typename Widget = QWidget>
    Widget *find(const QString &name) const
    {
        return child<Widget>(page.wgt(), name);
    }
    QComboBox *combo(const QString &name) const { return find<QComboBox>(name); }
    QDoubleSpinBox *box(const char *what) const
    {
        return find<QDoubleSpinBox>(QString("sbx") + group.name.at(0).toUpper() + group.name.mid(1)
                                    + what);
    }
    void press(const char *button) const { find<QPushButton>(button)->click(); }
    void choose(int number) const
    {
        combo("cbx_" + group.combo + "ParamFileNumber")->setCurrentIndex(number - 1);
    }
    /// The voltage with its range and its unit.
    QString shownVoltage() const
    {
        return QString("%1 of %2..%3 %4")
            .arg(voltage->value())
            .arg(voltage->minimum())
            .arg(voltage->maximum())
            .arg(unit("VoltageUnit", group.otherVoltageUnit));
    }
    QString currentUnit() const { return unit("CurrentUnit", group.otherCurrentUnit); }
    QString unit(const char *kind, const QString &other) const
    {
        const QString text = find<QLabel>("lbl_" + group.name + kind)->text();
        return other.isEmpty() || find<QLabel>(other)->text() == text ? text : "not the same";
    }
    void storeFile(int number, const QVariantMap &values)
    {
        const QString file = group.file + QString::number(number);
        QVariantMap content = host.stored(group.set(), group.file + '1').toMap();
        for (auto it = values.begin(); it != values.end(); ++it)
            content[it.key()] = it.value();
        content["name"] = file;
        QCOMPARE(host.store(group.set(), file, content), 0);
    }
    /// The welder tells its ranges of the voltage.
    void tellRanges(const QVariantMap &general, const QVariantMap &arcEnd)
    {
        host.link()->answers[readDevice] =
            QVariantMap{{"voltage_range", general}, {"arcoff_voltage_range", arcEnd}};
        page.getWelderParamRange();
    }
};

} // namespace

/// The process page: the welder's modes and ranges, rules between fields, and buttons that act at
/// once.
class tst_ProcessPage : public QObject
{
    Q_OBJECT

private slots:
    // It is spared its style before; an unstyled box would be too small for a finger.
    void aFoldOutIsStyledWhenItOpens()
    {
        Fixture f(arcStart);
        f.page.wgt()->ensurePolished();
        QWidget *area = f.find<QWidget>("wgt_arconAdvancedParam");
        const auto styled = [area] {
            int count = 0;
            for (const QWidget *widget : area->findChildren<QWidget *>())
                count += widget->testAttribute(Qt::WA_WState_Polished) ? 1 : 0;
            return count;
        };
        QCOMPARE(styled(), 0);
        f.press("btn_arconFold");
        QCOMPARE(styled(), area->findChildren<QWidget *>().size());
    }

    void requestsInOrder()
    {
        FormHost host;
        ProcessSettingsPage page(host.window(), host.window());
        const QStringList files{"arc_weld.arcon_param arcondata1", "arc_weld.weld_param arcdata1",
                                "arc_weld.arcoff_param arcoffdata1"};
        QStringList created{readDevice};
        for (const QString &file : files)
            created << "watch " + file.section(' ', 0, 0) << "get " + file << "set " + file;
        QCOMPARE(host.takeRequests(), created);
        page.initPage();
        QCOMPARE(host.takeRequests(),
                 QStringList({"watch " + deviceNode, readDevice, "get " + files[0],
                              "get " + files[1], "get " + files[2]}));
        QCOMPARE(host.takeMessages(), QStringList());
    }
    void unitsAndRangesFollowTheModes()
    {
        for (const Group &group : groups) {
            Fixture ui(group);
            ui.current->setValue(123.5);
            for (const char *unit : {"mm/s", "A"}) {
                ui.currentMode->setCurrentIndex(*unit == 'm');
                QCOMPARE(ui.currentUnit(), unit);
            }
            QCOMPARE(ui.current->value(), 123.5);
            ui.voltage->setValue(150);
            QCOMPARE(ui.shownVoltage(), "150 of 0..200 %");
            ui.voltageMode->setCurrentIndex(1);
            QCOMPARE(ui.shownVoltage(), QString("%1 of 0..%1 V").arg(group.separateMaximum));
            // A voltage is read before the mode of its file changes the range.
            ui.storeFile(2, {{"voltage_mode", "separate"}, {"voltage", 30.0}});
            ui.storeFile(3, {{"voltage_mode", "unified"}, {"voltage", 150.0}});
            ui.choose(2);
            QCOMPARE(ui.shownVoltage(), QString("30 of 0..%1 V").arg(group.separateMaximum));
            ui.choose(3);
            QCOMPARE(ui.shownVoltage(), QString("%1 of 0..200 %").arg(group.separateMaximum));
        }
    }
    void withoutTheWeldersRangesTheFixedOnesHold()
    {
        for (const Group &group : groups) {
            Fixture ui(group);
            for (const QVariantList &range :
                 {QVariantList{}, QVariantList{"a", "b"}, QVariantList{5}, QVariantList{9, 1}}) {
                ui.tellRanges(upTo40, upTo40); // another welder must not inherit them
                const QVariantMap bad{{"unified", range}, {"separate", range}};
                ui.tellRanges(bad, bad);
                for (const char *unit : {"%", "V"}) {
                    QCOMPARE(ui.shownVoltage(),
                             QString("0 of 0..%1 ").arg(group.fixedMaximum) + unit);
                    ui.voltageMode->setCurrentIndex(*unit == '%');
                }
            }
        }
        // The general range clamps the voltage before the wider one of the arc end is set.
        Fixture ui(arcEnd);
        ui.tellRanges(upTo40,
                      {{"unified", QVariantList{0, 900}}, {"separate", QVariantList{0, 90}}});
        ui.voltage->setValue(700);
        ui.voltageMode->setCurrentIndex(1);
        QCOMPARE(ui.shownVoltage(), "40 of 0..90 V");
    }
    void modesComeFromTheWelder()
    {
        Fixture ui(weld);
        ui.storeFile(2, {{"mode", "low_spatter"}});
        ui.choose(2);
        ui.host.takeRequests();
        // The welder lists its modes in another order, lacks one and has an unknown one.
        ui.host.link()->answers[readDevice] =
            QVariantMap{{"work_mode", QStringList{"Job", "Low Spatter", "Laser"}},
                        {"voltage_mode", QStringList{"Separate", "Unified"}},
                        {"current_mode", QStringList{"Wire Feed"}},
                        {"voltage_range", upTo40}};
        ui.host.notify(deviceNode, QVariantMap{{"work_mode", "changed"}});
        QCOMPARE(ui.host.takeRequests(), QStringList(readDevice)); // the files are not read again
        QVERIFY(ui.host.takeMessages().join('|').contains("unknown modes: Laser"));
        const QComboBox *work = ui.combo("cbx_weldWorkMode");
        QCOMPARE(work->count(), 2);
        QCOMPARE(work->currentText(), "Low Spatter"); // the operator's choice stays
        QCOMPARE(ui.shownVoltage(), "0 of 0..200 %");
        ui.voltageMode->setCurrentIndex(0);
        QCOMPARE(ui.shownVoltage(), "0 of 0..40 V");
        // The welder lacks "Current": nothing is chosen, and the file keeps its code.
        QCOMPARE(ui.currentMode->currentIndex(), -1);
        QCOMPARE(ui.currentUnit(), "mm/s");
        ui.press("btnWeldingSave");
        QCOMPARE(ui.host.stored("arc_weld.weld_param", "arcdata2").toMap()["current_mode"],
                 QVariant("current"));
    }
    void aPreArcTimeExcludesAMovingStart()
    {
        Fixture ui(arcStart);
        auto *time = ui.find<QSpinBox>("sbxArconLeadTime");
        QComboBox *moving = ui.combo("cbx_moveArcon");
        for (const bool isFree : {false, true, false}) {
            time->setValue(isFree ? 0 : 1);
            emit time->editingFinished();
            QCOMPARE(moving->currentText(), "Close");
            for (const char *name : {"lbl_moveArcon", "cbx_moveArcon", "sbxMoveDistance",
                                     "sbxReturnSpeed", "sbxStepDis", "lblStepDisUnit"})
                QVERIFY2(ui.find(name)->isEnabled() == isFree, name);
            if (isFree)
                moving->setCurrentIndex(0);
        }
        // The rule also holds for a file that has both.
        ui.storeFile(2, {{"scratch_arcon", QVariantMap{{"enable", true}}}, {"prearc_time", 5}});
        ui.choose(2);
        QCOMPARE(moving->currentText(), "Close");
    }
    // The rows are choices one after the other; an empty choice changes nothing.
    void theBackDistanceIsForWeldsThatAreTakenUpAgain()
    {
        Fixture ui(weld);
        for (const auto &[index, shown] :
             {std::pair{-1, false}, {1, true}, {-1, true}, {0, false}, {2, true}}) {
            ui.combo("cbxArcBreakOption")->setCurrentIndex(index);
            for (const char *name : {"lbl_reStartBackDistance", "sbxReStartBackDistance",
                                     "lblReStartBackDistanceUnit"})
                QCOMPARE(ui.find(name)->isHidden(), !shown);
        }
        ui.page.onArcBreakOptionChanged(0);
        ui.page.onArcBreakOptionChanged(3); // no such option
        QVERIFY(ui.find("sbxReStartBackDistance")->isHidden());
        QVERIFY(ui.find("sbxRetryOffset")->isHidden() && ui.find("lbl_retryOffset")->isHidden());
    }
    void enableSendsTheEditedValues_data()
    {
        const QString state = "get arc_weld.welder_state";
        addRows<QString>({{"works", "info: enable succeed|" + state + '|' + enableWeld},
                          {"refused", "error: enable error|" + state + '|' + enableWeld},
                          {"no link", "error: tessa is not connected"},
                          {"welder", "error: welder state error|" + state},
                          {"not read", "error: enable error|" + state}});
    }
    void enableSendsTheEditedValues()
    {
        const auto &[fault, outcome] = currentRow<QString>();
        Fixture ui(weld);
        const ProcessSettingsPage another(ui.host.window(), ui.host.window());
        ui.outcome();
        const QVariant before = ui.host.stored("arc_weld.weld_param", "arcdata1");
        if (fault == "no link")
            QVERIFY(ui.host.disconnect());
        ui.host.faults()->set(welmo::controller::Faults::Fault::WelderError, fault == "welder");
        if (fault == "refused")
            ui.host.spoil(FormHost::Refused, enableWeld);
        if (fault == "not read") {
            ui.host.faults()->setCode("arc_weld.weld_param", 8, 1);
            ui.choose(4);
        }
        ui.current->setValue(180);
        ui.outcome();
        ui.press("btnWeldingEnable");
        QCOMPARE(ui.outcome(), outcome);
        if (outcome.endsWith(enableWeld))
            QCOMPARE(ui.host.link()->lastPayload.toMap()["current"], QVariant(180.0));
        if (fault == "works") { // Cancel shows what was sent, although another form shows the file
            ui.current->setValue(99);
            QCoreApplication::processEvents();
            ui.press("btnWeldingCancel");
            QCOMPARE(ui.current->value(), 180.0);
        }
        QVERIFY(ui.host.mend());
        QCOMPARE(ui.host.stored("arc_weld.weld_param", "arcdata1"), before);
        QCOMPARE(m("welmo.process_setting.weld_param.default.current")->getInt(-1), 0);
    }
    void removes_data()
    {
        addRows<const Group *, void (ProcessSettingsPage::*)(const QList<int> &)>(
            {{"arc start", &arcStart, &ProcessSettingsPage::removeArconParam},
             {"weld", &weld, &ProcessSettingsPage::removeWeldParam},
             {"arc end", &arcEnd, &ProcessSettingsPage::removeArcoffParam}});
    }
    void removes()
    {
        const auto &[name, group, remove] =
            currentRow<const Group *, void (ProcessSettingsPage::*)(const QList<int> &)>();
        Fixture ui(*group);
        ui.storeFile(2, {});
        const QString command = "arc_weld.remove." + group->name + "_param";
        ui.host.faults()->setCode(command, 8, 1);
        for (const char *said :
             {"error: remove parameter error|do ", "info: remove parameter success|do "}) {
            QVERIFY(ui.host.stored(group->set(), group->file + '2').isValid());
            (ui.page.*remove)({2, 17});
            QCOMPARE(ui.outcome(), said + command);
        }
        QVERIFY(!ui.host.stored(group->set(), group->file + '2').isValid());
        QVERIFY(ui.host.stored(group->set(), group->file + '1').isValid());
        QVERIFY(ui.host.disconnect());
        (ui.page.*remove)({1});
        QCOMPARE(ui.outcome(), "error: tessa not connected []");
    }
};

QTEST_MAIN(tst_ProcessPage)
#include "tst_processpage.moc"
