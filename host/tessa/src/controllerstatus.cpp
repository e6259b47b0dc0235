#include "tessa/controllerstatus.h"

namespace tessa {

namespace {

template<typename Value>
bool changedTo(Value &member, Value value)
{
    const bool differs = member != value;
    member = value;
    return differs;
}

} // namespace

void ControllerStatus::setState(State state)
{
    if (changedTo(m_state, state))
        emit stateChanged();
}

void ControllerStatus::setMode(Mode mode)
{
    if (changedTo(m_mode, mode))
        emit modeChanged();
}

void ControllerStatus::setPower(Power power)
{
    if (changedTo(m_power, power))
        emit powerChanged();
}

void ControllerStatus::setLevel(Level level)
{
    if (changedTo(m_level, level))
        emit levelChanged();
}

} // namespace tessa
