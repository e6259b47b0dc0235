#pragma once

#include <QVariantMap>
#include <functional>

#include "book/records/course.h"
#include "book/records/limits.h"
#include "book/records/seam.h"

namespace welmo::book {

/// Now, by the wall clock and by one that nobody sets.
struct Moment
{
    qint64 wall = 0; ///< ms since 1970, UTC
    int utcOffset = 0; ///< minutes
    qint64 steady = 0; ///< ms

    static Moment now();
};

/// A welding file as it is in use: which version, and what it sets.
struct FileInUse
{
    qint64 version = 0;
    std::optional<double> current;
    std::optional<double> voltage;
    std::optional<double> speed;
};

/// Who keeps what a recorder finds out.
class SeamSink
{
public:
    virtual ~SeamSink() = default;
    virtual void opened(const Seam &seam) = 0;
    /// More of the course of the seam that is open.
    virtual void sampled(const Samples &more) = 0;
    /// The samples that were not told by then are not worth a second.
    virtual void closed(const Seam &seam) = 0;
    /// The running seam left its limits: a band's value now.
    virtual void exceeded(const Seam &seam, const BandRow &band, double value) = 0;
};

/// Makes a record of every seam out of what a controller tells. It asks nobody and knows no clock:
/// who drives it hands in what was told, and a tick ten times a second while isBusy().
///
/// A seam goes from the first gas to the last where the phases are told, else from arc to arc. A
/// program that is told to be paused leaves its seam open.
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

    /// News of "arc_weld.welder_state": only the keys that changed.
    void tellWelder(const QVariantMap &news, const Moment &now);
    /// News of the program under way: any of name, state, line, message.
    void tellProgram(const QVariantMap &news);
    /// Every alarm that is kept, as {id, code, arguments, …}; one is news when its id is.
    void tellAlarms(const QVariantList &entries);
    void tellLink(bool up, const Moment &now);
    /// What is open is closed as interrupted: the recorder ends.
    void end(const Moment &now) { close(ending::interrupted, now); }
    void tick(const Moment &now);

    bool isBusy() const { return m_open; }
    const Seam &seam() const { return m_seam; }
    const Judge &judge() const { return m_judge; }
    /// The actual values as told last.
    const Sample &actual() const { return m_actual; }

private:
    bool isUnderWay() const;
    bool burns() const { return m_actual.current >= burningFrom; }
    void takeCounters(const QVariantMap &news);
    void followPhase(const QString &phase);
    void followFile(const QString &file);
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
    QString m_seamProgram; ///< of the seam, where the welder tells it
    int m_seamLine = 0;
    double m_efficiency = usualEfficiency;

    // As told last.
    Sample m_actual;
    QString m_phase, m_state, m_file;
    QVariantMap m_program;
    qint64 m_lastAlarm = -1; ///< its id; -1 before the first look
    double m_distance = 0;
    double m_wire = 0;
    bool m_tellsPhase = false;
    bool m_tellsDistance = false;
    bool m_tellsWire = false;

    // Of the open seam.
    bool m_open = false;
    Seam m_seam;
    Judge m_judge;
    Moment m_start;
    qint64 m_firstSample = -1; ///< steady time, later by every pause; -1 before the arc burned
    qint64 m_quietSince = -1; ///< since when it is not under way; -1 while it is
    bool m_sawEnd = false;
    bool m_wasPaused = false;
    bool m_failed = false; ///< its program says so
    bool m_gap = false; ///< the arc is out within the seam
    int m_samples = 0;
    int m_burning = 0;
    double m_energy = 0; ///< J
    double m_travelled = 0; ///< mm, from the speed
    Statistics m_current, m_voltage, m_speed;
    Samples m_unsent;
};

/// The values of a record that follow from its course alone, for one that nobody closed.
void completeFromCourse(Seam *seam, const Samples &samples);

} // namespace welmo::book
