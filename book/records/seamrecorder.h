#pragma once

#include <QVariantMap>
#include <functional>

#include "book/records/course.h"
#include "book/records/limits.h"
#include "book/records/seam.h"

namespace welmo::book {

/// The present time, by the wall clock and by a steady clock.
struct Moment
{
    qint64 wall = 0; ///< ms since 1970, UTC
    int utcOffset = 0; ///< minutes
    qint64 steady = 0; ///< ms

    static Moment now();
};

/// What a weld is set to.
struct SetValues
{
    std::optional<double> current; ///< A
    std::optional<double> voltage; ///< V
    std::optional<double> speed; ///< mm/s

    /// Those in a welding file's content.
    static SetValues of(const QVariantMap &file);
    bool operator==(const SetValues &other) const
    {
        return current == other.current && voltage == other.voltage && speed == other.speed;
    }
};

/// The welding file in use: its version, and its set values.
struct FileInUse
{
    qint64 version = 0;
    SetValues set = {};
};

/// Receives what a recorder finds out.
class SeamSink
{
public:
    virtual ~SeamSink() = default;
    virtual void opened(const Seam &seam) = 0;
    /// Further samples of the open seam.
    virtual void sampled(const Samples &more) = 0;
    /// The seam is over; fewer samples than a second's worth may not have been sent before.
    virtual void closed(const Seam &seam) = 0;
    /// The running seam left its limits; @p value is the band's present value.
    virtual void exceeded(const Seam &seam, const BandRow &band, double value) = 0;
};

/// Makes a record of every seam from a controller's notifications. It makes no requests and has no
/// clock: its owner passes the notifications, and a tick ten times a second while isBusy().
///
/// If phases are notified a seam goes from the first gas to the last, else from arc to arc. While
/// its program is paused a seam stays open.
class SeamRecorder
{
public:
    static constexpr double burningFrom = 5; ///< A
    /// Thermal efficiency of MAG welding (process 135) by EN 1011-1.
    static constexpr double usualEfficiency = 0.8;

    explicit SeamRecorder(SeamSink *sink)
        : m_sink(sink)
    { }

    std::function<FileInUse(const QString &file)> fileInUse;
    std::function<Limits(const QString &file)> limitsOf;

    void setCell(const QString &cell) { m_cell = cell; }
    void setEfficiency(double factor) { m_efficiency = factor; }
    void setMode(const QString &mode) { m_mode = mode; }

    /// A notification of "arc_weld.welder_state": only the keys that changed.
    void tellWelder(const QVariantMap &news, const Moment &now);
    /// The controller has a new version of this file.
    void tellFile(const QString &file);
    /// A notification of the running program: any of name, state, line, message.
    void tellProgram(const QVariantMap &news);
    /// All stored alarms, as {id, code, arguments, …}; one is new if its id is.
    void tellAlarms(const QVariantList &entries);
    void tellLink(bool up, const Moment &now);
    /// Closes the open seam as interrupted, before the recorder is destroyed.
    void end(const Moment &now) { close(ending::interrupted, now); }
    void tick(const Moment &now);

    bool isBusy() const { return m_open; }
    const Seam &seam() const { return m_seam; }
    const Judge &judge() const { return m_judge; }
    /// The actual values as last notified.
    const Sample &actual() const { return m_actual; }

private:
    bool isUnderWay() const;
    bool burns() const { return m_actual.current >= burningFrom; }
    void takeCounters(const QVariantMap &news);
    void followPhase(const QString &before);
    void followFile(const QString &file);
    void takeSetValues(const QVariantMap &news);
    void setTo(const SetValues &values);
    void open(const Moment &now);
    void takePlace();
    void close(const QString &how, const Moment &now);
    void settle(const Moment &now);
    void takeSample();
    void judgeSample();
    void noteClock(const Moment &now);
    QString howItEnded() const;
    void flush();

    SeamSink *m_sink; // not owned
    QString m_cell, m_user, m_mode;
    QString m_seamProgram; ///< the seam's program, if the welder tells it
    int m_seamLine = 0;
    double m_efficiency = usualEfficiency;

    // The last notified values.
    Sample m_actual;
    QString m_phase, m_state, m_file;
    QVariantMap m_program;
    qint64 m_lastAlarm = -1; ///< its id; -1 before the first reading
    SetValues m_set; ///< what the controller says is set; empty if it does not tell
    double m_distance = 0;
    double m_wire = 0;
    bool m_tellsPhase = false;
    bool m_tellsDistance = false;
    bool m_tellsWire = false;

    // Values of the open seam.
    bool m_open = false;
    Seam m_seam;
    Judge m_judge;
    Moment m_start;
    qint64 m_firstSample = -1; ///< steady time, moved on by each pause; -1 before the arc burned
    qint64 m_quietSince = -1; ///< steady time since when nothing happens; -1 while something does
    bool m_sawEnd = false;
    bool m_wasPaused = false;
    bool m_failed = false; ///< its program failed
    bool m_gap = false; ///< the arc is out within the seam
    int m_samples = 0;
    int m_burning = 0;
    double m_energy = 0; ///< J
    double m_travelled = 0; ///< mm, computed from the speed
    Statistics m_current, m_voltage, m_speed;
    Samples m_unsent;
};

/// Sets the values of an unclosed record that can be computed from its course.
void completeFromCourse(Seam *seam, const Samples &samples);

} // namespace welmo::book
