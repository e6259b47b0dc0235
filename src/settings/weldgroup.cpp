#include "settings/weldgroup.h"

#include "data/choices.h"
#include "ui_weldgroup.h"

namespace welmo {

WeldGroup::WeldGroup(QWidget *parent)
    : ProcessGroup(parent)
    , ui(std::make_unique<Ui::WeldGroup>())
{
    ui->setupUi(this);
    setControls({ui->cbx_weldingParamFileNumber, ui->ledt_weldAnnotaion, ui->lbl_weldWorkMode,
                 ui->cbx_weldWorkMode, ui->lbl_weldCurrentMode, ui->cbx_weldCurrentMode,
                 ui->lbl_weldVoltageMode, ui->cbx_weldVoltageMode, ui->sbxWeldCurrent,
                 ui->lbl_weldCurrentUnit, ui->sbxWeldVoltage, ui->lbl_weldVoltageUnit,
                 ui->wgt_weldAdvancedParam, ui->btn_weldFold, ui->btnWeldingSave,
                 ui->btnWeldingCancel, tr("Fold Weld Advanced Parameter"),
                 tr("Unfold Weld Advanced Parameter")},
                schema::weld());
}

WeldGroup::~WeldGroup() = default;

QPushButton *WeldGroup::enableButton() const
{
    return ui->btnWeldingEnable;
}

void WeldGroup::bindFields(FieldTable &f)
{
    const auto &set = schema::weld();
    f.bind(set.weldSpeed, ui->sbxWeldSpeed).unit(ui->lblWeldSpeedUnit);
    f.bind(set.rampTime, ui->sbxWeldRampTime).unit(ui->lblWeldRampTimeUnit);
    f.bind(set.breakDetectTime, ui->sbxArcBreakDetectionTime)
        .unit(ui->lblArcBreakDetectionTimeUnit);
    f.bind(set.arcBreakOption, ui->cbxArcBreakOption);
    f.bind(set.restartBackDistance, ui->sbxReStartBackDistance)
        .unit(ui->lblReStartBackDistanceUnit);
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
    const auto is = [&](const char *code) {
        return choices::isItem(ui->cbxArcBreakOption, index, code);
    };
    const bool restarts = is(schema::codes::stopAndAlarm) || is(schema::codes::autoArcReignition);
    if (!restarts && !is(schema::codes::continueRunning))
        return;
    for (QWidget *widget :
         std::initializer_list<QWidget *>{ui->lbl_reStartBackDistance, ui->sbxReStartBackDistance,
                                          ui->lblReStartBackDistanceUnit})
        widget->setVisible(restarts);
}

} // namespace welmo
