#include "settings/arcoffgroup.h"

#include "ui_arcoffgroup.h"

namespace welmo {

ArcoffGroup::ArcoffGroup(QWidget *parent)
    : ProcessGroup(parent)
    , ui(std::make_unique<Ui::ArcoffGroup>())
{
    ui->setupUi(this);
    setControls({ui->cbx_arcoffParamFileNumber, ui->ledt_arcoffAnnotaion, ui->lbl_arcoffWorkMode,
                 ui->cbx_arcoffWorkMode, ui->lbl_arcoffCurrentMode, ui->cbx_arcoffCurrentMode,
                 ui->lbl_arcoffVoltageMode, ui->cbx_arcoffVoltageMode, ui->sbxArcoffCurrent,
                 ui->lbl_arcoffCurrentUnit, ui->sbxArcoffVoltage, ui->lbl_arcoffVoltageUnit,
                 ui->wgtArcoffAdvancedParam, ui->btn_arcoffFold, ui->btnArcOffSave,
                 ui->btnArcOffCancel, tr("Fold ArcOff Advanced Parameter"),
                 tr("Unfold ArcOff Advanced Parameter")},
                schema::arcOff());
}

ArcoffGroup::~ArcoffGroup() = default;

void ArcoffGroup::bindFields(FieldTable &f)
{
    const auto &set = schema::arcOff();
    f.bind(set.holdTime, ui->sbxArcoffTime).unit(ui->lblArcoffTimeUnit);
    f.bind(set.delayGasoffTime, ui->sbxStopGasDelayTime).unit(ui->lblStopGasDelayTimeUnit);
    f.bind(set.detectTime, ui->sbxArcoffDetectionTime).unit(ui->lblArcoffDetectionTimeUnit);
    f.bind(set.retractTime, ui->sbxArcoffWireInTime).unit(ui->lblArcoffWireInTimeUnit);
    f.bind(set.wireStickDetectionTime, ui->sbxStickyWireDetectionTime)
        .unit(ui->lblStickyWireDetectionTimeUnit);
    f.bind(set.antiStick, ui->cbxAntiStickFunctionSwitch);
    f.bind(set.antiStickCurrent, ui->sbxAntiStickCurrent).unit(ui->lblAntiStickCurrentUnit);
    f.bind(set.antiStickVoltage, ui->sbxAntiStickVoltage);
    f.bind(set.antiStickTime, ui->sbxAntiStickTime).unit(ui->lblAntiStickTimeUnit);
}

void ArcoffGroup::voltageUnitChanged(const QString &unit)
{
    ui->lblAntiStickVoltageUnit->setText(unit);
}

void ArcoffGroup::handleSwitchVoltageMode(int mode)
{
    // The base clamps to the general range first; the arc-end range then stays.
    ProcessGroup::handleSwitchVoltageMode(mode);
    setVoltageRange(m_arcoffVoltageRanges, mode);
}

} // namespace welmo
