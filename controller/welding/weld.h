#pragma once

#include <cmath>
#include <optional>

#include "controller/core/controllercontext.h"
#include "controller/core/registry.h"
#include "controller/core/subsystem.h"
#include "controller/files/fileset.h"
#include "controller/welding/weldprocess.h"

namespace welmo::controller {

class Welder;

/// The weld under way: with which files, in which phase, and what ended it. Saving a file that it
/// uses, or enabling welding data, acts on it at once. Whoever moves the torch drives it.
class Weld : public Subsystem
{
public:
    Weld(ControllerContext &context, Registry &registry, const Welder &welder);

    bool isBusy() const override { return m_process.phase() != WeldProcess::Phase::Idle; }

    /// Loads both files and, unless the run is dry, starts the arc.
    Reply openSeam(const QString &arcOnFile, const QString &weldFile, bool dry);
    /// Ends the arc as the file says; it may burn on for a while to fill the crater.
    Reply closeSeam(const QString &arcOffFile);
    /// The arc goes out at once; resume() strikes it again where a seam is open.
    void interrupt() { m_process.interrupt(); }
    void resume();
    /// Interrupts, and leaves nothing to resume and no alarm.
    void abandon();
    /// One millisecond with the torch at @p speed mm/s.
    void advance(double speed);
    /// The torch went back to where the arc is struck again.
    void returned() { m_process.returned(); }

    const WeldProcess &process() const { return m_process; }
    /// True while wire and power are the weld's own.
    bool isWelding() const;
    /// The torch has to stay until the arc burns or the crater is full.
    bool holdsTorch() const;
    /// What the open seam is welded with, mm/s; 0 when its file leaves that to the program.
    double seamSpeed() const { return m_seam ? m_seam->speed : 0; }
    double torchSpeed() const { return isWelding() ? std::abs(m_torchSpeed) : 0; }
    /// Why the last weld ended before its time; empty when it did not.
    const QString &alarm() const { return m_alarm; }
    /// The phase in the contract's words.
    QString phaseWord() const;
    /// The file in use in the present phase, or last.
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
    void raise(const QString &alarm);
    void note();
    WeldProcess::Conditions conditions() const;

    ControllerContext &m_context;
    const Welder &m_welder;
    WeldProcess m_process;
    std::optional<ArcWeld> m_seam; // open, with an arc unless the run is dry
    bool m_dry = false;
    QString m_arcOnFile, m_weldFile, m_arcOffFile;
    double m_torchSpeed = 0;
    QString m_alarm;
    WeldProcess::Phase m_noted = WeldProcess::Phase::Idle;
    bool m_notedMissing = false;
};

} // namespace welmo::controller
