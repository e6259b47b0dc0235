#include "settings/devicessettingpage.h"

#include <QComboBox>
#include <QSignalBlocker>

#include "data/arcweldservice.h"
#include "data/report.h"
#include "ui_devicessettingpage.h"
#include "widgets/touchcombo.h"

using namespace welmo;

namespace {

const QString enableKey = QStringLiteral("enable");
const QString connectKey = QStringLiteral("device_param.connect_to_welder");
// The controller's texts of the chosen welder, in the module's tree and in its own setting.
const QStringList textKeys{QStringLiteral("protocol"), QStringLiteral("mfr"),
                           QStringLiteral("model")};
const QString currentKey = QStringLiteral("current_type");
// Misspelt in the trees of every pendant in the field, so it stays.
const QString catalogueKey = QStringLiteral("welder_sertting");
const QString stateNode = QStringLiteral("arc_weld.welder_state");

QString paramKey(const QString &key)
{
    return QStringLiteral("device_param.%1").arg(key);
}

void offer(QComboBox *combo, const QStringList &names)
{
    combo->clear();
    for (const QString &name : names)
        combo->addItem(DevicesSettingPage::tr(qPrintable(name)), name);
}

void setWithoutTriggering(EnableButton *button, bool on)
{
    const QSignalBlocker blocker(button);
    button->setChecked(on);
}

} // namespace

DevicesSettingPage::DevicesSettingPage(QWidget *parent, QObject *owner)
    : BaseSubPage(parent, QStringLiteral("setting"), tr("Device Setting"), owner)
    , ui(std::make_unique<Ui::DevicesSettingPage>())
{
    setObjectName(name());
    bindMobj(QStringLiteral("welmo.device"));
    ui->setupUi(wgt());
    initVariant();
    initUI();
    // After onEnableChanged: what is kept is the state that the switch ended up in.
    connect(ui->btn_connectSwitch, &EnableButton::enabled, this,
            [this] { mobj()->set(this, enableKey, ui->btn_connectSwitch->isChecked(), true); });
    kelp::ModuleObject *leaf = mobj()->c(enableKey, true);
    leaf->watch(true, false);
    connect(leaf, &kelp::ModuleObject::changed, this,
            [this](const QVariant &value) { setSelectionEnabled(!value.toBool()); });
}

DevicesSettingPage::~DevicesSettingPage() = default;

void DevicesSettingPage::initVariant()
{
    for (QComboBox *combo : {ui->cbx_protocol, ui->cbx_brand, ui->cbx_type, ui->cbx_current})
        makeTouchable(combo);
    offer(ui->cbx_protocol, {QStringLiteral("Ethercat")});
    offer(ui->cbx_brand, {QStringLiteral("Aotai")});
    offer(ui->cbx_type, {QStringLiteral("RL/RPL"), QStringLiteral("RP/RPH")});
    offer(ui->cbx_current,
          {QStringLiteral("350A"), QStringLiteral("500A"), QStringLiteral("630A"),
           QStringLiteral("800A")});
}

void DevicesSettingPage::initUI()
{
    initWelderSetting();
    initControl();
    initConnect();
    loadFromRc();
    loadFromMobj();
}

void DevicesSettingPage::initWelderSetting()
{
    const QVariantList currents{350, 500, 630, 800};
    for (const char *type : {"RL/RPL", "RP/RPH"})
        catalogue({QStringLiteral("Ethercat"), QStringLiteral("Aotai")})
            ->setList(this, QString::fromLatin1(type), currents, true);
}

void DevicesSettingPage::initControl()
{
    setSelectionEnabled(!mobj()->r(enableKey)->getBool(false));
}

void DevicesSettingPage::initConnect()
{
    connect(ui->btn_connectSwitch, &EnableButton::enabled, this,
            &DevicesSettingPage::onEnableChanged);
    connect(ui->btn_weatherConnectWelder, &EnableButton::enabled, this,
            &DevicesSettingPage::onWeatherConnectWelderEnableChanged);
    connect(ui->cbx_protocol, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &DevicesSettingPage::onProtocolSelectChanged);
    connect(ui->cbx_brand, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &DevicesSettingPage::onBrandSelectChanged);
    connect(ui->cbx_type, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &DevicesSettingPage::onTypeSelectChanged);
    connect(xservice()->watchNode(stateNode), &kelp::ModuleObject::changed, this,
            &DevicesSettingPage::onWelderStateChanged);
}

void DevicesSettingPage::initPage()
{
    loadFromRc();
    loadFromMobj();
}

void DevicesSettingPage::loadFromRc()
{
    if (!welmo::arcweld::isConnected())
        return;
    const auto setting =
        xservice()->get(this, welmo::arcweld::node(QStringLiteral("welder_setting")));
    if (welmo::arcweld::readFailed(setting))
        return;
    for (const QString &key : textKeys)
        mobj()->set(this, paramKey(key), setting->r(key)->getString(QString()), true);
    mobj()->set(this, paramKey(currentKey), setting->r(currentKey)->getInt(0), true);
    mobj()->set(this, enableKey, setting->r(enableKey)->getBool(false), true);
}

