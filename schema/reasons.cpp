#include "schema/reasons.h"

#include <QCoreApplication>

namespace welmo::schema {

const QHash<QString, const char *> &reasonTexts()
{
    static const QHash<QString, const char *> table{
        {QStringLiteral("arc_lost"), QT_TRANSLATE_NOOP("Reasons", "arc lost at %1 mm")},
        {QStringLiteral("arc_restruck"),
         QT_TRANSLATE_NOOP("Reasons", "arc lost at %1 mm and struck again")},
        {QStringLiteral("wire_stuck"), QT_TRANSLATE_NOOP("Reasons", "the wire does not move")},
        {QStringLiteral("wire_sticks"),
         QT_TRANSLATE_NOOP("Reasons", "the wire sticks in the seam")},
        {QStringLiteral("wire_stopped"), QT_TRANSLATE_NOOP("Reasons", "wire or gas was stopped")},
        {QStringLiteral("no_gas"), QT_TRANSLATE_NOOP("Reasons", "no gas")},
        {QStringLiteral("no_arc"), QT_TRANSLATE_NOOP("Reasons", "the arc does not strike")},
        {QStringLiteral("no_arc_on"),
         QT_TRANSLATE_NOOP("Reasons", "no arc: the seam's ArcOn is line %1, and it did not run")},
        {QStringLiteral("no_current"),
         QT_TRANSLATE_NOOP("Reasons", "the file says 0 A, so there is no arc")},
        {QStringLiteral("welder_error"),
         QT_TRANSLATE_NOOP("Reasons", "the welder reports an error")},
        {QStringLiteral("welder_disabled"),
         QT_TRANSLATE_NOOP("Reasons", "the welder is not enabled")},
        {QStringLiteral("welder_not_connected"),
         QT_TRANSLATE_NOOP("Reasons", "the actual welding machine is not connected")},
        {QStringLiteral("line_ignored"),
         QT_TRANSLATE_NOOP("Reasons", "\"%1\" is unknown and was ignored")},
        {QStringLiteral("bad_arguments"),
         QT_TRANSLATE_NOOP("Reasons", "%1: the arguments are not right")},
        {QStringLiteral("no_file"), QT_TRANSLATE_NOOP("Reasons", "there is no file \"%1\"")},
        {QStringLiteral("no_item"), QT_TRANSLATE_NOOP("Reasons", "the project has no \"%2\" (%1)")},
        {QStringLiteral("no_point"), QT_TRANSLATE_NOOP("Reasons", "%1 is no point")},
        {QStringLiteral("out_of_reach"),
         QT_TRANSLATE_NOOP("Reasons", "the robot does not reach %1")},
        {QStringLiteral("no_power"), QT_TRANSLATE_NOOP("Reasons", "the power is off")},
        {QStringLiteral("cell_fault"), QT_TRANSLATE_NOOP("Reasons", "the cell is in a fault")},
        {QStringLiteral("automatic"),
         QT_TRANSLATE_NOOP("Reasons", "in automatic mode nobody moves the robot by hand")},
        {QStringLiteral("program_has_robot"),
         QT_TRANSLATE_NOOP("Reasons", "a program has the robot")},
        {QStringLiteral("robot_moves"), QT_TRANSLATE_NOOP("Reasons", "the robot moves already")},
        {QStringLiteral("unreachable"),
         QT_TRANSLATE_NOOP("Reasons", "the robot does not get there")},
        {QStringLiteral("jog_limit"),
         QT_TRANSLATE_NOOP("Reasons", "the robot gets no further in this direction")},
        {QStringLiteral("pendant_gone"),
         QT_TRANSLATE_NOOP("Reasons", "the pendant was gone for a second")},
        {QStringLiteral("nothing_before"),
         QT_TRANSLATE_NOOP("Reasons", "no line was carried out before")},
        {QStringLiteral("nothing_to_reweld"),
         QT_TRANSLATE_NOOP("Reasons", "no seam lacks its arc")},
        {QStringLiteral("pendant_lost"),
         QT_TRANSLATE_NOOP("Reasons", "the pendant was gone for a second, so the run was paused")},
        {QStringLiteral("storage_damaged"),
         QT_TRANSLATE_NOOP("Reasons", "stored data are damaged: %1")},
        {QStringLiteral("storage_failed"),
         QT_TRANSLATE_NOOP("Reasons", "the controller cannot keep data")},
        {QStringLiteral("trim_current"),
         QT_TRANSLATE_NOOP("Reasons", "%1: an operator may set a current of %3 to %4, not %2")},
        {QStringLiteral("trim_voltage"),
         QT_TRANSLATE_NOOP("Reasons", "%1: an operator may set a voltage of %3 to %4, not %2")},
        {QStringLiteral("trim_weld_speed"),
         QT_TRANSLATE_NOOP("Reasons", "%1: an operator may set a speed of %3 to %4, not %2")},
        {QStringLiteral("trim_locked"),
         QT_TRANSLATE_NOOP("Reasons", "%1 is released: an operator may not change \"%2\"")},
        {QStringLiteral("refused"), QT_TRANSLATE_NOOP("Reasons", "the controller refuses: %1")},
    };
    return table;
}

QString reasonText(const QString &code, const QVariantList &arguments)
{
    const char *source = reasonTexts().value(code);
    QString text = source ? QCoreApplication::translate("Reasons", source) : code;
    for (int i = 0; i < arguments.size(); ++i)
        text.replace(QStringLiteral("%%1").arg(i + 1), arguments.at(i).toString());
    return text;
}

QString codeText(int code)
{
    if (code < 0)
        return QCoreApplication::translate("Reasons", "the controller was not reached");
    switch (code) {
    case 7:
        return QCoreApplication::translate("Reasons", "not in its present state (7)");
    case 12:
        return QCoreApplication::translate("Reasons", "another pendant holds control (12)");
    case 13:
        return QCoreApplication::translate("Reasons", "the user may not do that (13)");
    default:
        return QCoreApplication::translate("Reasons", "code %1").arg(code);
    }
}

} // namespace welmo::schema
