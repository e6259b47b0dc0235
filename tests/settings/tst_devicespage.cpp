#include <QComboBox>
#include <QtTest>

#include "settings/devicessettingpage.h"
#include "support/formhost.h"
#include "support/rows.h"
#include "vu/switchbutton.h"

using testsupport::child;
using testsupport::FormHost;

namespace {

const QString setWelder = QStringLiteral("do arc_weld.set_welder set_device_param");
const QString readSetting = QStringLiteral("get arc_weld.welder_setting");

QString items(const QComboBox *combo)
{
    QStringList texts;
    for (int i = 0; i < combo->count(); ++i)
        texts.append(combo->itemText(i));
    return texts.join(' ');
}

struct Desk
{
    FormHost host;
    DevicesSettingPage page{host.window(), host.window()};
    EnableButton *enable = child<EnableButton>(page.wgt(), "btn_connectSwitch");
    EnableButton *connect = child<EnableButton>(page.wgt(), "btn_weatherConnectWelder");
    QComboBox *type = child<QComboBox>(page.wgt(), "cbx_type");
    QComboBox *current = child<QComboBox>(page.wgt(), "cbx_current");

    Desk()
    {
        page.initPage();
        host.takeMessages();
        host.takeRequests();
    }
    kelp::ModuleObject *leaf(const QString &path) const { return m("welmo.device." + path); }
    /// Exactly when welding is off the welder can be chosen.
    bool canChoose() const
    {
        return type->isEnabled() && child(page.wgt(), "gbx_weldSelection")->isEnabled();
    }
};

} // namespace

