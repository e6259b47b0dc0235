#include "settings/weldingoptionspage.h"

#include <QSignalBlocker>

#include "data/arcweldservice.h"
#include "data/inputs.h"
#include "data/report.h"
#include "data/switchfield.h"
#include "data/units.h"
#include "ui_weldingoptionspage.h"

using namespace welmo;

namespace {

const QString anticollisionStateNode = QStringLiteral("arc_weld.anticollision_state");
constexpr int notRead = -1; // refused here, before the controller is asked

} // namespace

WeldingOptionsPage::WeldingOptionsPage(QWidget *parent, QObject *owner)
    : BaseSubPage(parent, QStringLiteral("welding options"), tr("Welding Options"), owner)
    , ui(std::make_unique<Ui::WeldingOptionsPage>())
    , m_running(this, QStringLiteral("running_param"))
    , m_anticollision(this, QStringLiteral("anticollision_param"))
    , m_clamping(this, QStringLiteral("wire_clamping_torch_param"))
{
    setObjectName(name());
    ui->setupUi(wgt());
    declareFields();
    initUI();
}

WeldingOptionsPage::~WeldingOptionsPage() = default;

void WeldingOptionsPage::declareFields()
{
    m_running.fields()
        .integer("test_run_speed", ui->sbx_emptyRunningCartSpeed, {1, 250}, 200)
        .unit(ui->lblEmptyRunningCartSpeedUnit, units::mmPerSecond);
    // A whole number by default, like every other; the operator's own has decimals.
    m_running.fields()
        .real("wire_feed_speed", ui->sbx_wireSpeed, {1.0, 21.0}, 1)
        .unit(ui->lblWireSpeedUnit, units::metrePerMinute);
    m_running.fields()
        .integer("gas_detect_time", ui->sbx_gasDetectionTime, {1, 30}, 15)
        .unit(ui->lblGasDetectionTimeUnit, units::second);
    m_anticollision.fields().add<SwitchField>("enable", ui->btn_antiCollisionSwitch);
    m_anticollision.fields()
        .name("signal", ui->cbx_DISelection_anti, inputs::noSignal())
        .meaningTheFirst(inputs::noSignalTexts());
    m_anticollision.fields().add<SwitchField>("block", ui->btn_antiCollisionShield);
    m_clamping.fields().choice("enable", ui->cbx_modeSwitch, choices::modeSwitch(), false);
    m_clamping.fields()
        .name("signal", ui->cbx_DISelection, inputs::noSignal())
        .meaningTheFirst(inputs::noSignalTexts());
}

void WeldingOptionsPage::initUI()
{
    initControl();
    initConnect();
    initParamRange();
    initParamValue();
}

void WeldingOptionsPage::initControl()
{
    m_anticollision.fields().prepare();
    m_clamping.fields().prepare();
    ui->lblWelderHint->hide();
    offerInputs();
}

void WeldingOptionsPage::offerInputs()
{
    for (QComboBox *combo : {ui->cbx_DISelection_anti, ui->cbx_DISelection}) {
        const QSignalBlocker blocker(combo);
        const QString present = combo->currentText();
        combo->clear();
        combo->addItems(inputs::getDIRange());
        combo->setCurrentIndex(combo->findText(present));
    }
}

void WeldingOptionsPage::initConnect()
{
    connect(ui->btn_baseSetSave, &QPushButton::clicked, this,
            &WeldingOptionsPage::onRunningParamSaveButtonClicked);
    connect(ui->btn_antiCollisionSwitch, &EnableButton::enabled, this,
            &WeldingOptionsPage::onAnticollisionEnableChanged);
    connect(ui->btn_antiCollisionShield, &EnableButton::enabled, this,
            &WeldingOptionsPage::onAnticollisionShieldEnableChanged);
    connect(ui->btn_wireTouchSave, &QPushButton::clicked, this,
            &WeldingOptionsPage::onWireClampingTorchSaveButtonClicked);
    connect(xservice()->watchNode(anticollisionStateNode), &kelp::ModuleObject::changed, this,
            &WeldingOptionsPage::onAnticollisionShieldFinish);
}

void WeldingOptionsPage::initParamRange()
{
    m_running.fields().prepare();
    checkWelderState();
}

void WeldingOptionsPage::checkWelderState()
{
    // The settings can be edited all the same; the operator should know why nothing moves.
    ui->lblWelderHint->setVisible(welmo::arcweld::isConnected()
                                  && welmo::arcweld::welderState(this) != QLatin1String("ok"));
}

void WeldingOptionsPage::initParamValue()
{
    initRunningParamDefault();
    initAnticollisionParamDefault();
    initWireClampingTorchModeParamDefault();
    useDefaultRunningParam();
    useDefaultAnticollisionParam();
    useDefaultWireClampingTorchModeParam();
    setRunningParam();
    setAnticollisionParam();
    setWireClampingTorchModeParam();
    if (welmo::arcweld::isConnected())
        readAll();
}

