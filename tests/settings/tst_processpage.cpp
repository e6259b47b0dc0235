#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QPushButton>
#include <QtTest>

#include "settings/processsettingspage.h"
#include "support/formhost.h"

using testsupport::child;
using testsupport::FormHost;

namespace {

const QString readDevice = QStringLiteral("get arc_weld.device_param");
const QString deviceNode = QStringLiteral("arc_weld.device_param");
const QVariantMap wholeRange{{"unified", QVariantList{0, 200}}, {"separate", QVariantList{0, 40}}};

/// One of the three groups by the names of what follows its modes.
struct Group
{
    QString set, file, combo, current, currentMode, voltage, voltageMode;
    QStringList currentUnits, voltageUnits;
    double fixedMaximum, separateMaximum; ///< before and after a 350 A welder told its ranges
};

const QHash<QString, Group> groups{
    {"arc start",
     {"arcon_param",
      "arcondata",
      "cbx_arconParamFileNumber",
      "sbxArconCurrent",
      "cbx_arconCurrentMode",
      "sbxArconVoltage",
      "cbx_arconVoltageMode",
      {"lbl_arconCurrentUnit", "lbl_retryCurrentIncrementUnit"},
      {"lbl_arconVoltageUnit", "lbl_retryVoltageIncrementUnit"},
      200,
      35}},
    {"weld",
     {"weld_param",
      "arcdata",
      "cbx_weldingParamFileNumber",
      "sbxWeldCurrent",
      "cbx_weldCurrentMode",
      "sbxWeldVoltage",
      "cbx_weldVoltageMode",
      {"lbl_weldCurrentUnit"},
      {"lbl_weldVoltageUnit"},
      200,
      35}},
    {"arc end",
     {"arcoff_param",
      "arcoffdata",
      "cbx_arcoffParamFileNumber",
      "sbxArcoffCurrent",
      "cbx_arcoffCurrentMode",
      "sbxArcoffVoltage",
      "cbx_arcoffVoltageMode",
      {"lbl_arcoffCurrentUnit"},
      {"lbl_arcoffVoltageUnit", "lblAntiStickVoltageUnit"},
      10000,
      32}},
};

void addGroups()
{
    QTest::addColumn<QString>("group");
    for (auto group = groups.begin(); group != groups.end(); ++group)
        QTest::addRow("%s", qPrintable(group.key())) << group.key();
}

struct Desk
{
    FormHost host;
    std::unique_ptr<ProcessSettingsPage> page;
    const Group *group = nullptr;

    explicit Desk(FormHost::Link link = FormHost::Connected, const QVariant &device = {},
                  const QString &name = {})
        : host(link)
    {
        if (device.isValid())
            host.link()->answers[readDevice] = device;
        page = std::make_unique<ProcessSettingsPage>(host.window(), host.window());
        page->initPage();
        host.takeMessages();
        host.takeRequests();
        if (!name.isEmpty())
            group = &*groups.find(name);
    }

    template<typename Widget>
    Widget *find(const QString &name) const
    {
        return child<Widget>(page->wgt(), name);
    }
    QComboBox *combo(const QString &name) const { return find<QComboBox>(name); }
    void press(const char *button) const { find<QPushButton>(button)->click(); }
    bool shows(const char *widget) const { return !find<QWidget>(widget)->isHidden(); }
    QString voltage() const
    {
        const auto *box = find<QDoubleSpinBox>(group->voltage);
        return QString("%1 of %2..%3").arg(box->value()).arg(box->minimum()).arg(box->maximum());
    }
    /// The text of all labels, when it is the same.
    QString units(const QStringList &labels) const
    {
        QStringList texts;
        for (const QString &label : labels)
            texts.append(find<QLabel>(label)->text());
        texts.removeDuplicates();
        return texts.join('|');
    }
    void storeFile(int number, const QVariantMap &values)
    {
        const QString file = group->file + QString::number(number);
        const QString node = "arc_weld." + group->set;
        QVariantMap content = host.stored(node, group->file + '1').toMap();
        for (auto it = values.begin(); it != values.end(); ++it)
            content[it.key()] = it.value();
        content["name"] = file;
        QCOMPARE(host.store(node, file, content), 0);
    }
    void choose(int number) const { combo(group->combo)->setCurrentIndex(number - 1); }
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

