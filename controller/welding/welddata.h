#pragma once

#include <QVariantMap>

namespace welmo::controller {

/// A welding machine's set values in ampere and volt, however the file gives them.
struct Setpoint
{
    double current = 0;
    double voltage = 0;
};

/// The set values of a file. A wire speed ("wire_feed", in mm/s) stands for the current that melts
/// that much; a unified voltage, in percent, trims the voltage that suits the current: 100 is that
/// voltage, 0 and 200 are a quarter less and more.
Setpoint setpointOf(const QVariantMap &file);

/// Metres of wire that @p current melts in a minute.
double wireSpeedAt(double current);

/// How a file starts an arc. Times in milliseconds.
struct ArcStart
{
    Setpoint setpoint;
    int preFlow = 0; ///< gas before anything else
    int lead = 0; ///< power and wire on, until the wire touches
    double slowWireSpeed = 0; ///< of that wire, m/min
    int detect = 0; ///< how long the arc may take to strike
    int stay = 0; ///< how long the arc burns before the torch moves: confirmation, and the hold
    int ramp = 0;
    int retries = 0;
    int retractDelay = 0;
    int retract = 0;
    double currentStep = 0; ///< added with each retry, A
    double voltageStep = 0; ///< added with each retry, V

    static ArcStart from(const QVariantMap &file);
};

struct ArcWeld
{
    enum class WhenBroken { ContinueRunning, StopAndAlarm, Reignite };

    Setpoint setpoint;
    double speed = 0; ///< mm/s; 0: the program line gives it
    int ramp = 0;
    int breakDetect = 0;
    WhenBroken whenBroken = WhenBroken::ContinueRunning;
    double backDistance = 0; ///< mm before the break, where the arc is struck again

    static ArcWeld from(const QVariantMap &file);
};

struct ArcEnd
{
    Setpoint setpoint;
    int hold = 0; ///< fills the crater
    int postFlow = 0;
    int stickDetect = 0;
    bool antiStick = false;
    Setpoint antiStickSetpoint;
    int antiStickTime = 0;

    static ArcEnd from(const QVariantMap &file);
};

} // namespace welmo::controller
