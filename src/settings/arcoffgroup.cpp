#include "settings/arcoffgroup.h"

#include "data/units.h"
#include "ui_arcoffgroup.h"

using namespace welmo;

ArcoffGroup::ArcoffGroup(QWidget *parent)
    : ProcessGroup(parent)
    , ui(std::make_unique<Ui::ArcoffGroup>())
{
    ui->setupUi(this);
    setControls({ui->cbx_arcoffParamFileNumber, ui->lbl_arcoffWorkMode, ui->cbx_arcoffWorkMode,
                 ui->lbl_arcoffCurrentMode, ui->cbx_arcoffCurrentMode, ui->lbl_arcoffVoltageMode,
                 ui->cbx_arcoffVoltageMode, ui->lbl_arcoffCurrentUnit, ui->sbxArcoffVoltage,
                 ui->lbl_arcoffVoltageUnit, ui->wgtArcoffAdvancedParam, ui->btn_arcoffFold,
                 ui->btnArcOffSave, ui->btnArcOffCancel, tr("Fold ArcOff Advanced Parameter"),
                 tr("Unfold ArcOff Advanced Parameter")},
                sets::arcoff());
}

ArcoffGroup::~ArcoffGroup() = default;

void ArcoffGroup::declareFields(FieldTable &f)
{
    f.fileName("name", ui->cbx_arcoffParamFileNumber);
    f.text("annotation", ui->ledt_arcoffAnnotaion);
    f.choice("mode", ui->cbx_arcoffWorkMode, choices::workModes(), "flat_characteristic");
    f.choice("current_mode", ui->cbx_arcoffCurrentMode, choices::currentModes(), "current");
    f.choice("voltage_mode", ui->cbx_arcoffVoltageMode, choices::voltageModes(), "unified");
    f.real("current", ui->sbxArcoffCurrent, {0, 2000}, 0);
    // Wider than the other two groups' 0 to 200, until the welder has told its own limits.
    f.real("voltage", ui->sbxArcoffVoltage, {0, 10000}, 0);
    f.integer("hold_time", ui->sbxArcoffTime, {0, 10000}, 500)
        .unit(ui->lblArcoffTimeUnit, units::ms);
    f.integer("delay_gasoff_time", ui->sbxStopGasDelayTime, {0, 10000}, 200)
        .unit(ui->lblStopGasDelayTimeUnit, units::ms);
    f.integer("detect_time", ui->sbxArcoffDetectionTime, {0, 10000}, 5000)
        .unit(ui->lblArcoffDetectionTimeUnit, units::ms);
    f.integer("retract_time", ui->sbxArcoffWireInTime, {0, 10000}, 100)
        .unit(ui->lblArcoffWireInTimeUnit, units::ms);
    f.integer("wire_stick_detection_time", ui->sbxStickyWireDetectionTime, {0, 10000}, 500)
        .unit(ui->lblStickyWireDetectionTimeUnit, units::ms);
    f.choice("anti_wire_stick_param.enable", ui->cbxAntiStickFunctionSwitch, choices::switches(),
             false);
    f.real("anti_wire_stick_param.current", ui->sbxAntiStickCurrent, {0, 100}, 30)
        .readAsInteger()
        .unit(ui->lblAntiStickCurrentUnit, units::ampere);
    f.real("anti_wire_stick_param.voltage", ui->sbxAntiStickVoltage, {0, 50}, 10).readAsInteger();
    f.integer("anti_wire_stick_param.time", ui->sbxAntiStickTime, {0, 10000}, 500)
        .unit(ui->lblAntiStickTimeUnit, units::ms);
}

void ArcoffGroup::voltageUnitChanged(const QString &unit)
{
    ui->lblAntiStickVoltageUnit->setText(unit);
}

void ArcoffGroup::handleSwitchVoltageMode(int mode)
{
    // The general range clamps once on the way; the arc-end range is the one that stays.
    setVoltageRange(m_voltageRanges, mode);
    setVoltageRange(m_arcoffVoltageRanges, mode);
}