    void unitsAndRangesFollowTheModes_data() { addGroups(); }
    void unitsAndRangesFollowTheModes()
    {
        QFETCH(QString, group);
        Desk desk(FormHost::Connected, {}, group);
        const Group &names = *desk.group;
        auto *current = desk.find<QDoubleSpinBox>(names.current);
        current->setValue(123.5);
        desk.combo(names.currentMode)->setCurrentIndex(1);
        QCOMPARE(desk.units(names.currentUnits), QString("mm/s"));
        desk.combo(names.currentMode)->setCurrentIndex(0);
        QCOMPARE(desk.units(names.currentUnits), QString("A"));
        QCOMPARE(current->value(), 123.5);
        QCOMPARE(current->maximum(), 2000.0);

        desk.find<QDoubleSpinBox>(names.voltage)->setValue(150);
        QCOMPARE(desk.voltage(), QString("150 of 0..200"));
        QCOMPARE(desk.units(names.voltageUnits), QString("%"));
        desk.combo(names.voltageMode)->setCurrentIndex(1);
        QCOMPARE(desk.voltage(), QString("%1 of 0..%1").arg(names.separateMaximum));
        QCOMPARE(desk.units(names.voltageUnits), QString("V"));
    }

    void aStoredVoltageIsClampedByTheRangeShownBefore_data() { addGroups(); }
    void aStoredVoltageIsClampedByTheRangeShownBefore()
    {
        QFETCH(QString, group);
        Desk desk(FormHost::Connected, {}, group);
        desk.storeFile(2, {{"voltage_mode", "separate"}, {"voltage", 30.0}});
        desk.storeFile(3, {{"voltage_mode", "unified"}, {"voltage", 150.0}});
        desk.choose(2);
        QCOMPARE(desk.voltage(), QString("30 of 0..%1").arg(desk.group->separateMaximum));
        desk.choose(3);
        QCOMPARE(desk.voltage(), QString("%1 of 0..200").arg(desk.group->separateMaximum));
        QCOMPARE(desk.units(desk.group->voltageUnits), QString("%"));
    }

    void theArcEndHasRangesOfItsOwn()
    {
        // The general range clamps on the way to the second one, which is the wider here.
        const QVariantMap device{
            {"voltage_range", wholeRange},
            {"arcoff_voltage_range",
             QVariantMap{{"unified", QVariantList{0, 900}}, {"separate", QVariantList{0, 90}}}}};
        Desk desk(FormHost::Connected, device, "arc end");
        desk.find<QDoubleSpinBox>(desk.group->voltage)->setValue(700);
        desk.combo(desk.group->voltageMode)->setCurrentIndex(1);
        QCOMPARE(desk.voltage(), QString("40 of 0..90"));
    }

    void withoutTheWeldersRangesTheFixedOnesHold_data()
    {
        QTest::addColumn<QString>("group");
        QTest::addColumn<QVariant>("range");
        for (const QString &group : groups.keys()) {
            QTest::addRow("%s, not told", qPrintable(group)) << group << QVariant();
            QTest::addRow("%s, no numbers", qPrintable(group))
                << group << QVariant(QVariantList{"a", "b"});
            QTest::addRow("%s, one number", qPrintable(group))
                << group << QVariant(QVariantList{5});
            QTest::addRow("%s, upside down", qPrintable(group))
                << group << QVariant(QVariantList{9, 1});
        }
    }
    void withoutTheWeldersRangesTheFixedOnesHold()
    {
        QFETCH(QString, group);
        QFETCH(QVariant, range);
        Desk desk(FormHost::Connected, {}, group);
        const QVariantMap ranges{{"unified", range}, {"separate", range}};
        desk.host.link()->answers[readDevice] =
            QVariantMap{{"voltage_range", ranges}, {"arcoff_voltage_range", ranges}};
        desk.page->getWelderParamRange();
        const QString fixed = QString("0 of 0..%1").arg(desk.group->fixedMaximum);
        QCOMPARE(desk.voltage(), fixed);
        desk.combo(desk.group->voltageMode)->setCurrentIndex(1);
        QCOMPARE(desk.voltage(), fixed);
    }

