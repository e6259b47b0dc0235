#include "settings/devicessettingpage.h"

#include <QComboBox>
#include <QSignalBlocker>

#include "data/arcweldservice.h"
#include "data/report.h"
#include "data/weldersetting.h"
#include "schema/welders.h"
#include "ui_devicessettingpage.h"
#include "widgets/pairfold.h"
#include "widgets/touchcombo.h"

using namespace welmo;

namespace {

// Misspelt, but the trees of every pendant in the field have it.
const QString catalogueKey = QStringLiteral("welder_sertting");
const QString nowhere = QStringLiteral("-"); // no child has this name

QString enableKey()
{
    return QString::fromLatin1(schema::welderSetting().enable.key);
}

QString connectKey()
{
    return weldersetting::choiceKey(schema::welderSetting().connectToWelder.key);
}

QString currentKey()
{
    return weldersetting::choiceKey(schema::welderSetting().ratedCurrent.key);
}

void offer(QComboBox *combo, const QStringList &names)
{
    combo->clear();
    for (const QString &name : names)
        combo->addItem(schema::shownWelderText(name), name);
}

void offerCurrents(QComboBox *combo, const QVariantList &currents)
{
    combo->clear();
    for (const QVariant &current : currents)
        combo->addItem(QStringLiteral("%1A").arg(current.toInt()));
}

QVariantList currentsOf(const schema::Welder &welder)
{
    QVariantList currents;
    for (int current : welder.currents)
        currents.append(current);
    return currents;
}

/// The distinct texts of @p member among the welders equal to the first one in the members before.
QStringList firstChoices(QString schema::Welder::*member)
{
    const schema::Welder &first = schema::welders().first();
    QStringList texts;
    for (const schema::Welder &each : schema::welders()) {
        const bool isLikeFirst = member == &schema::Welder::protocol
            || (each.protocol == first.protocol
                && (member == &schema::Welder::brand || each.brand == first.brand));
        if (isLikeFirst && !texts.contains(each.*member))
            texts.append(each.*member);
    }
    return texts;
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
    welmo::PairFold::follow(wgt());
    const auto &rows = schema::welderSetting();
    m_choices = {{rows.protocol.key, ui->cbx_protocol},
                 {rows.brand.key, ui->cbx_brand},
                 {rows.type.key, ui->cbx_type}};
    initVariant();
    initUI();
    // Connected after onEnableChanged, which may put the switch back: the final state is kept.
    connect(ui->btn_connectSwitch, &EnableButton::enabled, this,
            [this] { mobj()->set(this, enableKey(), ui->btn_connectSwitch->isChecked(), true); });
    kelp::ModuleObject *leaf = mobj()->c(enableKey(), true);
    leaf->watch(true, false);
    connect(leaf, &kelp::ModuleObject::changed, this,
            [this](const QVariant &value) { setSelectionEnabled(!value.toBool()); });
}

DevicesSettingPage::~DevicesSettingPage() = default;

void DevicesSettingPage::initVariant()
{
    for (QComboBox *combo : {ui->cbx_protocol, ui->cbx_brand, ui->cbx_type, ui->cbx_current})
        makeTouchable(combo);
    offer(ui->cbx_protocol, firstChoices(&schema::Welder::protocol));
    offer(ui->cbx_brand, firstChoices(&schema::Welder::brand));
    offer(ui->cbx_type, firstChoices(&schema::Welder::type));
    offerCurrents(ui->cbx_current, currentsOf(schema::welders().first()));
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
    for (const schema::Welder &each : schema::welders()) {
        const QStringList path{catalogueKey, each.protocol, each.brand, each.type};
        mobj()->setList(this, path.join(QLatin1Char('.')), currentsOf(each), true);
    }
}

void DevicesSettingPage::initControl()
{
    setSelectionEnabled(!mobj()->r(enableKey())->getBool(false));
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
    connect(xservice()->watchNode(names::welderState), &kelp::ModuleObject::changed, this,
            &DevicesSettingPage::onWelderStateChanged);
    connect(xservice()->watchNode(names::welderSetting), &kelp::ModuleObject::changed, this,
            &DevicesSettingPage::onWelderSettingChanged);
}

// Another pendant chose a welder; choices that are being made here stay.
void DevicesSettingPage::onWelderSettingChanged()
{
    const bool isEdited = choices() != m_shownChoices;
    loadFromRc();
    showSwitches();
    if (!isEdited)
        showChoices();
}

void DevicesSettingPage::initPage()
{
    if (arcweld::isConnected())
        xservice()->watch(this, names::welderSetting, true);
    loadFromRc();
    loadFromMobj();
}

void DevicesSettingPage::loadFromRc()
{
    if (!arcweld::isConnected())
        return;
    const auto setting = xservice()->get(this, names::welderSetting);
    if (arcweld::readFailed(setting))
        return;
    weldersetting::keep(this, mobj(), setting);
    // Otherwise the next command would disconnect a welder that another pendant connected.
    const QString connect = QString::fromLatin1(schema::welderSetting().connectToWelder.key);
    if (setting->hasCmobj(connect, false))
        mobj()->set(this, connectKey(), setting->r(connect)->getBool(false), true);
}

void DevicesSettingPage::loadFromMobj()
{
    showSwitches();
    showChoices();
}

void DevicesSettingPage::showSwitches()
{
    const bool on = mobj()->r(enableKey())->getBool(false);
    setWithoutTriggering(ui->btn_connectSwitch, on);
    setSelectionEnabled(!on);
    setWithoutTriggering(ui->btn_weatherConnectWelder, mobj()->r(connectKey())->getBool(false));
}

void DevicesSettingPage::showChoices()
{
    const auto show = [](QComboBox *combo, int index) {
        combo->setCurrentIndex(qMax(0, index)); // the first, if the stored one is not offered
    };
    for (const Choice &choice : m_choices) {
        const QString stored =
            mobj()->r(weldersetting::choiceKey(choice.key))->getString(QString());
        show(choice.combo, choice.combo->findData(stored));
    }
    const QString current = QStringLiteral("%1A").arg(mobj()->r(currentKey())->getInt(0));
    show(ui->cbx_current, ui->cbx_current->findText(current));
    m_shownChoices = choices();
}

QStringList DevicesSettingPage::choices() const
{
    QStringList texts;
    for (const QComboBox *combo : {ui->cbx_protocol, ui->cbx_brand, ui->cbx_type, ui->cbx_current})
        texts.append(combo->currentText());
    return texts;
}

void DevicesSettingPage::storeDeviceParam()
{
    mobj()->set(this, enableKey(), ui->btn_connectSwitch->isChecked(), true);
    mobj()->set(this, connectKey(), ui->btn_weatherConnectWelder->isChecked(), true);
    for (const Choice &choice : m_choices)
        mobj()->set(this, weldersetting::choiceKey(choice.key),
                    choice.combo->currentData().toString(), true);
    mobj()->set(this, currentKey(), convertCurrentToInt(ui->cbx_current->currentText()), true);
}

int DevicesSettingPage::convertCurrentToInt(const QString &text)
{
    return text.leftRef(text.size() - 1).toInt();
}

bool DevicesSettingPage::cmdSetWelder()
{
    storeDeviceParam();
    kelp::ModuleObject payload(QStringLiteral("set_device_param"), nullptr);
    payload.copyFrom(this, mobj()->r(QStringLiteral("device_param")), true, true);
    payload.set(this, enableKey(), mobj()->r(enableKey())->getBool(false), true);
    return xservice()->execCommand(nullptr, names::setWelder, &payload)->getInt(0) == 0;
}

void DevicesSettingPage::putBack(EnableButton *button, const QString &key, bool on)
{
    setWithoutTriggering(button, on);
    mobj()->set(this, key, on, true);
}

void DevicesSettingPage::onEnableChanged(bool on)
{
    if (!report::requireConnection()) {
        putBack(ui->btn_connectSwitch, enableKey(), !on);
        return;
    }
    const QString action = on ? tr("enable") : tr("disable");
    if (!cmdSetWelder()) {
        report::error(this, QStringLiteral("%1 ").arg(action) + tr("device error"));
        putBack(ui->btn_connectSwitch, enableKey(), !on);
        return;
    }
    report::info(this, QStringLiteral("%1 ").arg(action) + tr("device success"));
    setSelectionEnabled(!on);
}

void DevicesSettingPage::onWeatherConnectWelderEnableChanged(bool on)
{
    if (!report::requireConnection()) {
        putBack(ui->btn_weatherConnectWelder, connectKey(), !on);
        return;
    }
    const QString action =
        on ? tr("connect the actual weldMachine") : tr("don't connect the actual weldMachine");
    if (!cmdSetWelder()) {
        report::error(this, action + tr("fail"));
        putBack(ui->btn_weatherConnectWelder, connectKey(), !on);
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

// The catalogue entry for the first @p count boxes; the look-up creates no node.
const kelp::ModuleObject *DevicesSettingPage::chosen(size_t count) const
{
    const kelp::ModuleObject *node = mobj()->r(catalogueKey);
    for (size_t i = 0; i < count; ++i) {
        const QString text = m_choices[i].combo->currentData().toString();
        node = node->r(text.isEmpty() ? nowhere : text);
    }
    return node;
}

void DevicesSettingPage::onProtocolSelectChanged(int)
{
    offer(ui->cbx_brand, chosen(1)->cmobjNames(false));
}

void DevicesSettingPage::onBrandSelectChanged(int)
{
    offer(ui->cbx_type, chosen(2)->cmobjNames(false));
}

void DevicesSettingPage::onTypeSelectChanged(int)
{
    offerCurrents(ui->cbx_current, chosen(3)->getList());
}

void DevicesSettingPage::onWelderStateChanged(const QVariant &value)
{
    kelp::ModuleObject returned(QStringLiteral("return_state"), nullptr);
    returned.importFromVariant(this, value, true, true, false);
    // For display only: the operator and the controller's setting decide whether welding is
    // enabled.
    const QString state = returned.r(QStringLiteral("state"))->getString(QString());
    if (state == QLatin1String("ok"))
        setWithoutTriggering(ui->btn_connectSwitch, true);
    else if (state == QLatin1String("disabled"))
        setWithoutTriggering(ui->btn_connectSwitch, false);
}
