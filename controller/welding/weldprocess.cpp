#include "controller/welding/weldprocess.h"

namespace welmo::controller {

void WeldProcess::start(const ArcStart &start, const ArcWeld &weld)
{
    m_start = start;
    m_weld = weld;
    m_arc.resetCounters();
    resume();
}

void WeldProcess::resume()
{
    powerOff();
    m_trouble = Trouble::None;
    m_tries = 0;
    enter(Stage::PreFlow);
}

void WeldProcess::finish(const ArcEnd &end)
{
    m_end = end;
    m_postFlow = end.postFlow;
    if (m_arc.isBurning()) {
        m_arc.aim(end.setpoint, qMin(m_weld.ramp, end.hold));
        enter(Stage::Crater);
    } else {
        stopWith(Trouble::None, end.postFlow);
    }
}

void WeldProcess::interrupt()
{
    if (m_stage != Stage::Idle && m_stage != Stage::PostFlow)
        stopWith(Trouble::None, m_start.preFlow);
}

void WeldProcess::halt()
{
    powerOff();
    enter(Stage::Idle);
}

void WeldProcess::trim(const ArcStart &start)
{
    m_start = start;
    if (m_stage == Stage::Confirming)
        m_arc.aim(startSetpoint(), start.ramp);
}

void WeldProcess::trim(const ArcWeld &weld)
{
    m_weld = weld;
    if (m_stage == Stage::Welding && m_arc.isBurning())
        m_arc.aim(weld.setpoint, weld.ramp);
}

void WeldProcess::trim(const ArcEnd &end)
{
    m_end = end;
    m_postFlow = end.postFlow;
    if (m_stage == Stage::Crater)
        m_arc.aim(end.setpoint, qMin(m_weld.ramp, end.hold));
}

void WeldProcess::step(const Conditions &conditions, double speed)
{
    if (m_stage == Stage::Idle)
        return;
    ++m_inStage;
    if (conditions.gas || m_stage == Stage::PostFlow)
        carryOn(conditions);
    else
        stopWith(Trouble::NoGas, 0);
    m_arc.step(speed, m_stage == Stage::Lead ? m_start.slowWireSpeed : 0);
}

void WeldProcess::carryOn(const Conditions &conditions)
{
    switch (m_stage) {
    case Stage::PreFlow:
        if (passed(m_start.preFlow)) {
            m_arc.openCircuit();
            enter(Stage::Lead);
        }
        break;
    case Stage::Lead:
        if (passed(m_start.lead))
            enter(Stage::Striking);
        break;
    case Stage::Striking:
        strike(conditions);
        break;
    case Stage::Confirming:
        confirm(conditions);
        break;
    case Stage::RetractDelay:
        if (passed(m_start.retractDelay))
            enter(Stage::Retracting);
        break;
    case Stage::Retracting:
        if (passed(m_start.retract)) {
            m_arc.openCircuit();
            enter(Stage::Lead);
        }
        break;
    case Stage::Welding:
        weldOn(conditions);
        break;
    case Stage::Crater:
        endCrater(conditions);
        break;
    case Stage::StickCheck:
        checkStick();
        break;
    case Stage::AntiStick:
        if (passed(m_end.antiStickTime))
            stopWith(Trouble::None, m_postFlow);
        break;
    case Stage::PostFlow:
        if (passed(m_postFlow))
            enter(Stage::Idle);
        break;
    case Stage::Returning:
    case Stage::Idle:
        break;
    }
}

void WeldProcess::strike(const Conditions &conditions)
{
    if (conditions.strikes && conditions.burns && startSetpoint().current > 0) {
        m_arc.strike(startSetpoint(), m_start.ramp);
        enter(Stage::Confirming);
    } else if (passed(m_start.detect)) {
        powerOff();
        if (m_tries++ < m_start.retries)
            enter(Stage::RetractDelay);
        else
            stopWith(startSetpoint().current > 0 ? Trouble::NoArc : Trouble::NoCurrent,
                     m_start.preFlow);
    }
}

void WeldProcess::confirm(const Conditions &conditions)
{
    if (!conditions.burns) {
        m_arc.openCircuit();
        enter(Stage::Striking);
    } else if (passed(m_start.stay)) {
        m_arc.aim(m_weld.setpoint, m_weld.ramp);
        m_withoutArc = 0;
        enter(Stage::Welding);
    }
}

void WeldProcess::weldOn(const Conditions &conditions)
{
    if (m_weld.setpoint.current <= 0) {
        stopWith(Trouble::NoCurrent, m_start.preFlow);
        return;
    }
    if (conditions.burns) {
        // The power is still on, so the arc is back where the wire touches again.
        if (!m_arc.isBurning())
            m_arc.strike(m_weld.setpoint, m_weld.ramp);
        m_withoutArc = 0;
        m_breakKnown = false;
        return;
    }
    m_arc.openCircuit();
    if (++m_withoutArc > m_weld.breakDetect && !m_breakKnown)
        onArcBroken();
}

void WeldProcess::onArcBroken()
{
    switch (m_weld.whenBroken) {
    case ArcWeld::WhenBroken::ContinueRunning:
        m_breakKnown = true;
        break;
    case ArcWeld::WhenBroken::StopAndAlarm:
        stopWith(Trouble::ArcLost, m_start.preFlow);
        break;
    case ArcWeld::WhenBroken::Reignite:
        powerOff();
        enter(Stage::Returning);
        break;
    }
}

void WeldProcess::returned()
{
    m_tries = 0;
    m_arc.openCircuit();
    enter(Stage::Lead);
}

void WeldProcess::endCrater(const Conditions &conditions)
{
    if (!passed(m_end.hold))
        return;
    if (!conditions.wireSticks) {
        stopWith(Trouble::None, m_postFlow);
        return;
    }
    powerOff();
    enter(Stage::StickCheck);
}

void WeldProcess::checkStick()
{
    if (!passed(m_end.stickDetect))
        return;
    if (m_end.antiStick) {
        m_arc.aim(m_end.antiStickSetpoint, 0);
        enter(Stage::AntiStick);
    } else {
        stopWith(Trouble::WireSticks, m_postFlow);
    }
}

WeldProcess::Phase WeldProcess::phase() const
{
    switch (m_stage) {
    case Stage::Idle:
        return Phase::Idle;
    case Stage::PreFlow:
        return Phase::PreFlow;
    case Stage::Welding:
        return Phase::Welding;
    case Stage::Crater:
    case Stage::StickCheck:
    case Stage::AntiStick:
        return Phase::Crater;
    case Stage::PostFlow:
        return Phase::PostFlow;
    default:
        return Phase::Ignition;
    }
}

void WeldProcess::enter(Stage stage)
{
    m_stage = stage;
    m_inStage = 0;
}

// The values of the present attempt: each retry uses more.
Setpoint WeldProcess::startSetpoint() const
{
    return {m_start.setpoint.current + m_tries * m_start.currentStep,
            m_start.setpoint.voltage + m_tries * m_start.voltageStep};
}

void WeldProcess::powerOff()
{
    m_arc.off();
    m_breakKnown = false;
}

void WeldProcess::stopWith(Trouble trouble, int postFlow)
{
    powerOff();
    m_trouble = trouble;
    m_postFlow = postFlow;
    enter(Stage::PostFlow);
}

} // namespace welmo::controller