    void modesComeFromTheWelder()
    {
        // In an order of its own, with one mode less and one that nobody knows.
        const QVariantMap device{{"work_mode", QStringList{"Job", "Low Spatter", "Laser"}},
                                 {"voltage_mode", QStringList{"Separate", "Unified"}},
                                 {"current_mode", QStringList{"Wire Feed"}},
                                 {"voltage_range", wholeRange}};
        Desk desk(FormHost::Connected, {}, "weld");
        desk.storeFile(2, {{"mode", "low_spatter"}});
        desk.choose(2);
        QComboBox *work = desk.combo("cbx_weldWorkMode");
        QCOMPARE(work->currentText(), QString("Low Spatter"));
        desk.host.takeRequests();

        desk.host.link()->answers[readDevice] = device;
        desk.host.notify(deviceNode, QVariantMap{{"work_mode", "changed"}});
        QCOMPARE(desk.host.takeRequests(), QStringList(readDevice)); // no file is read anew
        QCOMPARE(work->count(), 2);
        QCOMPARE(work->currentIndex(), 1);
        QCOMPARE(work->currentText(), QString("Low Spatter"));
        QVERIFY(desk.host.takeMessages().join('|').contains("unknown modes: Laser"));

        QComboBox *voltageMode = desk.combo(desk.group->voltageMode);
        QCOMPARE(voltageMode->currentText(), QString("Unified"));
        QCOMPARE(desk.units(desk.group->voltageUnits), QString("%"));
        voltageMode->setCurrentIndex(0);
        QCOMPARE(desk.units(desk.group->voltageUnits), QString("V"));
        QCOMPARE(desk.voltage(), QString("0 of 0..40"));

        // "Current" is not offered: an empty choice, no wrong unit, and the file keeps its code.
        QCOMPARE(desk.combo(desk.group->currentMode)->currentIndex(), -1);
        QCOMPARE(desk.units(desk.group->currentUnits), QString("mm/s"));
        desk.press("btnWeldingSave");
        QCOMPARE(desk.host.stored("arc_weld.weld_param", "arcdata2").toMap()["current_mode"],
                 QVariant("current"));
    }

    void aPreArcTimeExcludesAMovingStart()
    {
        Desk desk(FormHost::Connected, {}, "arc start");
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
        Desk desk;
        const auto shown = [&desk] {
            return int(desk.shows("lbl_reStartBackDistance")) + desk.shows("sbxReStartBackDistance")
                + desk.shows("lblReStartBackDistanceUnit");
        };
        QComboBox *option = desk.combo("cbxArcBreakOption");
        QCOMPARE(shown(), 0);
        option->setCurrentIndex(-1);
        QCOMPARE(shown(), 0);
        option->setCurrentIndex(1);
        QCOMPARE(shown(), 3);
        option->setCurrentIndex(-1);
        QCOMPARE(shown(), 3);
        option->setCurrentIndex(0);
        QCOMPARE(shown(), 0);
        option->setCurrentIndex(2);
        QCOMPARE(shown(), 3);
        QCOMPARE(desk.find<QSpinBox>("sbxReStartBackDistance")->value(), 10);
        QVERIFY(!desk.shows("sbxRetryOffset") && !desk.shows("lbl_retryOffset"));
    }

    void folds_data()
    {
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("area");
        QTest::addColumn<QString>("text");
        QTest::newRow("arc start") << "btn_arconFold"
                                   << "wgt_arconAdvancedParam"
                                   << "ArcOn";
        QTest::newRow("weld") << "btn_weldFold"
                              << "wgt_weldAdvancedParam"
                              << "Weld";
        QTest::newRow("arc end") << "btn_arcoffFold"
                                 << "wgtArcoffAdvancedParam"
                                 << "ArcOff";
    }
    void folds()
    {
        QFETCH(QString, button);
        QFETCH(QString, area);
        QFETCH(QString, text);
        Desk desk;
        auto *fold = desk.find<QPushButton>(button);
        for (const bool open : {false, true, false}) {
            QCOMPARE(desk.shows(qPrintable(area)), open);
            QCOMPARE(fold->text(),
                     QString("%1 %2 Advanced Parameter").arg(open ? "Fold" : "Unfold", text));
            fold->click();
        }
    }

    void enableSendsTheEditedValues()
    {
        Desk desk(FormHost::Connected, {}, "weld");
        QVERIFY(desk.shows("btnWeldingEnable"));
        const QVariant before = desk.host.stored("arc_weld.weld_param", "arcdata1");
        desk.find<QDoubleSpinBox>("sbxWeldCurrent")->setValue(180);
        desk.press("btnWeldingEnable");
        QCOMPARE(desk.host.takeRequests().last(),
                 QString("do arc_weld.enable_weld_param arcdata1"));
        QCOMPARE(desk.host.link()->lastPayload.toMap()["current"], QVariant(180.0));
        QCOMPARE(desk.host.takeMessages(), QStringList("info: enable succeed [process setting]"));
        QCOMPARE(desk.host.stored("arc_weld.weld_param", "arcdata1"), before);
    }

