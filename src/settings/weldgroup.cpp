#include "settings/weldgroup.h"

#include "data/units.h"
#include "ui_weldgroup.h"

using namespace welmo;

WeldGroup::WeldGroup(QWidget *parent)
    : ProcessGroup(parent)
    , ui(std::make_unique<Ui::WeldGroup>())
{
    ui->setupUi(this);
    setControls({ui->cbx_weldingParamFileNumber, ui->lbl_weldWorkMode, ui->cbx_weldWorkMode,
                 ui->lbl_weldCurrentMode, ui->cbx_weldCurrentMode, ui->lbl_weldVoltageMode,
                 ui->cbx_weldVoltageMode, ui->lbl_weldCurrentUnit, ui->sbxWeldVoltage,
                 ui->lbl_weldVoltageUnit, ui->wgt_weldAdvancedParam, ui->btn_weldFold,
                 ui->btnWeldingSave, ui->btnWeldingCancel, tr("Fold Weld Advanced Parameter"),
                 tr("Unfold Weld Advanced Parameter")},
                sets::weld());
}

WeldGroup::~WeldGroup() = default;

QPushButton *WeldGroup::enableButton() const
{
    return ui->btnWeldingEnable;
}

void WeldGroup::declareFields(FieldTable &f)
{
    f.fileName("name", ui->cbx_weldingParamFileNumber);
    f.text("annotation", ui->ledt_weldAnnotaion);
    f.choice("mode", ui->cbx_weldWorkMode, choices::workModes(), "flat_characteristic");
    f.choice("current_mode", ui->cbx_weldCurrentMode, choices::currentModes(), "current");
    f.choice("voltage_mode", ui->cbx_weldVoltageMode, choices::voltageModes(), "unified");
    f.real("current", ui->sbxWeldCurrent, {0, 2000}, 0);
    f.real("voltage", ui->sbxWeldVoltage, {0, 200}, 0);
    f.integer("weld_speed", ui->sbxWeldSpeed, {0, 10000}, 10)
        .unit(ui->lblWeldSpeedUnit, units::mmPerSecond);
    f.integer("ramp_time", ui->sbxWeldRampTime, {1, 10000}, 200)
        .unit(ui->lblWeldRampTimeUnit, units::ms);
    f.integer("arc_break_param.detect_time", ui->sbxArcBreakDetectionTime, {0, 10000}, 500)
        .unit(ui->lblArcBreakDetectionTimeUnit, units::ms);
    f.choice("arc_break_param.arc_break_option", ui->cbxArcBreakOption, choices::arcBreakOptions(),
             "continue_running");
    f.integer("arc_break_param.restart_back_distance", ui->sbxReStartBackDistance, {0, 100}, 10)
        .unit(ui->lblReStartBackDistanceUnit, units::mm);
}

void WeldGroup::initConnect()
{
    ui->btnWeldingEnable->hide();
    connect(ui->cbxArcBreakOption, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &WeldGroup::onArcBreakOptionChanged);
}

void WeldGroup::applyRules()
{
    onArcBreakOptionChanged(ui->cbxArcBreakOption->currentIndex());
}

void WeldGroup::onArcBreakOptionChanged(int index)
{
    constexpr int continueRunning = 0;
    if (index < 0)
        return;
    for (QWidget *widget :
         std::initializer_list<QWidget *>{ui->lbl_reStartBackDistance, ui->sbxReStartBackDistance,
                                          ui->lblReStartBackDistanceUnit})
        widget->setVisible(index != continueRunning);
}
