#include "settings/weldingoptionspage.h"

#include <QSignalBlocker>

#include "data/arcweldservice.h"
#include "data/inputs.h"
#include "data/report.h"
#include "ui_weldingoptionspage.h"
#include "widgets/pairfold.h"

using namespace welmo;

namespace {

// The code of a save that was refused here, without asking the controller.
constexpr int notRead = -1;

} // namespace

WeldingOptionsPage::WeldingOptionsPage(QWidget *parent, QObject *owner)
    : BaseSubPage(parent, QStringLiteral("welding options"), tr("Welding Options"), owner)
    , ui(std::make_unique<Ui::WeldingOptionsPage>())
    , m_running(this, schema::running())
    , m_anticollision(this, schema::anticollision(),
                      [this] { lockByAnticollision(ui->btn_antiCollisionSwitch->isChecked()); })
    , m_clamping(this, schema::clamping())
{
    setObjectName(name());
    ui->setupUi(wgt());
    welmo::PairFold::follow(wgt());
    bindFields();
    initUI();
}

WeldingOptionsPage::~WeldingOptionsPage() = default;

void WeldingOptionsPage::bindFields()
{
    FieldTable &running = m_running.fields();
    const auto &run = schema::running();
    running.bind(run.testRunSpeed, ui->sbx_emptyRunningCartSpeed)
        .unit(ui->lblEmptyRunningCartSpeedUnit);
    running.bind(run.wireFeedSpeed, ui->sbx_wireSpeed).unit(ui->lblWireSpeedUnit);
    running.bind(run.gasDetectTime, ui->sbx_gasDetectionTime).unit(ui->lblGasDetectionTimeUnit);
    FieldTable &anticollision = m_anticollision.fields();
    anticollision.bind(schema::anticollision().enable, ui->btn_antiCollisionSwitch);
    anticollision.bind(schema::anticollision().signal, ui->cbx_DISelection_anti);
    anticollision.bind(schema::anticollision().block, ui->btn_antiCollisionShield);
    FieldTable &clamping = m_clamping.fields();
    clamping.bind(schema::clamping().enable, ui->cbx_modeSwitch);
    clamping.bind(schema::clamping().signal, ui->cbx_DISelection);
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
    m_running.addHint(ui->gbx_baseSetting);
    m_anticollision.addHint(ui->gbx_antiCollision);
    m_clamping.addHint(ui->gbx_wireTorch);
    m_running.showEdits(ui->btn_baseSetSave);
    m_clamping.showEdits(ui->btn_wireTouchSave); // the sensor has no Save, its switch sends it
    offerInputs();
}

void WeldingOptionsPage::offerInputs()
{
    const QStringList inputs = getDIRange();
    for (QComboBox *combo : {ui->cbx_DISelection_anti, ui->cbx_DISelection}) {
        const QSignalBlocker blocker(combo);
        const QString present = combo->currentText();
        combo->clear();
        combo->addItems(inputs);
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
    connect(xservice()->watchNode(names::welderState), &kelp::ModuleObject::changed, this,
            &WeldingOptionsPage::onWelderStateChanged);
    connect(xservice()->watchNode(names::anticollisionState), &kelp::ModuleObject::changed, this,
            &WeldingOptionsPage::onAnticollisionShieldFinish);
}

void WeldingOptionsPage::initParamRange()
{
    m_running.fields().prepare();
    checkWelderState();
}

void WeldingOptionsPage::checkWelderState()
{
    if (arcweld::isConnected())
        showWelderState(arcweld::welderState(this));
    else
        ui->lblWelderHint->hide();
}

void WeldingOptionsPage::showWelderState(const QString &state)
{
    // The settings can be edited without a ready welder; the hint says why nothing happens.
    ui->lblWelderHint->setVisible(state != QLatin1String("ok"));
}

void WeldingOptionsPage::onWelderStateChanged(const QVariant &value)
{
    kelp::ModuleObject returned(QStringLiteral("return_state"), nullptr);
    returned.importFromVariant(this, value, true, true, false);
    if (returned.hasCmobj(QStringLiteral("state"), false))
        showWelderState(returned.r(QStringLiteral("state"))->getString(QString()));
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
    for (OptionsForm *form : {&m_running, &m_anticollision, &m_clamping})
        form->reload();
}

void WeldingOptionsPage::initPage()
{
    if (!welmo::arcweld::isConnected())
        return;
    xservice()->watch(this, names::anticollisionState, true);
    checkWelderState();
    offerInputs();
    readAll();
}

int WeldingOptionsPage::saveRunningParam()
{
    if (!m_running.isKnown())
        return notRead;
    storeRunningParam();
    return xservice()->set(this, names::runningParam, m_running.payload().get())->getInt(0);
}

int WeldingOptionsPage::cmdAnticollisionParam()
{
    if (!m_anticollision.isKnown())
        return notRead;
    return xservice()
        ->execCommand(nullptr, names::setAnticollision, m_anticollision.payload().get())
        ->getInt(0);
}

int WeldingOptionsPage::cmdWireClampingTorchModeParam()
{
    if (!m_clamping.isKnown())
        return notRead;
    return xservice()
        ->execCommand(nullptr, names::setClampingTorchMode, m_clamping.payload().get())
        ->getInt(0);
}

void WeldingOptionsPage::onRunningParamSaveButtonClicked()
{
    if (!report::requireConnection() || !m_running.maySave())
        return;
    const int result = saveRunningParam();
    if (result != 0) {
        report::error(this,
                      tr("save running parameter error") + QStringLiteral(". %1").arg(result));
        return;
    }
    report::info(this, tr("save running parameter success"));
    m_running.markSaved();
}

bool WeldingOptionsPage::actOnAnticollision(EnableButton *button, bool on, const QString &error,
                                            const QString &success)
{
    if (!report::requireConnection() || !m_anticollision.maySave()) {
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
    m_anticollision.markSaved();
    return true;
}

void WeldingOptionsPage::onAnticollisionEnableChanged(bool on)
{
    if (!actOnAnticollision(ui->btn_antiCollisionSwitch, on, tr("anti-collision device error"),
                            tr("anti-collision device success")))
        return;
    lockByAnticollision(on);
    if (on)
        return;
    setButtonEnabledWithoutTriggeringSlot(ui->btn_antiCollisionShield, false);
    // So that switching it on again does not send a shield that the operator did not choose.
    storeAnticollisionParam();
    m_anticollision.markSaved();
}

void WeldingOptionsPage::lockByAnticollision(bool on)
{
    // The input must be chosen before the sensor is switched on, and cannot change while it is on.
    ui->btn_antiCollisionShield->setEnabled(on);
    ui->cbx_DISelection_anti->setEnabled(!on);
}

void WeldingOptionsPage::onAnticollisionShieldEnableChanged(bool on)
{
    actOnAnticollision(ui->btn_antiCollisionShield, on, tr("anti-collision device shielding error"),
                       tr("anti-collision device shielding success"));
    xservice()->watch(this, names::anticollisionState, true);
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
    if (!report::requireConnection() || !m_clamping.maySave())
        return;
    storeWireClampingTorchModeParam();
    const QString mode = QStringLiteral("%1 ").arg(ui->cbx_modeSwitch->currentText());
    if (cmdWireClampingTorchModeParam() != 0) {
        report::error(this, mode + tr("wire clamping torch mode error"));
        return;
    }
    report::info(this, mode + tr("wire clamping torch mode success"));
    m_clamping.markSaved();
}