    void enableThatCannotBe_data()
    {
        QTest::addColumn<QString>("fault");
        QTest::addColumn<QString>("message");
        QTest::addColumn<bool>("sent");
        QTest::newRow("no link") << "down"
                                 << "tessa is not connected" << false;
        QTest::newRow("welder error") << "welder"
                                      << "welder state error" << false;
        QTest::newRow("refused") << "refused"
                                 << "enable error" << true;
        QTest::newRow("file not read") << "unread"
                                       << "enable error" << false;
    }
    void enableThatCannotBe()
    {
        QFETCH(QString, fault);
        QFETCH(bool, sent);
        Desk desk(FormHost::Connected, {}, "weld");
        if (fault == "down")
            QVERIFY(desk.host.disconnect());
        else if (fault == "welder")
            desk.host.faults()->set(controller::Faults::Fault::WelderError, true);
        else if (fault == "refused")
            desk.host.faults()->setCode("arc_weld.enable_weld_param", 7);
        else
            desk.host.faults()->setCode("arc_weld.weld_param", 8, 1);
        if (fault == "unread")
            desk.choose(4);
        desk.find<QDoubleSpinBox>("sbxWeldCurrent")->setValue(180);
        desk.host.takeMessages();
        desk.press("btnWeldingEnable");
        QTEST(desk.host.takeMessages().join('|').section(" [", 0, 0).section(": ", 1), "message");
        QCOMPARE(desk.host.takeRequests().filter("enable_weld_param").size(), int(sent));
        QCOMPARE(m("welmo.process_setting.weld_param.default.current")->getInt(-1), 0);
    }

    void removes_data()
    {
        QTest::addColumn<QString>("fault");
        QTest::addColumn<QString>("message");
        QTest::newRow("removed") << ""
                                 << "info: remove parameter success [process setting]";
        QTest::newRow("refused") << "refused"
                                 << "error: remove parameter error [process setting]";
        QTest::newRow("no link") << "down"
                                 << "error: tessa not connected [process setting]";
    }
    void removes()
    {
        QFETCH(QString, fault);
        using Remove = void (ProcessSettingsPage::*)(const QList<int> &);
        for (const auto &[name, remove] :
             {std::pair<QString, Remove>{"arc start", &ProcessSettingsPage::removeArconParam},
              std::pair<QString, Remove>{"weld", &ProcessSettingsPage::removeWeldParam},
              std::pair<QString, Remove>{"arc end", &ProcessSettingsPage::removeArcoffParam}}) {
            Desk desk(FormHost::Connected, {}, name);
            const QString node = "arc_weld." + desk.group->set;
            const QString command = "arc_weld.remove." + desk.group->set;
            desk.storeFile(2, {});
            if (fault == "down")
                QVERIFY(desk.host.disconnect());
            if (fault == "refused")
                desk.host.faults()->setCode(command, 8);
            (desk.page.get()->*remove)({2, 17});
            QTEST(desk.host.takeMessages().join('|'), "message");
            const QStringList sent = fault == "down" ? QStringList() : QStringList("do " + command);
            QCOMPARE(desk.host.takeRequests(), sent);
            QVERIFY(desk.host.connect());
            QCOMPARE(desk.host.stored(node, desk.group->file + '2').isValid(), !fault.isEmpty());
            QVERIFY(desk.host.stored(node, desk.group->file + '1').isValid());
        }
    }

    void aForeignSenderIsToldOfSuccessAndSavesNothing()
    {
        Desk desk(FormHost::Connected, {}, "weld");
        desk.find<QDoubleSpinBox>("sbxWeldCurrent")->setValue(180);
        desk.page->onSaveButtonClicked();
        QCOMPARE(desk.host.takeMessages(),
                 QStringList("info: save parameter succeed [process setting]"));
        desk.page->onCancelButtonClicked();
        desk.page->onParamFileNumberChanged(3);
        QCOMPARE(desk.host.takeMessages() + desk.host.takeRequests(), QStringList());
        QCOMPARE(desk.find<QDoubleSpinBox>("sbxWeldCurrent")->value(), 180.0);
    }
};

QTEST_MAIN(tst_ProcessPage)
#include "tst_processpage.moc"
