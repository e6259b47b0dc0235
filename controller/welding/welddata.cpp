#include "controller/welding/welddata.h"

#include "controller/core/fields.h"

namespace welmo::controller {

namespace {

/// Reads a file's values by their keys; a missing one is 0.
class File
{
public:
    explicit File(const QVariantMap &map)
        : m_map(map)
    { }

    QVariant at(const char *key) const { return childAt(m_map, QString::fromLatin1(key)); }
    int whole(const char *key) const { return at(key).toInt(); }
    double real(const char *key) const { return at(key).toDouble(); }
    bool flag(const char *key) const { return at(key).toBool(); }
    bool says(const char *key, const char *word) const
    {
        return at(key).toString() == QLatin1String(word);
    }

private:
    const QVariantMap &m_map;
};

// For steel wire of 1.2 mm: 33 A melt a metre a minute, and this voltage suits the current.
constexpr double amperesPerSpeed = 33;
constexpr double arcVoltage = 14;
constexpr double voltsPerAmpere = 0.05;
constexpr double toMetresAMinute = 0.06; // from mm/s

double currentOf(const File &file, double value)
{
    return file.says("current_mode", "wire_feed") ? amperesPerSpeed * toMetresAMinute * value
                                                  : value;
}

double suitableVoltage(double current)
{
    return arcVoltage + voltsPerAmpere * current;
}

double voltageOf(const File &file, double percentOrVolts, double current)
{
    if (file.says("voltage_mode", "separate"))
        return percentOrVolts;
    constexpr double trim = 0.25;
    return suitableVoltage(current) * (1.0 + trim * (percentOrVolts - 100.0) / 100.0);
}

ArcWeld::WhenBroken breakOption(const File &file)
{
    constexpr char key[] = "arc_break_param.arc_break_option";
    if (file.says(key, "stop_and_alarm"))
        return ArcWeld::WhenBroken::StopAndAlarm;
    return file.says(key, "auto_arc_reignition") ? ArcWeld::WhenBroken::Reignite
                                                 : ArcWeld::WhenBroken::ContinueRunning;
}

} // namespace

Setpoint setpointOf(const QVariantMap &file)
{
    const File values(file);
    const double current = currentOf(values, values.real("current"));
    return {current, voltageOf(values, values.real("voltage"), current)};
}

double wireSpeedAt(double current)
{
    return current / amperesPerSpeed;
}

ArcStart ArcStart::from(const QVariantMap &file)
{
    const File values(file);
    ArcStart data;
    data.setpoint = setpointOf(file);
    data.preFlow = values.whole("preflow_time");
    data.lead = values.whole("prearc_time") + values.whole("pre_wirefeed_time");
    data.slowWireSpeed = values.real("slow_wire_feed_speed");
    data.detect = values.whole("detect_time");
    data.stay = values.whole("confirm_time") + values.whole("hold_time");
    data.ramp = values.whole("ramp_time");
    if (values.flag("re_arcon.enable"))
        data.retries = values.whole("re_arcon.retry_time"); // a number, whatever the key says
    data.retractDelay = values.whole("re_arcon.wire_retract_delay_time");
    data.retract = values.whole("re_arcon.wire_retract_time");
    data.currentStep = currentOf(values, values.real("re_arcon.current_step"));
    const double current = data.setpoint.current;
    const double step = values.real("re_arcon.voltage_step");
    data.voltageStep = voltageOf(values, step, current) - voltageOf(values, 0, current);
    return data;
}

ArcWeld ArcWeld::from(const QVariantMap &file)
{
    const File values(file);
    ArcWeld data;
    data.setpoint = setpointOf(file);
    data.speed = values.real("weld_speed");
    data.ramp = values.whole("ramp_time");
    data.breakDetect = values.whole("arc_break_param.detect_time");
    data.whenBroken = breakOption(values);
    data.backDistance = values.real("arc_break_param.restart_back_distance");
    return data;
}

ArcEnd ArcEnd::from(const QVariantMap &file)
{
    const File values(file);
    ArcEnd data;
    data.setpoint = setpointOf(file);
    data.hold = values.whole("hold_time");
    data.postFlow = values.whole("delay_gasoff_time");
    data.stickDetect = values.whole("wire_stick_detection_time");
    data.antiStick = values.flag("anti_wire_stick_param.enable");
    const double current = values.real("anti_wire_stick_param.current");
    const double voltage = values.real("anti_wire_stick_param.voltage");
    data.antiStickSetpoint = {current, voltageOf(values, voltage, current)};
    data.antiStickTime = values.whole("anti_wire_stick_param.time");
    return data;
}

} // namespace welmo::controller
