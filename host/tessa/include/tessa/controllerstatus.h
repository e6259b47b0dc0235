#pragma once

#include <QObject>

namespace tessa {

/// The cell's state as the pendant knows it; the availability of pages depends on it.
class ControllerStatus : public QObject
{
    Q_OBJECT
public:
    enum class State { Idle, Running, Fault };
    enum class Mode { Manual, Automatic };
    enum class Power { Off, On };
    enum class Level { Viewer, Operator, Programmer, Administrator };
    Q_ENUM(State)
    Q_ENUM(Mode)
    Q_ENUM(Power)
    Q_ENUM(Level)

    using QObject::QObject;

    State state() const { return m_state; }
    Mode mode() const { return m_mode; }
    Power power() const { return m_power; }
    Level level() const { return m_level; }

    void setState(State state);
    void setMode(Mode mode);
    void setPower(Power power);
    void setLevel(Level level);

signals:
    void stateChanged();
    void modeChanged();
    void powerChanged();
    void levelChanged();

private:
    State m_state = State::Idle;
    Mode m_mode = Mode::Manual;
    Power m_power = Power::On;
    Level m_level = Level::Programmer;
};

} // namespace tessa