void WeldingOptionsPage::readAll()
{
    if (m_running.get())
        setRunningParam();
    if (m_anticollision.get())
        setAnticollisionParam();
    if (m_clamping.get())
        setWireClampingTorchModeParam();
}

void WeldingOptionsPage::initPage()
{
    if (!welmo::arcweld::isConnected())
        return;
    xservice()->watch(this, anticollisionStateNode, true);
    checkWelderState();
    offerInputs();
    readAll();
}

void WeldingOptionsPage::setAnticollisionParam()
{
    m_anticollision.show();
    lockByAnticollision(ui->btn_antiCollisionSwitch->isChecked());
}

void WeldingOptionsPage::storeAnticollisionParam()
{
    m_anticollision.store();
}

int WeldingOptionsPage::saveRunningParam()
{
    if (!m_running.isKnown())
        return notRead;
    storeRunningParam();
    return xservice()
        ->set(this, welmo::arcweld::node(QStringLiteral("running_param")), m_running.data())
        ->getInt(0);
}

int WeldingOptionsPage::cmdAnticollisionParam()
{
    if (!m_anticollision.isKnown())
        return notRead;
    return xservice()
        ->execCommand(this, welmo::arcweld::node(QStringLiteral("set_anticollision")),
                      m_anticollision.data())
        ->getInt(0);
}

int WeldingOptionsPage::cmdWireClampingTorchModeParam()
{
    if (!m_clamping.isKnown())
        return notRead;
    return xservice()
        ->execCommand(this, welmo::arcweld::node(QStringLiteral("set_wire_clamping_torch_mode")),
                      m_clamping.data())
        ->getInt(0);
}

void WeldingOptionsPage::onRunningParamSaveButtonClicked()
{
    if (!welmo::arcweld::isConnected()) {
        report::error(this, tr("tessa not connected"));
        return;
    }
    const int result = saveRunningParam();
    if (result != 0)
        report::error(this,
                      tr("save running parameter error") + QStringLiteral(". %1").arg(result));
    else
        report::info(this, tr("save running parameter success"));
}

bool WeldingOptionsPage::actOnAnticollision(EnableButton *button, bool on, const QString &error,
                                            const QString &success)
{
    if (!welmo::arcweld::isConnected()) {
        report::error(this, tr("tessa not connected"));
        setButtonEnabledWithoutTriggeringSlot(button, !on);
        return false;
    }
    const QString action = on ? tr("enable") : tr("disable");
    storeAnticollisionParam();
    if (cmdAnticollisionParam() != 0) {
        report::error(this, QStringLiteral("%1 ").arg(action) + error);
        setButtonEnabledWithoutTriggeringSlot(button, !on);
        storeAnticollisionParam();
        return false;
    }
    report::info(this, QStringLiteral("%1 ").arg(action) + success);
    return true;
}

void WeldingOptionsPage::onAnticollisionEnableChanged(bool on)
{
    if (!actOnAnticollision(ui->btn_antiCollisionSwitch, on, tr("anti-collision device error"),
                            tr("anti-collision device success")))
        return;
    lockByAnticollision(on);
    if (!on)
        setButtonEnabledWithoutTriggeringSlot(ui->btn_antiCollisionShield, false);
}

void WeldingOptionsPage::lockByAnticollision(bool on)
{
    // The input is chosen before the sensor is switched on, and locked while it is active.
    ui->btn_antiCollisionShield->setEnabled(on);
    ui->cbx_DISelection_anti->setEnabled(!on);
}

void WeldingOptionsPage::onAnticollisionShieldEnableChanged(bool on)
{
    actOnAnticollision(ui->btn_antiCollisionShield, on, tr("anti-collision device shielding error"),
                       tr("anti-collision device shielding success"));
    xservice()->watch(this, anticollisionStateNode, true);
}

void WeldingOptionsPage::onAnticollisionShieldFinish(const QVariant &state)
{
    kelp::ModuleObject returned(QStringLiteral("return_state"), nullptr);
    returned.importFromVariant(this, state, true, true, false);
    setButtonEnabledWithoutTriggeringSlot(ui->btn_antiCollisionShield,
                                          returned.r(QStringLiteral("block"))->getBool(false));
}

void WeldingOptionsPage::setButtonEnabledWithoutTriggeringSlot(EnableButton *button, bool on)
{
    const QSignalBlocker blocker(button);
    button->setChecked(on);
}

void WeldingOptionsPage::onWireClampingTorchSaveButtonClicked()
{
    if (!welmo::arcweld::isConnected()) {
        report::error(this, tr("tessa not connected"));
        return;
    }
    storeWireClampingTorchModeParam();
    const QString mode = QStringLiteral("%1 ").arg(ui->cbx_modeSwitch->currentText());
    if (cmdWireClampingTorchModeParam() != 0)
        report::error(this, mode + tr("wire clamping torch mode error"));
    else
        report::info(this, mode + tr("wire clamping torch mode success"));
}
