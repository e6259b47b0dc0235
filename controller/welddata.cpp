#include "controller/welddata.h"

#include "controller/fields.h"

namespace controller {

namespace {

/// Reads a file's values by their keys; what is not there is 0.
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

// A common steel wire of 1.2 mm: 33 A melt a metre a minute, and this many volts suit the current.
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

Setpoint setpointOf(const QVariantMap &map)
{
    const File file(map);
    const double current = currentOf(file, file.real("current"));
    return {current, voltageOf(file, file.real("voltage"), current)};
}

double wireSpeedAt(double current)
{
    return current / amperesPerSpeed;
}

ArcStart ArcStart::from(const QVariantMap &map)
{
    const File file(map);
    ArcStart data;
    data.setpoint = setpointOf(map);
    data.preFlow = file.whole("preflow_time");
    data.lead = file.whole("prearc_time") + file.whole("pre_wirefeed_time");
    data.slowWireSpeed = file.real("slow_wire_feed_speed");
    data.detect = file.whole("detect_time");
    data.stay = file.whole("confirm_time") + file.whole("hold_time");
    data.ramp = file.whole("ramp_time");
    if (file.flag("re_arcon.enable"))
        data.retries = file.whole("re_arcon.retry_time"); // a number, whatever the key says
    data.retractDelay = file.whole("re_arcon.wire_retract_delay_time");
    data.retract = file.whole("re_arcon.wire_retract_time");
    data.currentStep = currentOf(file, file.real("re_arcon.current_step"));
    const double current = data.setpoint.current;
    const double step = file.real("re_arcon.voltage_step");
    data.voltageStep = voltageOf(file, step, current) - voltageOf(file, 0, current);
    return data;
}

ArcWeld ArcWeld::from(const QVariantMap &map)
{
    const File file(map);
    ArcWeld data;
    data.setpoint = setpointOf(map);
    data.speed = file.real("weld_speed");
    data.ramp = file.whole("ramp_time");
    data.breakDetect = file.whole("arc_break_param.detect_time");
    data.whenBroken = breakOption(file);
    data.backDistance = file.real("arc_break_param.restart_back_distance");
    return data;
}

ArcEnd ArcEnd::from(const QVariantMap &map)
{
    const File file(map);
    ArcEnd data;
    data.setpoint = setpointOf(map);
    data.hold = file.whole("hold_time");
    data.postFlow = file.whole("delay_gasoff_time");
    data.stickDetect = file.whole("wire_stick_detection_time");
    data.antiStick = file.flag("anti_wire_stick_param.enable");
    const double current = file.real("anti_wire_stick_param.current");
    const double voltage = file.real("anti_wire_stick_param.voltage");
    data.antiStickSetpoint = {current, voltageOf(file, voltage, current)};
    data.antiStickTime = file.whole("anti_wire_stick_param.time");
    return data;
}

} // namespace controller