/// The device page: what the controller did not accept is not shown as if it had been.
class tst_DevicesPage : public QObject
{
    Q_OBJECT

private slots:
    void eachListFollowsTheChoicesBefore()
    {
        Desk desk;
        desk.leaf("welder_sertting.Ethercat")->setList(this, "Other.X1", {100, 200});
        desk.page.onProtocolSelectChanged(0);
        QCOMPARE(items(desk.type), "RL/RPL RP/RPH");
        desk.current->setCurrentIndex(2);
        desk.type->setCurrentIndex(1);
        QCOMPARE(items(desk.current), "350A 500A 630A 800A");
        QCOMPARE(desk.current->currentText(), "350A");
        child<QComboBox>(desk.page.wgt(), "cbx_brand")->setCurrentText("Other");
        QCOMPARE(items(desk.type) + ' ' + items(desk.current), "X1 100A 200A");
        // A protocol without an entry: looking it up makes none.
        auto *protocol = child<QComboBox>(desk.page.wgt(), "cbx_protocol");
        protocol->addItem("RS485", "RS485");
        protocol->setCurrentIndex(1);
        QCOMPARE(items(child<QComboBox>(desk.page.wgt(), "cbx_brand")) + items(desk.type)
                     + items(desk.current),
                 QString());
        QCOMPARE(desk.leaf("welder_sertting")->cmobjNames(), QStringList("Ethercat"));
        QCOMPARE(desk.host.takeRequests() + desk.host.takeMessages(), QStringList());
    }
    // Another pendant switches welding on and off, and chooses another type.
    void whatAnotherPendantChoseIsShown()
    {
        Desk desk;
        const auto theyChoose = [&desk](bool on, const char *type) {
            QVariantMap setting = desk.host.stored("arc_weld.welder_setting").toMap();
            setting["enable"] = on;
            setting["model"] = type;
            kelp::ModuleObject payload("set_device_param");
            payload.importFromVariant(nullptr, setting);
            xservice()->execCommand(nullptr, "arc_weld.set_welder", &payload);
        };
        theyChoose(true, "RP/RPH");
        QTRY_VERIFY(desk.enable->isChecked());
        QCOMPARE(desk.type->currentText(), "RP/RPH");
        QVERIFY(desk.leaf("enable")->getBool() && !desk.canChoose());
        theyChoose(false, "RP/RPH");
        QTRY_VERIFY(desk.canChoose());
        desk.current->setCurrentIndex(3); // is being chosen here
        theyChoose(true, "RL/RPL");
        QTRY_VERIFY(desk.enable->isChecked());
        QCOMPARE(desk.type->currentText() + desk.current->currentText(), "RP/RPH800A");
    }
    void enablingSendsTheChoices()
    {
        Desk desk;
        desk.type->setCurrentIndex(1);
        desk.current->setCurrentText("630A");
        QCOMPARE(desk.leaf("device_param.current_type")->getInt(), 350); // until it is stored
        desk.enable->setChecked(true);
        const QVariantMap sent{{"enable", true},         {"connect_to_welder", false},
                               {"protocol", "Ethercat"}, {"mfr", "Aotai"},
                               {"model", "RP/RPH"},      {"current_type", 630}};
        QCOMPARE(desk.host.link()->lastPayload.toMap(), sent);
        QCOMPARE(desk.host.stored("arc_weld.welder_setting").toMap(), sent);
        QVERIFY(desk.leaf("enable")->getBool() && !desk.canChoose());
        desk.enable->setChecked(false);
        QVERIFY(!desk.leaf("enable")->getBool() && desk.canChoose());
        for (const bool on : {true, false})
            desk.connect->setChecked(on);
        QCOMPARE(desk.host.takeRequests(),
                 QStringList({setWelder, setWelder, setWelder, setWelder}));
        QCOMPARE(desk.host.takeMessages().join('|'),
                 "info: enable device success [setting]|"
                 "info: disable device success [setting]|"
                 "info: connect the actual weldMachinesuccess [setting]|"
                 "info: don't connect the actual weldMachinesuccess [setting]");
    }
    void whatIsNotAcceptedIsPutBack()
    {
        const QString connect = "connect the actual weldMachinefail";
        const testsupport::Rows<bool, bool, QString> rows{
            {"enable", true, true, "enable device error"},
            {"disable", true, false, "disable device error"},
            {"connect", false, true, connect},
            {"don't connect", false, false, "don't " + connect},
        };
        for (const auto &[name, enabling, on, message] : rows) {
            for (const auto failure : {FormHost::LinkDown, FormHost::Refused}) {
                const bool asked = failure != FormHost::LinkDown;
                Desk desk;
                EnableButton *button = enabling ? desk.enable : desk.connect;
                if (!on)
                    button->setChecked(true);
                desk.host.takeMessages();
                desk.host.takeRequests();
                desk.host.spoil(failure, setWelder);
                QSignalSpy signalled(button, &EnableButton::enabled);
                button->setChecked(on);
                QCOMPARE(desk.host.takeMessages().join('|'),
                         "error: " + (asked ? message + " [setting]" : "tessa not connected []"));
                QCOMPARE(desk.host.takeRequests().join('|'), asked ? setWelder : QString());
                QCOMPARE(button->isChecked(), !on);
                QCOMPARE(signalled.size(), 1); // not for the way back
                const char *key = enabling ? "enable" : "device_param.connect_to_welder";
                QCOMPARE(desk.leaf(key)->getBool(), !on);
                QCOMPARE(desk.canChoose(), !desk.enable->isChecked());
            }
        }
    }
    // Only the switch: a late "ok" must not let the handle keys loose after a quick off.
    void theWeldersStateMovesTheSwitch()
    {
        Desk desk;
        const QString node = QStringLiteral("arc_weld.welder_state");
        xservice()->watch(this, node, true); // the arc-weld page does, for all
        desk.host.takeRequests();
        for (const auto &[state, on] :
             {std::pair{"ok", true}, {"error", true}, {"disabled", false}, {"error", false}}) {
            desk.host.notify(node, QVariantMap{{"state", state}});
            QCOMPARE(desk.enable->isChecked(), on);
            QVERIFY(!desk.leaf("enable")->getBool() && desk.canChoose());
        }
        QCOMPARE(desk.host.takeRequests() + desk.host.takeMessages(), QStringList());
    }
    void thePageShowsTheControllersSetting()
    {
        Desk desk;
        desk.host.link()->answers[readSetting] = QVariantMap{{"enable", true},
                                                             {"protocol", "Ethercat"},
                                                             {"mfr", "Aotai"},
                                                             {"model", "RP/RPH"},
                                                             {"current_type", 800}};
        for (const bool isReadable : {true, false}) { // else it stays as it was
            if (!isReadable) {
                desk.host.link()->answers.clear();
                desk.host.spoil(FormHost::Refused, readSetting);
            }
            desk.page.initPage();
            QCOMPARE(desk.host.takeRequests(), QStringList(readSetting));
            QCOMPARE(desk.type->currentText() + ' ' + desk.current->currentText(), "RP/RPH 800A");
            QVERIFY(desk.enable->isChecked() && !desk.canChoose());
            QCOMPARE(desk.leaf("device_param.current_type")->value(), QVariant(800));
        }
    }
    // The machine that another pendant connected stays connected when welding is enabled here.
    void whatAnotherPendantConnectedStaysConnected()
    {
        Desk desk;
        QVariantMap theirs = desk.host.stored("arc_weld.welder_setting").toMap();
        theirs["connect_to_welder"] = true;
        theirs["mfr"] = "unheard of";
        theirs["current_type"] = 444;
        desk.host.link()->answers[readSetting] = theirs;
        desk.current->setCurrentIndex(2);
        desk.page.initPage();
        QVERIFY(desk.connect->isChecked());
        QCOMPARE(desk.current->currentText(), "350A"); // the first, for one that is not offered
        desk.enable->setChecked(true);
        const QVariantMap sent = desk.host.link()->lastPayload.toMap();
        QVERIFY(sent["connect_to_welder"].toBool());
        QCOMPARE(sent["mfr"].toString(), "Aotai");
    }
    // Some hosts load the module when the link is up already.
    void aPageBuiltLateShowsItAsWell()
    {
        Desk desk;
        desk.host.link()->answers[readSetting] = QVariantMap{{"enable", true}};
        QVERIFY(!desk.leaf("enable")->getBool());
        const DevicesSettingPage late(desk.host.window(), desk.host.window());
        QVERIFY(!child(late.wgt(), "cbx_type")->isEnabled());
    }
};

QTEST_MAIN(tst_DevicesPage)
#include "tst_devicespage.moc"
