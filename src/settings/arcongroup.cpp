#include "settings/arcongroup.h"

#include "data/units.h"
#include "ui_arcongroup.h"

using namespace welmo;

ArconGroup::ArconGroup(QWidget *parent)
    : ProcessGroup(parent)
    , ui(std::make_unique<Ui::ArconGroup>())
{
    ui->setupUi(this);
    setControls({ui->cbx_arconParamFileNumber, ui->lbl_arconWorkMode, ui->cbx_arconWorkMode,
                 ui->lbl_arconCurrentMode, ui->cbx_arconCurrentMode, ui->lbl_arconVoltageMode,
                 ui->cbx_arconVoltageMode, ui->lbl_arconCurrentUnit, ui->sbxArconVoltage,
                 ui->lbl_arconVoltageUnit, ui->wgt_arconAdvancedParam, ui->btn_arconFold,
                 ui->btnArcOnSave, ui->btnArcOnCancel, tr("Fold ArcOn Advanced Parameter"),
                 tr("Unfold ArcOn Advanced Parameter")},
                sets::arcon());
}

ArconGroup::~ArconGroup() = default;

void ArconGroup::declareFields(FieldTable &f)
{
    f.fileName("name", ui->cbx_arconParamFileNumber);
    f.text("annotation", ui->ledt_arconAnnotaion);
    f.choice("mode", ui->cbx_arconWorkMode, choices::workModes(), "flat_characteristic");
    f.choice("current_mode", ui->cbx_arconCurrentMode, choices::currentModes(), "current");
    f.choice("voltage_mode", ui->cbx_arconVoltageMode, choices::voltageModes(), "unified");
    f.real("current", ui->sbxArconCurrent, {0, 2000}, 0);
    f.real("voltage", ui->sbxArconVoltage, {0, 200}, 0);
    f.integer("hold_time", ui->sbxArconTime, {0, 10000}, 200).unit(ui->lblArconTimeUnit, units::ms);
    f.integer("detect_time", ui->sbxArconDetectTime, {0, 10000}, 2000)
        .unit(ui->lblArconDetectTimeUnit, units::ms);
    f.integer("confirm_time", ui->sbxArconConfirmTime, {0, 10000}, 200)
        .unit(ui->lblArconConfirmTimeUnit, units::ms);
    f.integer("preflow_time", ui->sbxFlowLeadTime, {1, 10000}, 200)
        .unit(ui->lblFlowLeadTimeUnit, units::ms);
    f.integer("prearc_time", ui->sbxArconLeadTime, {0, 10000}, 200)
        .unit(ui->lblArconLeadTimeUnit, units::ms);
    f.real("slow_wire_feed_speed", ui->sbxSlowWireFeedSpeed, {1.0, 21.0}, 1)
        .unit(ui->lblSlowWireFeedSpeedUnit, units::metrePerMinute);
    f.integer("pre_wirefeed_time", ui->sbxWireoutLeadTime, {0, 10000}, 200)
        .unit(ui->lblWireoutLeadTimeUnit, units::ms);
    f.integer("ramp_time", ui->sbxArconRampTime, {1, 10000}, 200)
        .unit(ui->lblArconRampTimeUnit, units::ms);
    f.choice("re_arcon.enable", ui->cbxReArconSwitch, choices::switches(), false);
    // The number of attempts, although the controller's key says "time".
    f.integer("re_arcon.retry_time", ui->sbxRetryTimes, {1, 20}, 3);
    f.integer("re_arcon.wire_retract_delay_time", ui->sbxRetryWaitTime, {0, 10000}, 50)
        .unit(ui->lblRetryWaitTimeUnit, units::ms);
    f.integer("re_arcon.wire_retract_time", ui->sbxRetryTime, {0, 10000}, 200)
        .unit(ui->lblRetryTimeUnit, units::ms);
    f.real("re_arcon.current_step", ui->sbxRetryCurrentIncrement, {0, 50}, 0);
    f.real("re_arcon.voltage_step", ui->sbxRetryVoltageIncrement, {0, 10}, 0);
    f.defaultOnly("re_arcon.scratch_on_failure", false);
    f.choice("scratch_arcon.enable", ui->cbx_moveArcon, choices::switches(), false);
    f.integer("scratch_arcon.distance", ui->sbxMoveDistance, {0, 500}, 20)
        .unit(ui->lblMoveDistanceUnit, units::mm);
    f.integer("scratch_arcon.back_speed", ui->sbxReturnSpeed, {0, 10000}, 50)
        .unit(ui->lblReturnSpeedUnit, units::mmPerSecond);
    f.integer("scratch_arcon.step", ui->sbxStepDis, {0, 500}, 5)
        .unit(ui->lblStepDisUnit, units::mm);
    f.integer("scratch_arcon.offset", ui->sbxRetryOffset, {0, 10}, 0)
        .unit(ui->lblRetryOffsetUnit, units::mm);
}

void ArconGroup::initConnect()
{
    // Stored from its box like every other value, but not offered to the operator.
    for (QWidget *widget :
         {static_cast<QWidget *>(ui->lbl_retryOffset), static_cast<QWidget *>(ui->sbxRetryOffset),
          static_cast<QWidget *>(ui->lblRetryOffsetUnit)})
        widget->hide();
    connect(ui->sbxArconLeadTime, &QSpinBox::editingFinished, this,
            &ArconGroup::onArconLeadTimeEditFinished);
}

void ArconGroup::currentUnitChanged(const QString &unit)
{
    ui->lbl_retryCurrentIncrementUnit->setText(unit);
}

void ArconGroup::voltageUnitChanged(const QString &unit)
{
    ui->lbl_retryVoltageIncrementUnit->setText(unit);
}

void ArconGroup::applyRules()
{
    onArconLeadTimeEditFinished();
}

void ArconGroup::onArconLeadTimeEditFinished()
{
    constexpr int closeIndex = 1;
    const int time = ui->sbxArconLeadTime->value();
    if (time > 0)
        ui->cbx_moveArcon->setCurrentIndex(closeIndex);
    for (QWidget *widget : std::initializer_list<QWidget *>{
             ui->lbl_moveArcon, ui->cbx_moveArcon, ui->lbl_moveDistance, ui->sbxMoveDistance,
             ui->lblMoveDistanceUnit, ui->lbl_returnSpeed, ui->sbxReturnSpeed,
             ui->lblReturnSpeedUnit, ui->lbl_stepDis, ui->sbxStepDis, ui->lblStepDisUnit})
        widget->setEnabled(time < 1);
}
