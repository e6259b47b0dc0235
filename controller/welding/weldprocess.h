#pragma once

#include "controller/welding/arc.h"

namespace welmo::controller {

/// A weld as the welding machine carries it out, in steps of a millisecond: gas, ignition with
/// retries, the seam, the crater, gas again. It knows no clock and no robot; its owner passes the
/// torch's speed and the conditions.
class WeldProcess
{
public:
    enum class Phase { Idle, PreFlow, Ignition, Welding, Crater, PostFlow };
    /// Why a weld ended; kept until the next one starts.
    enum class Trouble { None, NoGas, NoCurrent, NoArc, ArcLost, WireSticks };

    struct Conditions
    {
        bool gas = true;
        bool strikes = true; ///< the arc can be struck
        bool burns = true; ///< the arc keeps burning
        bool wireSticks = false; ///< the wire sticks in the crater, at the end
    };

    /// The same seed gives the same noise.
    explicit WeldProcess(quint32 seed = 1)
        : m_arc(seed)
    { }

    /// Begins a weld and resets the counts.
    void start(const ArcStart &start, const ArcWeld &weld);
    /// Strikes the arc again where it was interrupted; counting continues.
    void resume();
    void finish(const ArcEnd &end);
    /// Puts the arc out at once; gas then protects the seam for as long as the pre-flow.
    void interrupt();
    /// Switches everything off at once.
    void halt();

    /// Sets new values for the present weld; the actual values reach them within the ramp time.
    void trim(const ArcStart &start);
    void trim(const ArcWeld &weld);
    void trim(const ArcEnd &end);

    /// Carries out one millisecond, with the torch at @p speed mm/s.
    void step(const Conditions &conditions, double speed);

    Phase phase() const;
    Trouble trouble() const { return m_trouble; }
    /// The arc broke and was not found again, while the torch moves on.
    bool isArcMissing() const { return m_breakKnown; }
    /// The arc broke, and the torch must go back before it is struck again.
    bool wantsReturn() const { return m_stage == Stage::Returning; }
    void returned();
    const ArcWeld &weld() const { return m_weld; }

    const Arc &arc() const { return m_arc; }

private:
    enum class Stage {
        Idle,
        PreFlow,
        Lead,
        Striking,
        Confirming,
        RetractDelay,
        Retracting,
        Returning,
        Welding,
        Crater,
        StickCheck,
        AntiStick,
        PostFlow
    };

    void enter(Stage stage);
    bool passed(int ms) const { return m_inStage >= ms; }
    void carryOn(const Conditions &conditions);
    void strike(const Conditions &conditions);
    void confirm(const Conditions &conditions);
    void weldOn(const Conditions &conditions);
    void onArcBroken();
    void endCrater(const Conditions &conditions);
    void checkStick();
    Setpoint startSetpoint() const;
    void powerOff();
    void stopWith(Trouble trouble, int postFlow);

    Stage m_stage = Stage::Idle;
    int m_inStage = 0; // ms
    Trouble m_trouble = Trouble::None;
    ArcStart m_start;
    ArcWeld m_weld;
    ArcEnd m_end;
    int m_tries = 0;
    int m_withoutArc = 0; // ms
    bool m_breakKnown = false;
    int m_postFlow = 0; // ms
    Arc m_arc;
};

} // namespace welmo::controller
