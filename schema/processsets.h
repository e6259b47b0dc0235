#pragma once

#include "schema/fileset.h"

namespace welmo::schema {

/// What arc-start, welding and arc-end files have in common.
class ProcessSet : public FileSet
{
public:
    ProcessSet(const QString &setName, const QString &filePrefix, double maximumVoltage)
        : FileSet(QStringLiteral("process_setting"), setName, filePrefix, Removal::Offered)
        , voltage(*this, "voltage", 0, {0, maximumVoltage}, Unit::ByVoltageMode)
    { }

    ChoiceRow mode{*this, "mode", choices::workModes(), codes::flatCharacteristic};
    ChoiceRow currentMode{*this, "current_mode", choices::currentModes(), codes::current};
    ChoiceRow voltageMode{*this, "voltage_mode", choices::voltageModes(), codes::unified};
    RealRow current{*this, "current", 0, {0, 2000}, Unit::ByCurrentMode};
    RealRow voltage; ///< range until the welder has told its own limits
};

class ArcOnSet : public ProcessSet
{
public:
    ArcOnSet();

    IntegerRow holdTime{*this, "hold_time", 200, {0, 10000}, Unit::Millisecond};
    IntegerRow detectTime{*this, "detect_time", 2000, {0, 10000}, Unit::Millisecond};
    IntegerRow confirmTime{*this, "confirm_time", 200, {0, 10000}, Unit::Millisecond};
    IntegerRow preflowTime{*this, "preflow_time", 200, {1, 10000}, Unit::Millisecond};
    IntegerRow prearcTime{*this, "prearc_time", 200, {0, 10000}, Unit::Millisecond};
    RealRow slowWireFeedSpeed{*this, "slow_wire_feed_speed", 1, {1, 21}, Unit::MetrePerMinute};
    IntegerRow preWirefeedTime{*this, "pre_wirefeed_time", 200, {0, 10000}, Unit::Millisecond};
    IntegerRow rampTime{*this, "ramp_time", 200, {1, 10000}, Unit::Millisecond};

    ChoiceRow reArcon{*this, "re_arcon.enable", choices::switches(), false};
    /// The number of attempts, although the controller's key says "time".
    IntegerRow retries{*this, "re_arcon.retry_time", 3, {1, 20}};
    IntegerRow retractDelay{
        *this, "re_arcon.wire_retract_delay_time", 50, {0, 10000}, Unit::Millisecond};
    IntegerRow retractTime{*this, "re_arcon.wire_retract_time", 200, {0, 10000}, Unit::Millisecond};
    RealRow currentStep{*this, "re_arcon.current_step", 0, {0, 50}, Unit::ByCurrentMode};
    RealRow voltageStep{*this, "re_arcon.voltage_step", 0, {0, 10}, Unit::ByVoltageMode};
    DefaultOnlyRow scratchOnFailure{*this, "re_arcon.scratch_on_failure", false};

    ChoiceRow scratchArcon{*this, "scratch_arcon.enable", choices::switches(), false};
    IntegerRow scratchDistance{*this, "scratch_arcon.distance", 20, {0, 500}, Unit::Millimetre};
    IntegerRow scratchBackSpeed{
        *this, "scratch_arcon.back_speed", 50, {0, 10000}, Unit::MillimetrePerSecond};
    IntegerRow scratchStep{*this, "scratch_arcon.step", 5, {0, 500}, Unit::Millimetre};
    IntegerRow scratchOffset{*this, "scratch_arcon.offset", 0, {0, 10}, Unit::Millimetre};
};

class WeldSet : public ProcessSet
{
public:
    WeldSet();

    IntegerRow weldSpeed{*this, "weld_speed", 10, {0, 10000}, Unit::MillimetrePerSecond};
    IntegerRow rampTime{*this, "ramp_time", 200, {1, 10000}, Unit::Millisecond};
    IntegerRow breakDetectTime{
        *this, "arc_break_param.detect_time", 500, {0, 10000}, Unit::Millisecond};
    ChoiceRow arcBreakOption{*this, "arc_break_param.arc_break_option", choices::arcBreakOptions(),
                             codes::continueRunning};
    IntegerRow restartBackDistance{
        *this, "arc_break_param.restart_back_distance", 10, {0, 100}, Unit::Millimetre};
};

class ArcOffSet : public ProcessSet
{
public:
    ArcOffSet();

    IntegerRow holdTime{*this, "hold_time", 500, {0, 10000}, Unit::Millisecond};
    IntegerRow delayGasoffTime{*this, "delay_gasoff_time", 200, {0, 10000}, Unit::Millisecond};
    IntegerRow detectTime{*this, "detect_time", 5000, {0, 10000}, Unit::Millisecond};
    IntegerRow retractTime{*this, "retract_time", 100, {0, 10000}, Unit::Millisecond};
    IntegerRow wireStickDetectionTime{
        *this, "wire_stick_detection_time", 500, {0, 10000}, Unit::Millisecond};
    ChoiceRow antiStick{*this, "anti_wire_stick_param.enable", choices::switches(), false};
    RealRow antiStickCurrent{
        *this, "anti_wire_stick_param.current", 30, {0, 100}, Unit::Ampere, readAsInteger};
    RealRow antiStickVoltage{
        *this, "anti_wire_stick_param.voltage", 10, {0, 50}, Unit::ByVoltageMode, readAsInteger};
    IntegerRow antiStickTime{
        *this, "anti_wire_stick_param.time", 500, {0, 10000}, Unit::Millisecond};
};

const ArcOnSet &arcOn();
const WeldSet &weld();
const ArcOffSet &arcOff();

} // namespace welmo::schema
