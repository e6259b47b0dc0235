#include "settings/arcongroup.h"

#include "ui_arcongroup.h"

namespace welmo {

ArconGroup::ArconGroup(QWidget *parent)
    : ProcessGroup(parent)
    , ui(std::make_unique<Ui::ArconGroup>())
{
    ui->setupUi(this);
    setControls({ui->cbx_arconParamFileNumber, ui->ledt_arconAnnotaion, ui->lbl_arconWorkMode,
                 ui->cbx_arconWorkMode, ui->lbl_arconCurrentMode, ui->cbx_arconCurrentMode,
                 ui->lbl_arconVoltageMode, ui->cbx_arconVoltageMode, ui->sbxArconCurrent,
                 ui->lbl_arconCurrentUnit, ui->sbxArconVoltage, ui->lbl_arconVoltageUnit,
                 ui->wgt_arconAdvancedParam, ui->btn_arconFold, ui->btnArcOnSave,
                 ui->btnArcOnCancel, tr("Fold ArcOn Advanced Parameter"),
                 tr("Unfold ArcOn Advanced Parameter")},
                schema::arcOn());
}

ArconGroup::~ArconGroup() = default;

void ArconGroup::bindFields(FieldTable &f)
{
    const auto &set = schema::arcOn();
    f.bind(set.holdTime, ui->sbxArconTime).unit(ui->lblArconTimeUnit);
    f.bind(set.detectTime, ui->sbxArconDetectTime).unit(ui->lblArconDetectTimeUnit);
    f.bind(set.confirmTime, ui->sbxArconConfirmTime).unit(ui->lblArconConfirmTimeUnit);
    f.bind(set.preflowTime, ui->sbxFlowLeadTime).unit(ui->lblFlowLeadTimeUnit);
    f.bind(set.prearcTime, ui->sbxArconLeadTime).unit(ui->lblArconLeadTimeUnit);
    f.bind(set.slowWireFeedSpeed, ui->sbxSlowWireFeedSpeed).unit(ui->lblSlowWireFeedSpeedUnit);
    f.bind(set.preWirefeedTime, ui->sbxWireoutLeadTime).unit(ui->lblWireoutLeadTimeUnit);
    f.bind(set.rampTime, ui->sbxArconRampTime).unit(ui->lblArconRampTimeUnit);
    f.bind(set.reArcon, ui->cbxReArconSwitch);
    f.bind(set.retries, ui->sbxRetryTimes);
    f.bind(set.retractDelay, ui->sbxRetryWaitTime).unit(ui->lblRetryWaitTimeUnit);
    f.bind(set.retractTime, ui->sbxRetryTime).unit(ui->lblRetryTimeUnit);
    f.bind(set.currentStep, ui->sbxRetryCurrentIncrement);
    f.bind(set.voltageStep, ui->sbxRetryVoltageIncrement);
    f.bind(set.scratchArcon, ui->cbx_moveArcon);
    f.bind(set.scratchDistance, ui->sbxMoveDistance).unit(ui->lblMoveDistanceUnit);
    f.bind(set.scratchBackSpeed, ui->sbxReturnSpeed).unit(ui->lblReturnSpeedUnit);
    f.bind(set.scratchStep, ui->sbxStepDis).unit(ui->lblStepDisUnit);
    f.bind(set.scratchOffset, ui->sbxRetryOffset).unit(ui->lblRetryOffsetUnit);
}

void ArconGroup::initConnect()
{
    // Stored from their boxes like all values, but not offered to the operator.
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
    const int time = ui->sbxArconLeadTime->value();
    if (time > 0)
        ui->cbx_moveArcon->setCurrentIndex(ui->cbx_moveArcon->findData(false));
    for (QWidget *widget : std::initializer_list<QWidget *>{
             ui->lbl_moveArcon, ui->cbx_moveArcon, ui->lbl_moveDistance, ui->sbxMoveDistance,
             ui->lblMoveDistanceUnit, ui->lbl_returnSpeed, ui->sbxReturnSpeed,
             ui->lblReturnSpeedUnit, ui->lbl_stepDis, ui->sbxStepDis, ui->lblStepDisUnit})
        widget->setEnabled(time < 1);
}

} // namespace welmo
