#include "controller/files/fileset.h"

#include <limits>

#include "schema/names.h"

namespace welmo::controller {

namespace {

constexpr double maxCurrent = 5000; // ampere, or the wire's speed
constexpr double maxVoltage = 10000; // volt or percent
constexpr int maxTime = 1000000; // milliseconds
constexpr int maxSpeed = 100000; // mm/s
constexpr int maxLength = 100000; // mm
constexpr double maxWireSpeed = 100; // m/min
constexpr double maxAngle = 360; // degrees
constexpr double maxDouble = std::numeric_limits<double>::max();

Fields arcOnFields()
{
    return {
        text("name"),
        text("annotation"),
        text("mode"),
        text("current_mode"),
        text("voltage_mode"),
        number("current", 0, maxCurrent),
        number("voltage", 0, maxVoltage),
        integer("hold_time", 0, maxTime),
        integer("detect_time", 0, maxTime),
        integer("confirm_time", 0, maxTime),
        integer("preflow_time", 0, maxTime),
        integer("prearc_time", 0, maxTime),
        number("slow_wire_feed_speed", 0, maxWireSpeed),
        integer("pre_wirefeed_time", 0, maxTime),
        integer("ramp_time", 0, maxTime),
        boolean("re_arcon.enable"),
        integer("re_arcon.retry_time", 0, 1000),
        integer("re_arcon.wire_retract_delay_time", 0, maxTime),
        integer("re_arcon.wire_retract_time", 0, maxTime),
        number("re_arcon.current_step", 0, maxCurrent),
        number("re_arcon.voltage_step", 0, maxVoltage),
        boolean("re_arcon.scratch_on_failure"),
        boolean("scratch_arcon.enable"),
        integer("scratch_arcon.distance", 0, maxLength),
        integer("scratch_arcon.back_speed", 0, maxSpeed),
        integer("scratch_arcon.step", 0, maxLength),
        integer("scratch_arcon.offset", 0, maxLength),
    };
}

Fields weldFields()
{
    return {
        text("name"),
        text("annotation"),
        text("mode"),
        text("current_mode"),
        text("voltage_mode"),
        number("current", 0, maxCurrent),
        number("voltage", 0, maxVoltage),
        integer("weld_speed", 0, maxSpeed),
        integer("ramp_time", 0, maxTime),
        integer("arc_break_param.detect_time", 0, maxTime),
        text("arc_break_param.arc_break_option"),
        integer("arc_break_param.restart_back_distance", 0, maxLength),
    };
}

Fields arcOffFields()
{
    return {
        text("name"),
        text("annotation"),
        text("mode"),
        text("current_mode"),
        text("voltage_mode"),
        number("current", 0, maxCurrent),
        number("voltage", 0, maxVoltage),
        integer("hold_time", 0, maxTime),
        integer("delay_gasoff_time", 0, maxTime),
        integer("detect_time", 0, maxTime),
        integer("retract_time", 0, maxTime),
        integer("wire_stick_detection_time", 0, maxTime),
        boolean("anti_wire_stick_param.enable"),
        number("anti_wire_stick_param.current", 0, maxCurrent),
        number("anti_wire_stick_param.voltage", 0, maxVoltage),
        integer("anti_wire_stick_param.time", 0, maxTime),
    };
}

Fields weaveFields()
{
    return {
        text("name"),
        text("annotation"),
        text("weaving_reference"),
        text("pattern"),
        number("weave_length_frequency", 0, maxLength),
        number("amplitude.left", 0, maxLength),
        number("amplitude.right", 0, maxLength),
        text("dwell_type"),
        threeIntegers("dwell_time", 0, maxTime),
        number("radius", 0, maxLength),
        boolean("phase_invert"),
        text("elevation_type"),
        number("elevation_angle.left", -maxAngle, maxAngle),
        number("elevation_angle.right", -maxAngle, maxAngle),
        number("inclination_angle", -maxAngle, maxAngle),
    };
}

Fields segmentFields()
{
    return {
        text("name"),
        text("annotation"),
        text("seg_type"),
        text("non_welded_speed"),
        number("welded_distance", 0, maxDouble),
        number("non_welded_distance", 0, maxDouble),
    };
}

} // namespace

QString FileSet::path() const
{
    return names::arcWeldPrefix + name;
}

bool FileSet::hasFile(const QString &file) const
{
    const QString digits = file.mid(prefix.size());
    const int count = digits.toInt();
    return file.startsWith(prefix) && count >= 1 && count <= fileCount
        && digits == QString::number(count);
}

const std::vector<FileSet> &fileSets()
{
    static const std::vector<FileSet> sets = {
        {QStringLiteral("arcon_param"), QStringLiteral("arcondata"), true, arcOnFields()},
        {QStringLiteral("weld_param"), QStringLiteral("arcdata"), true, weldFields()},
        {QStringLiteral("arcoff_param"), QStringLiteral("arcoffdata"), true, arcOffFields()},
        {QStringLiteral("weave_param"), QStringLiteral("weavedata"), false, weaveFields()},
        {QStringLiteral("seg_param"), QStringLiteral("segdata"), false, segmentFields()},
    };
    return sets;
}

const FileSet &arcOnSet()
{
    return fileSets().at(0);
}

const FileSet &weldSet()
{
    return fileSets().at(1);
}

const FileSet &arcOffSet()
{
    return fileSets().at(2);
}

const FileSet &weaveSet()
{
    return fileSets().at(3);
}

} // namespace welmo::controller
