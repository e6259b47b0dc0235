#include "settings/devicessettingpage.h"
#include "support/datarows.h"
#include "support/formhost.h"
#include "vu/switchbutton.h"

using namespace testsupport;

namespace {

const QString setWelder = QStringLiteral("do arc_weld.set_welder set_device_param");
const QString readSetting = QStringLiteral("get arc_weld.welder_setting");

struct Fixture
{
    FormHost host;
    DevicesSettingPage page{host.window(), host.window()};
    EnableButton *enable = child<EnableButton>(page.wgt(), "btn_connectSwitch");
    EnableButton *connect = child<EnableButton>(page.wgt(), "btn_weatherConnectWelder");
    QComboBox *type = child<QComboBox>(page.wgt(), "cbx_type");
    QComboBox *current = child<QComboBox>(page.wgt(), "cbx_current");

    Fixture()
    {
        page.initPage();
        host.takeMessages();
        host.takeRequests();
    }
    kelp::ModuleObject *leaf(const QString &path) const { return m("welmo.device." + path); }
    /// The welder can be chosen only while welding is off.
    bool canChoose() const
    {
        return type->isEnabled() && child(page.wgt(), "gbx_weldSelection")->isEnabled();
    }
};

} // namespace

/// The device page never shows a setting that the controller did not accept.
class tst_DevicesPage : public QObject
{
    Q_OBJECT

private slots:
    void eachListFollowsTheChoicesBefore()
    {
        Fixture ui;
        ui.leaf("welder_sertting.Ethercat")->setList(this, "Other.X1", {100, 200});
        ui.page.onProtocolSelectChanged(0);
        QCOMPARE(itemsOf(ui.type), "RL/RPL|RP/RPH");
        ui.current->setCurrentIndex(2);
        ui.type->setCurrentIndex(1);
        QCOMPARE(itemsOf(ui.current), "350A|500A|630A|800A");
        QCOMPARE(ui.current->currentText(), "350A");
        child<QComboBox>(ui.page.wgt(), "cbx_brand")->setCurrentText("Other");
        QCOMPARE(itemsOf(ui.type) + ' ' + itemsOf(ui.current), "X1 100A|200A");
        // Looking up an unknown protocol adds nothing to the list.
        auto *protocol = child<QComboBox>(ui.page.wgt(), "cbx_protocol");
        protocol->addItem("RS485", "RS485");
        protocol->setCurrentIndex(1);
        QCOMPARE(itemsOf(child<QComboBox>(ui.page.wgt(), "cbx_brand")) + itemsOf(ui.type)
                     + itemsOf(ui.current),
                 QString());
        QCOMPARE(ui.leaf("welder_sertting")->cmobjNames(), QStringList("Ethercat"));
        QCOMPARE(ui.host.takeRequests() + ui.host.takeMessages(), QStringList());
    }
    // Another pendant switches welding on and off, and chooses another type.
    void whatAnotherPendantChoseIsShown()
    {
        Fixture ui;
        const auto theyChoose = [&ui](bool on, const char *type) {
            QVariantMap setting = ui.host.stored("arc_weld.welder_setting").toMap();
            setting["enable"] = on;
            setting["model"] = type;
            kelp::ModuleObject payload("set_device_param");
            payload.importFromVariant(nullptr, setting);
            xservice()->execCommand(nullptr, "arc_weld.set_welder", &payload);
        };
        theyChoose(true, "RP/RPH");
        QTRY_VERIFY(ui.enable->isChecked());
        QCOMPARE(ui.type->currentText(), "RP/RPH");
        QVERIFY(ui.leaf("enable")->getBool() && !ui.canChoose());
        theyChoose(false, "RP/RPH");
        QTRY_VERIFY(ui.canChoose());
        ui.current->setCurrentIndex(3); // the operator is choosing here
        theyChoose(true, "RL/RPL");
        QTRY_VERIFY(ui.enable->isChecked());
        QCOMPARE(ui.type->currentText() + ui.current->currentText(), "RP/RPH800A");
    }
    void enablingSendsTheChoices()
    {
        Fixture ui;
        ui.type->setCurrentIndex(1);
        ui.current->setCurrentText("630A");
        QCOMPARE(ui.leaf("device_param.current_type")->getInt(),
                 350); // the old one, until the controller has stored the choice
        ui.enable->setChecked(true);
        const QVariantMap sent{{"enable", true},         {"connect_to_welder", false},
                               {"protocol", "Ethercat"}, {"mfr", "Aotai"},
                               {"model", "RP/RPH"},      {"current_type", 630}};
        QCOMPARE(ui.host.link()->lastPayload.toMap(), sent);
        QCOMPARE(ui.host.stored("arc_weld.welder_setting").toMap(), sent);
        QVERIFY(ui.leaf("enable")->getBool() && !ui.canChoose());
        ui.enable->setChecked(false);
        QVERIFY(!ui.leaf("enable")->getBool() && ui.canChoose());
        for (const bool on : {true, false})
            ui.connect->setChecked(on);
        QCOMPARE(ui.host.takeRequests(), QStringList({setWelder, setWelder, setWelder, setWelder}));
        QCOMPARE(ui.host.takeMessages().join('|'),
                 "info: enable device success [setting]|"
                 "info: disable device success [setting]|"
                 "info: connect the actual weldMachinesuccess [setting]|"
                 "info: don't connect the actual weldMachinesuccess [setting]");
    }
    void whatIsNotAcceptedIsPutBack_data()
    {
        addRows<bool, bool, QString>(
            {{"enable", true, true, "enable device error"},
             {"disable", true, false, "disable device error"},
             {"connect", false, true, "connect the actual weldMachinefail"},
             {"don't connect", false, false, "don't connect the actual weldMachinefail"}});
    }
    void whatIsNotAcceptedIsPutBack()
    {
        const auto &[name, enabling, on, message] = currentRow<bool, bool, QString>();
        for (const bool asked : {false, true}) {
            Fixture ui;
            EnableButton *button = enabling ? ui.enable : ui.connect;
            if (!on)
                button->setChecked(true);
            ui.host.takeMessages();
            ui.host.takeRequests();
            ui.host.spoil(asked ? FormHost::Refused : FormHost::LinkDown, setWelder);
            QSignalSpy signalled(button, &EnableButton::enabled);
            button->setChecked(on);
            QCOMPARE(ui.host.takeMessages().join('|'),
                     "error: " + (asked ? message + " [setting]" : "tessa not connected []"));
            QCOMPARE(ui.host.takeRequests().join('|'), asked ? setWelder : QString());
            QCOMPARE(button->isChecked(), !on);
            QCOMPARE(signalled.size(), 1); // switching back signals nothing
            const char *key = enabling ? "enable" : "device_param.connect_to_welder";
            QCOMPARE(ui.leaf(key)->getBool(), !on);
            QCOMPARE(ui.canChoose(), !ui.enable->isChecked());
        }
    }
    // The state moves only the switch: a late "ok" must not enable the handle keys after an "off".
    void theWeldersStateMovesTheSwitch()
    {
        Fixture ui;
        const QString node = QStringLiteral("arc_weld.welder_state");
        xservice()->watch(this, node, true); // in the place of the arc-weld page
        ui.host.takeRequests();
        for (const auto &[state, on] :
             {std::pair{"ok", true}, {"error", true}, {"disabled", false}, {"error", false}}) {
            ui.host.notify(node, QVariantMap{{"state", state}});
            QCOMPARE(ui.enable->isChecked(), on);
            QVERIFY(!ui.leaf("enable")->getBool() && ui.canChoose());
        }
        QCOMPARE(ui.host.takeRequests() + ui.host.takeMessages(), QStringList());
    }
    void thePageShowsTheControllersSetting()
    {
        Fixture ui;
        ui.host.link()->answers[readSetting] = QVariantMap{{"enable", true},
                                                           {"protocol", "Ethercat"},
                                                           {"mfr", "Aotai"},
                                                           {"model", "RP/RPH"},
                                                           {"current_type", 800}};
        for (const bool isReadable : {true, false}) {
            if (!isReadable) { // the page keeps what it shows
                ui.host.link()->answers.clear();
                ui.host.spoil(FormHost::Refused, readSetting);
            }
            ui.page.initPage();
            QCOMPARE(ui.host.takeRequests(), QStringList(readSetting));
            QCOMPARE(ui.type->currentText() + ' ' + ui.current->currentText(), "RP/RPH 800A");
            QVERIFY(ui.enable->isChecked() && !ui.canChoose());
            QCOMPARE(ui.leaf("device_param.current_type")->value(), QVariant(800));
        }
    }
    // Enabling welding here does not disconnect the machine that another pendant connected.
    void whatAnotherPendantConnectedStaysConnected()
    {
        Fixture ui;
        QVariantMap theirs = ui.host.stored("arc_weld.welder_setting").toMap();
        theirs["connect_to_welder"] = true;
        theirs["mfr"] = "unheard of";
        theirs["current_type"] = 444;
        ui.host.link()->answers[readSetting] = theirs;
        ui.current->setCurrentIndex(2);
        ui.page.initPage();
        QVERIFY(ui.connect->isChecked());
        QCOMPARE(ui.current->currentText(), "350A"); // the first one, since 444 A is not offered
        ui.enable->setChecked(true);
        const QVariantMap sent = ui.host.link()->lastPayload.toMap();
        QVERIFY(sent["connect_to_welder"].toBool());
        QCOMPARE(sent["mfr"].toString(), "Aotai");
    }
};

QTEST_MAIN(tst_DevicesPage)
#include "tst_devicespage.moc"
