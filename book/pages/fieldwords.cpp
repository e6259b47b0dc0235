#include "book/pages/fieldwords.h"

#include <QHash>
#include <algorithm>

#include "book/keeper/filewatch.h"
#include "book/records/filecontent.h"
#include "schema/filesets.h"

namespace welmo::book {

namespace {

struct Title
{
    const char *key;
    const char *text;
};

constexpr char context[] = "welmo::book::FieldWords";

constexpr Title titles[] = {
    {"annotation", QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Annotation")},
    {"mode", QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Work mode")},
    {"current_mode", QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Current mode")},
    {"voltage_mode", QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Voltage mode")},
    {"current", QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Current")},
    {"voltage", QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Voltage")},
    {"hold_time", QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Hold time")},
    {"detect_time", QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Detection time")},
    {"confirm_time", QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Confirmation time")},
    {"preflow_time", QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Gas pre-flow time")},
    {"prearc_time", QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Pre-arc time")},
    {"slow_wire_feed_speed", QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Slow wire feed")},
    {"pre_wirefeed_time", QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Early wire feed")},
    {"ramp_time", QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Ramp time")},
    {"re_arcon.enable", QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Strike again")},
    {"re_arcon.retry_time", QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Strike again: attempts")},
    {"re_arcon.wire_retract_delay_time",
     QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Strike again: retract delay")},
    {"re_arcon.wire_retract_time",
     QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Strike again: retract time")},
    {"re_arcon.current_step",
     QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Strike again: current step")},
    {"re_arcon.voltage_step",
     QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Strike again: voltage step")},
    {"re_arcon.scratch_on_failure",
     QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Scratch on failure")},
    {"scratch_arcon.enable", QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Scratch start")},
    {"scratch_arcon.distance",
     QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Scratch start: distance")},
    {"scratch_arcon.back_speed",
     QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Scratch start: way back")},
    {"scratch_arcon.step", QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Scratch start: step")},
    {"scratch_arcon.offset", QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Scratch start: offset")},
    {"weld_speed", QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Welding speed")},
    {"arc_break_param.detect_time",
     QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Arc break: detection time")},
    {"arc_break_param.arc_break_option",
     QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Arc break: what follows")},
    {"arc_break_param.restart_back_distance",
     QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Arc break: way back")},
    {"delay_gasoff_time", QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Gas post-flow time")},
    {"retract_time", QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Retract time")},
    {"wire_stick_detection_time",
     QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Stuck wire: detection time")},
    {"anti_wire_stick_param.enable", QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Anti-stick")},
    {"anti_wire_stick_param.current",
     QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Anti-stick: current")},
    {"anti_wire_stick_param.voltage",
     QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Anti-stick: voltage")},
    {"anti_wire_stick_param.time",
     QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Anti-stick: time")},
    {"weaving_reference", QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Weaving by")},
    {"pattern", QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Pattern")},
    {"weave_length_frequency",
     QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Weave length or frequency")},
    {"amplitude.left", QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Amplitude, left")},
    {"amplitude.right", QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Amplitude, right")},
    {"dwell_type", QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Dwell type")},
    {"dwell_time", QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Dwell")},
    {"radius", QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Radius")},
    {"phase_invert", QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Direction of the waveform")},
    {"elevation_type", QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Elevation type")},
    {"elevation_angle.left", QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Elevation, left")},
    {"elevation_angle.right", QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Elevation, right")},
    {"inclination_angle", QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Inclination")},
    {"seg_type", QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Segment type")},
    {"non_welded_speed", QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Speed between welds")},
    {"welded_distance", QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Welded distance")},
    {"non_welded_distance", QT_TRANSLATE_NOOP("welmo::book::FieldWords", "Distance between welds")},
};

const schema::Row *rowOf(const schema::FileSet &set, const QString &key)
{
    const auto &rows = set.rows();
    const auto found = std::find_if(rows.begin(), rows.end(), [&](const schema::Row *row) {
        return key == QLatin1String(row->key)
            || (row->twinKey() && key == QLatin1String(row->twinKey()));
    });
    return found == rows.end() ? nullptr : *found;
}

QString unitOf(const schema::Row &row, const QVariantMap &content)
{
    const auto is = [&](const char *key, const char *code) {
        return content.value(QLatin1String(key)).toString() == QLatin1String(code);
    };
    switch (row.unit) {
    case schema::Unit::ByCurrentMode:
        return is("current_mode", schema::codes::wireFeed) ? units::mmPerSecond : units::ampere;
    case schema::Unit::ByVoltageMode:
        return is("voltage_mode", schema::codes::separate) ? units::volt : units::percent;
    case schema::Unit::ByReference:
        return is("weaving_reference", schema::codes::length) ? units::mm : units::hertz;
    case schema::Unit::ByReferenceAndDwell:
        return is("weaving_reference", schema::codes::length) ? units::mm : units::ms;
    default:
        return schema::symbol(row.unit);
    }
}

QString plain(const QVariant &value)
{
    if (value.userType() == QMetaType::QVariantList) {
        QStringList parts;
        for (const QVariant &part : value.toList())
            parts.append(plain(part));
        return parts.join(QStringLiteral(" / "));
    }
    return value.userType() == QMetaType::Double ? QString::number(value.toDouble(), 'g', 6)
                                                 : value.toString();
}

} // namespace

QString FieldWords::set(const schema::FileSet &set)
{
    const QHash<QString, QString> words{{schema::arcOn().name, tr("Arc start")},
                                        {schema::weld().name, tr("Welding")},
                                        {schema::arcOff().name, tr("Arc end")},
                                        {schema::weave().name, tr("Weaving")},
                                        {schema::seg().name, tr("Segments")}};
    return words.value(set.name, set.name);
}

QString FieldWords::title(const QString &key)
{
    const auto *found = std::find_if(std::begin(titles), std::end(titles), [&](const Title &title) {
        return key == QLatin1String(title.key);
    });
    return found == std::end(titles) ? key : QCoreApplication::translate(context, found->text);
}

QString FieldWords::value(const schema::FileSet &set, const QString &key, const QVariant &value,
                          const QVariant &content)
{
    const schema::Row *row = rowOf(set, key);
    if (!value.isValid())
        return QStringLiteral("–");
    if (const auto *choice = dynamic_cast<const schema::ChoiceRow *>(row)) {
        for (const auto &one : choice->table.choices()) {
            if (one.code == value)
                return one.shown();
        }
    }
    const QString unit = row ? unitOf(*row, content.toMap()) : QString();
    return unit.isEmpty() ? plain(value) : plain(value) + QLatin1Char(' ') + unit;
}

QString FieldWords::changes(const schema::FileSet &set, const QVariant &before,
                            const QVariant &after)
{
    QStringList parts;
    for (const Difference &one : differences(before, after))
        parts.append(QStringLiteral("%1: %2 → %3")
                         .arg(title(one.key), value(set, one.key, one.before, before),
                              value(set, one.key, one.after, after)));
    return parts.join(QStringLiteral("; "));
}

QString FieldWords::place(const CellChange &change)
{
    const QHash<QString, QString> words{{names::runningParam, tr("Running parameters")},
                                        {names::anticollisionParam, tr("Anti-collision")},
                                        {names::clampingTorchParam, tr("Wire-clamping torch")},
                                        {names::toolPage, tr("Tool and work object")}};
    const QHash<QString, QString> lists{{QStringLiteral("point"), tr("Points")},
                                        {QStringLiteral("tool"), tr("Tools")},
                                        {QStringLiteral("wobj"), tr("Work objects")},
                                        {QStringLiteral("user_frame"), tr("User frames")},
                                        {QStringLiteral("var"), tr("Variables")}};
    if (change.node.isEmpty())
        return tr("Limits of %1").arg(change.key);
    if (change.node == names::released)
        return tr("Release of %1").arg(change.key);
    return change.node == names::project
        ? lists.value(change.key.section(QLatin1Char('.'), 0, 0), change.key)
        : words.value(change.node, change.key);
}

QString FieldWords::changes(const RestoreItem &item)
{
    const schema::FileSet *set = schema::setOfFile(item.change.key);
    if (!item.now.isValid())
        return tr("is not there");
    if (item.change.value.userType() == QMetaType::QVariantList)
        return tr("%1 items differ")
            .arg(differingItems(item.now.toList(), item.change.value.toList()));
    if (set && item.change.node == set->node())
        return changes(*set, item.now, item.change.value);
    return tr("%1 values differ").arg(differences(item.now, item.change.value).size());
}

QString FieldWords::mainValues(const schema::FileSet &set, const QVariant &content)
{
    static const QStringList told{QStringLiteral("pattern"),
                                  QStringLiteral("current"),
                                  QStringLiteral("voltage"),
                                  QStringLiteral("weld_speed"),
                                  QStringLiteral("weave_length_frequency"),
                                  QStringLiteral("amplitude.left"),
                                  QStringLiteral("welded_distance"),
                                  QStringLiteral("non_welded_distance")};
    const QVariantMap all = flattened(content);
    QStringList values;
    for (const QString &key : told) {
        if (all.contains(key))
            values.append(value(set, key, all.value(key), content));
    }
    return values.join(QStringLiteral("  "));
}

} // namespace welmo::book
