#pragma once

#include <QDateTime>
#include <QString>
#include <optional>

#include "book/records/measure.h"

namespace welmo::book {

enum class Verdict {
    None, ///< nothing was wrong, but there are no limits
    Green,
    Amber, ///< within the limits, but near to them or with trouble
    Red
};

/// How a seam ended. These words are stored.
namespace ending {
inline const QString regular = QStringLiteral("regular");
inline const QString stopped = QStringLiteral("stopped"); ///< by hand, before its end
inline const QString alarm = QStringLiteral("alarm");
inline const QString linkLost = QStringLiteral("link_lost");
inline const QString interrupted = QStringLiteral("interrupted"); ///< the recorder itself ended
} // namespace ending

/// The record of one seam. An unknown value is a null text, no number, or line 0.
struct Seam
{
    qint64 id = 0; ///< 0 until it is stored
    qint64 started = 0; ///< ms since 1970, UTC
    int utcOffset = 0; ///< minutes, at the start
    qint64 duration = 0; ///< ms, by the steady clock
    qint64 clockMoved = 0; ///< ms by which the wall clock was changed during the seam
    QString ended; ///< one of ending; null while the seam is open
    QString cell;
    QString program;
    int line = 0; ///< at the start, counted from 1
    int lastLine = 0;
    QString mode; ///< "real", "simu" or "test_run"
    QString user;
    QString arconFile, weldFile, arcoffFile;
    qint64 arconVersion = 0, weldVersion = 0, arcoffVersion = 0; ///< of the files; 0: unknown
    int trims = 0; ///< how often the welding file or its set values changed during the weld
    std::optional<double> setCurrent; ///< A
    std::optional<double> setVoltage; ///< V
    std::optional<double> setSpeed; ///< mm/s
    Spread current; ///< A
    Spread voltage; ///< V
    Spread speed; ///< mm/s
    double arcTime = 0; ///< s
    double length = 0; ///< mm
    std::optional<double> wire; ///< m
    std::optional<double> gasTime; ///< s
    std::optional<double> arcEnergy; ///< kJ/mm
    std::optional<double> heatInput; ///< kJ/mm
    double efficiency = 0; ///< thermal efficiency: heat input divided by arc energy
    int restrikes = 0;
    int interruptions = 0;
    QString alarm; ///< the controller's code or, without arguments, its text
    QString alarmArguments; ///< the code's arguments, a JSON list
    Verdict verdict = Verdict::None;
    QString reason; ///< words of reason::, separated by blanks

    bool isOpen() const { return ended.isEmpty(); }
    bool isReal() const { return mode.isEmpty() || mode == QLatin1String("real"); }
    QDateTime startedAt() const
    {
        return QDateTime::fromMSecsSinceEpoch(started, Qt::OffsetFromUTC, utcOffset * 60);
    }
    QDateTime endedAt() const { return startedAt().addMSecs(duration); }
};

} // namespace welmo::book
