#pragma once

#include <Eigen/Geometry>
#include <functional>

#include "controller/core/fields.h"
#include "controllerfixture.h"

using Eigen::Vector3d;
using Event = welmo::controller::Journal::Event;
using Fault = welmo::controller::Faults::Fault;

inline const Vector3d p1(800, -200, 500);
inline const Vector3d p3(800, -200, 200);
inline const Vector3d p4(800, 200, 200);

inline const QStringList seam{"MoveL p3,v1000,fine,torch1,wobj0",
                              "ArcOn \"arcondata1\",\"arcdata1\"",
                              "WMoveL Offs(p3,0,100,0),v50,fine,torch1", "ArcOff \"arcoffdata1\""};

/// A controller that can run programs: the welder is enabled, their files are there, and the robot
/// is at p1.
struct ProgramFixture : ControllerFixture
{
    ProgramFixture()
    {
        run("arc_weld.set_welder", welder("RL/RPL", 350, true));
        save("arcon_param", arcOn());
        save("weld_param", weld());
        save("arcoff_param", arcOff());
        run("motion.move.to_point", target(p1));
        pass(10000);
    }

    static QVariantMap arcOn()
    {
        return {{"name", "arcondata1"}, {"voltage_mode", "separate"}, {"current", 150.0},
                {"voltage", 20.0},      {"preflow_time", 200},        {"detect_time", 300},
                {"hold_time", 200}};
    }
    static QVariantMap weld(const char *option = "continue_running")
    {
        const QVariantMap broken{
            {"detect_time", 100}, {"arc_break_option", option}, {"restart_back_distance", 10}};
        return {{"name", "arcdata1"},       {"voltage_mode", "separate"}, {"current", 200.0},
                {"voltage", 24.0},          {"weld_speed", 20},           {"ramp_time", 100},
                {"arc_break_param", broken}};
    }
    static QVariantMap arcOff()
    {
        return {{"name", "arcoffdata1"}, {"voltage_mode", "separate"}, {"current", 90.0},
                {"voltage", 17.0},       {"hold_time", 300},           {"delay_gasoff_time", 200}};
    }
    /// The alarms of the last run as "line: code arguments".
    QStringList faultsOfRun()
    {
        QStringList texts;
        for (const QVariant &fault : state("result").toMap()["faults"].toList()) {
            const QVariantMap map = fault.toMap();
            texts.append(map["line"].toString() + ": " + map["code"].toString() + " "
                         + map["arguments"].toStringList().join(" "));
        }
        return texts;
    }
    /// The payload of a move to @p place, with the torch pointing down.
    static QVariantMap target(const Vector3d &place, const QString &way = "joint",
                              const QString &wobj = "wobj0", const QString &user = "default",
                              const QString &tool = "torch1")
    {
        const QVariantMap pos{{"x", place.x()}, {"y", place.y()}, {"z", place.z()}};
        const QVariantMap euler{{"a", 180.0}, {"b", 0.0}, {"c", 180.0}};
        const QVariantMap frame{{"pos", pos}, {"ori", QVariantMap{{"euler", euler}}}};
        const QVariantMap coordinate{{"user_frame", user}, {"wobj", QVariantMap{{"name", wobj}}}};
        return welmo::controller::withChild(
            {{"coordinate", coordinate}, {"tool", tool}, {"movetype", way}}, "cartesian.pose.frame",
            frame);
    }

    welmo::controller::Reply save(const char *set, const QVariantMap &file)
    {
        const QByteArray path = QByteArray("arc_weld.") + set;
        return this->set(path, file.value("name").toString(), file);
    }
    /// Loads the lines as a program and runs it.
    welmo::controller::Reply go(const QStringList &lines, const QString &mode = "real")
    {
        run("arc_weld.set_weld_mode", QVariantMap{{"mode", mode}});
        const QVariantMap program{{"name", "test"}, {"text", lines.join('\n')}};
        const welmo::controller::Reply loaded = run("tl_program.load", program);
        told.clear();
        return loaded.ok()
            ? controller.handle({Kind::Command, "tl_program.run", {}, {}, {}, {"anna"}})
            : loaded;
    }
    QVariant state(const char *key) { return get("tl_program.state", key).value; }
    QVariant weldState(const char *key) { return get("arc_weld.welder_state", key).value; }
    /// True within 2 %, since the values of an arc are noisy.
    bool isNear(const char *key, double value)
    {
        const double actual = weldState(key).toDouble();
        if (qAbs(actual - value) > 0.02 * value)
            qWarning("%s is %g", key, actual);
        return qAbs(actual - value) <= 0.02 * value;
    }

    /// Lets time pass until @p done; false after five minutes.
    bool passUntil(const std::function<bool()> &done)
    {
        for (int limit = 300000; limit > 0 && !done(); limit -= 10)
            pass(10);
        return done();
    }
    bool passUntilPhase(const QString &phase)
    {
        return passUntil([&] { return weldState("phase") == phase; });
    }
    bool passUntilLine(int line)
    {
        return passUntil([&] { return state("line") == line; });
    }
    /// Lets time pass until the program no longer runs; returns the milliseconds.
    qint64 finish()
    {
        const qint64 before = now;
        passUntil([this] { return state("state") != "running"; });
        return now - before;
    }
    /// Runs the lines to their end and returns the message.
    QString endOf(const QStringList &lines, const QString &mode = "real")
    {
        go(lines, mode);
        finish();
        return state("message").toString();
    }
    /// Runs the program "seam", and on for @p ms when it has begun to weld.
    bool goWelding(int ms)
    {
        const bool welds = go(seam).ok() && passUntilPhase("welding");
        pass(ms);
        return welds;
    }

    /// The tip of the torch in the base frame, mm.
    Vector3d tip(const QString &tool = "torch1", const QString &wobj = "wobj0")
    {
        const QVariantMap parameters{{"tool", tool}, {"wobj", wobj}};
        const QVariant robot =
            run("tl_program.get_rob_pos", QVariantMap{{"parameters", parameters}}).value;
        const QVariantMap pos = welmo::controller::childAt(robot, "pose.frame.pos").toMap();
        return {pos["x"].toDouble(), pos["y"].toDouble(), pos["z"].toDouble()};
    }
    bool isAt(const Vector3d &place, double mm = 0.01)
    {
        const double off = (tip() - place).norm();
        if (off > mm)
            qWarning("off by %g mm", off);
        return off <= mm;
    }
    /// The told values of @p key at @p path, without repetitions.
    QVariantList toldValues(const char *path, const char *key) const
    {
        QVariantList values;
        for (const Told &entry : told) {
            const QVariantMap map = entry.values.toMap();
            if (entry.path == path && map.contains(key)
                && (values.isEmpty() || values.last() != map.value(key)))
                values.append(map.value(key));
        }
        return values;
    }
};