void DevicesSettingPage::loadFromMobj()
{
    const bool on = mobj()->r(enableKey)->getBool(false);
    setWithoutTriggering(ui->btn_connectSwitch, on);
    setSelectionEnabled(!on);
    setWithoutTriggering(ui->btn_weatherConnectWelder, mobj()->r(connectKey)->getBool(false));
    const QList<QComboBox *> combos{ui->cbx_protocol, ui->cbx_brand, ui->cbx_type};
    for (int i = 0; i < combos.size(); ++i) {
        const int index =
            combos[i]->findData(mobj()->r(paramKey(textKeys[i]))->getString(QString()));
        if (index >= 0)
            combos[i]->setCurrentIndex(index);
    }
    const int current = mobj()->r(paramKey(currentKey))->getInt(0);
    ui->cbx_current->setCurrentText(QStringLiteral("%1A").arg(current));
}

void DevicesSettingPage::storeDeviceParam()
{
    mobj()->set(this, enableKey, ui->btn_connectSwitch->isChecked(), true);
    mobj()->set(this, connectKey, ui->btn_weatherConnectWelder->isChecked(), true);
    const QList<QComboBox *> combos{ui->cbx_protocol, ui->cbx_brand, ui->cbx_type};
    for (int i = 0; i < combos.size(); ++i)
        mobj()->set(this, paramKey(textKeys[i]), combos[i]->currentData().toString(), true);
    mobj()->set(this, paramKey(currentKey), convertCurrentToInt(ui->cbx_current->currentText()),
                true);
}

int DevicesSettingPage::convertCurrentToInt(const QString &text)
{
    return text.left(text.size() - 1).toInt();
}

bool DevicesSettingPage::cmdSetWelder()
{
    storeDeviceParam();
    kelp::ModuleObject payload(QStringLiteral("set_device_param"), nullptr);
    payload.copyFrom(this, mobj()->r(QStringLiteral("device_param")), true, true);
    payload.set(this, enableKey, mobj()->r(enableKey)->getBool(false), true);
    const QString command = welmo::arcweld::node(QStringLiteral("set_welder"));
    return xservice()->execCommand(this, command, &payload)->getInt(0) == 0;
}

void DevicesSettingPage::putBack(EnableButton *button, const QString &key, bool on)
{
    setWithoutTriggering(button, on);
    mobj()->set(this, key, on, true);
}

void DevicesSettingPage::onEnableChanged(bool on)
{
    if (!welmo::arcweld::isConnected()) {
        report::error(this, tr("tessa not connected"));
        putBack(ui->btn_connectSwitch, enableKey, !on);
        return;
    }
    const QString action = on ? tr("enable") : tr("disable");
    if (!cmdSetWelder()) {
        report::error(this, QStringLiteral("%1 ").arg(action) + tr("device error"));
        putBack(ui->btn_connectSwitch, enableKey, !on);
        return;
    }
    report::info(this, QStringLiteral("%1 ").arg(action) + tr("device success"));
    setSelectionEnabled(!on);
}

void DevicesSettingPage::onWeatherConnectWelderEnableChanged(bool on)
{
    if (!welmo::arcweld::isConnected()) {
        report::error(this, tr("tessa not connected"));
        putBack(ui->btn_weatherConnectWelder, connectKey, !on);
        return;
    }
    const QString action =
        on ? tr("connect the actual weldMachine") : tr("don't connect the actual weldMachine");
    if (!cmdSetWelder()) {
        report::error(this, action + tr("fail"));
        putBack(ui->btn_weatherConnectWelder, connectKey, !on);
        return;
    }
    report::info(this, action + tr("success"));
}

void DevicesSettingPage::setSelectionEnabled(bool on)
{
    ui->gbx_weldSelection->setEnabled(on);
    for (QComboBox *combo : {ui->cbx_protocol, ui->cbx_brand, ui->cbx_type, ui->cbx_current})
        combo->setEnabled(on);
}

kelp::ModuleObject *DevicesSettingPage::catalogue(const QStringList &choices) const
{
    kelp::ModuleObject *node = mobj()->c(catalogueKey, true);
    for (const QString &choice : choices)
        node = node->c(choice, true);
    return node;
}

void DevicesSettingPage::offerChildren(QComboBox *combo, const QStringList &choices)
{
    offer(combo, catalogue(choices)->cmobjNames(false));
}

void DevicesSettingPage::onProtocolSelectChanged(int index)
{
    if (index >= 0)
        offerChildren(ui->cbx_brand, {ui->cbx_protocol->currentData().toString()});
}

void DevicesSettingPage::onBrandSelectChanged(int index)
{
    if (index >= 0)
        offerChildren(
            ui->cbx_type,
            {ui->cbx_protocol->currentData().toString(), ui->cbx_brand->currentData().toString()});
}

void DevicesSettingPage::onTypeSelectChanged(int index)
{
    if (index < 0)
        return;
    const auto *currents = catalogue({ui->cbx_protocol->currentData().toString(),
                                      ui->cbx_brand->currentData().toString(),
                                      ui->cbx_type->currentData().toString()});
    ui->cbx_current->clear();
    for (const QVariant &current : currents->getList())
        ui->cbx_current->addItem(QStringLiteral("%1A").arg(current.toInt()));
}

void DevicesSettingPage::onWelderStateChanged(const QVariant &value)
{
    kelp::ModuleObject returned(QStringLiteral("return_state"), nullptr);
    returned.importFromVariant(this, value, true, true, false);
    const QString state = returned.r(QStringLiteral("state"))->getString(QString());
    if (state == QLatin1String("ok"))
        putBack(ui->btn_connectSwitch, enableKey, true);
    else if (state == QLatin1String("disabled"))
        putBack(ui->btn_connectSwitch, enableKey, false);
}
