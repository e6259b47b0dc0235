#pragma once

#include <cmath>
#include <optional>

#include "controller/core/alarms.h"
#include "controller/files/fileset.h"
#include "controller/welding/weldprocess.h"

namespace welmo::controller {

class Welder;

/// The present weld: its files, its phase, and what ended it. Saving a file that it uses, or
/// enabling welding data, acts on it at once. What moves the torch calls advance().
class Weld : public Subsystem
{
public:
    /// The arc of a seam: none, simulated readings, or a real one.
    enum class Arc { None, Simulated, Real };
    /// The counts of the seams since the last reset.
    struct Tally
    {
        int seams = 0; ///< seams in which welding began
        double welded = 0; ///< mm
        double arcMinutes = 0; ///< minutes of burning arc
        double wire = 0; ///< m
    };

    Weld(ControllerContext &context, Registry &registry, const Welder &welder, Alarms &alarms);

    bool isBusy() const override { return m_process.phase() != WeldProcess::Phase::Idle; }

    /// Loads both files and starts the arc, if there is one.
    Reply openSeam(const QString &arcOnFile, const QString &weldFile, Arc arc);
    /// Ends the arc as the file says; it may burn on for a while to fill the crater.
    Reply closeSeam(const QString &arcOffFile);
    /// Puts the arc out at once; resume() strikes it again in an open seam.
    void interrupt() { m_process.interrupt(); }
    void resume();
    /// Interrupts, with nothing to resume and no alarm.
    void abandon();
    /// Carries out one millisecond with the torch at @p speed mm/s.
    void advance(double speed);
    /// The torch has returned to where the arc is to be struck again.
    void returned();

    const WeldProcess &process() const { return m_process; }
    /// True while the weld controls wire and power.
    bool isWelding() const;
    bool consumesGas() const { return m_arc == Arc::Real && isBusy(); }
    bool consumesWire() const { return m_arc == Arc::Real && m_process.arc().isBurning(); }
    /// True while the torch must wait until the arc burns or the crater is full.
    bool holdsTorch() const;
    /// The open seam's welding speed, mm/s; 0 if its file leaves that to the program.
    double seamSpeed() const { return m_seam ? m_seam->speed : 0; }
    /// What the open seam's file sets, trims included; 0 without a seam.
    Setpoint setpoint() const { return m_seam ? m_seam->setpoint : Setpoint{}; }
    double torchSpeed() const { return isWelding() ? std::abs(m_torchSpeed) : 0; }
    /// The line that opened the seam; kept after its end.
    const ProgramPlace &seamPlace() const { return m_seamPlace; }
    bool hasSeam() const { return m_seam.has_value(); }
    /// Why the last weld was ended by a fault; empty if it was not.
    const Reason &alarm() const { return m_alarm; }
    const Tally &tally() const { return m_tally; }
    void resetTally() { m_tally = {}; }
    /// The next seam was begun before, and @p mm of it are welded twice; the tally omits both.
    void expectAgain(double mm) { m_again = mm; }
    /// The phase in the words of the node.
    QString phaseWord() const;
    /// The file in use in the present phase, or the last one used.
    QString fileName() const;

private:
    Reply load(const schema::FileSet &set, const QString &file) const;
    Reply enable(const QVariant &payload);
    void listenTo(const schema::FileSet &set, const QString &used,
                  void (Weld::*trim)(const QVariantMap &));
    void trimStart(const QVariantMap &file) { m_process.trim(ArcStart::from(file)); }
    void trimWeld(const QVariantMap &file);
    void trimEnd(const QVariantMap &file) { m_process.trim(ArcEnd::from(file)); }
    Reply refusal() const;
    void raise(const Reason &alarm, const QString &file);
    void count(const Tally &before);
    Tally counters() const;
    void note();
    WeldProcess::Conditions conditions() const;
    double distance() const;
    Reason arcLoss() const;

    ControllerContext &m_context;
    const Welder &m_welder;
    Alarms &m_alarms;
    WeldProcess m_process;
    std::optional<ArcWeld> m_seam; // the open seam; without an arc in a dry run
    ProgramPlace m_seamPlace;
    Arc m_arc = Arc::None;
    QString m_arcOnFile, m_weldFile, m_arcOffFile;
    double m_torchSpeed = 0;
    Reason m_alarm;
    Tally m_tally;
    bool m_counted = false; // the open seam is in the tally
    std::optional<double> m_again; // mm of the next seam that are welded twice
    WeldProcess::Phase m_noted = WeldProcess::Phase::Idle;
    bool m_notedMissing = false;
};

} // namespace welmo::controller
