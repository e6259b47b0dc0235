#pragma once

#include <QString>
#include <QStringList>
#include <QVector>
#include <optional>

#include "book/records/course.h"
#include "book/records/seam.h"

namespace welmo::book {

/// The range in which a value must be; either end may be open.
struct Band
{
    std::optional<double> low;
    std::optional<double> high;

    bool isSet() const { return low || high; }
    bool holds(double value) const { return !(low && value < *low) && !(high && value > *high); }
    /// Within the middle two thirds of a band that has both ends.
    bool holdsEasily(double value) const;
};

/// The limits for seams with this welding file.
struct Limits
{
    QString file;
    Band current; ///< A, each sample
    Band voltage; ///< V, each sample
    Band speed; ///< mm/s, each sample
    Band length; ///< mm
    Band heatInput; ///< kJ/mm
    int maskStart = 500; ///< ms after the arc starts burning that are not judged
    int maskEnd = 0; ///< ms before its end that are not judged; delays the alarm by as much
    int learntFrom = 0; ///< the number of seams that they were learnt from; 0: set by hand

    bool areSet() const;
};

/// A band with its name in the book; the rows are in the order in which they are shown.
struct BandRow
{
    QString name;
    QString unit;
    Band Limits::*band;
    double Sample::*sample; ///< the sample's value to judge; null for a value of the whole seam
};
const QVector<BandRow> &bandRows();

constexpr int fewestToLearnFrom = 10;

/// Suggests limits of mean ± 3 standard deviations over good seams: of the samples for bands that
/// judge samples, else of the seams' values; at least ± 2 % of the mean. Empty if there are fewer
/// than fewestToLearnFrom seams.
std::optional<Limits> learnt(const QString &file, const QVector<Seam> &goodSeams);

/// Why a seam is not green, as stored: the names of the bands that it left, such as "current", and
/// these words.
namespace reason {
inline const QString alarm = QStringLiteral("alarm");
inline const QString near = QStringLiteral("near_limit");
inline const QString restrike = QStringLiteral("restrike");
inline const QString interruption = QStringLiteral("interruption");
inline const QString stopped = QStringLiteral("stopped");
inline const QString incomplete = QStringLiteral("incomplete"); ///< not recorded to its end
} // namespace reason

/// Judges a seam, while it is welded and at its end.
class Judge
{
public:
    /// Without limits it only judges trouble.
    explicit Judge(Limits limits = {})
        : m_limits(std::move(limits))
    { }

    const Limits &limits() const { return m_limits; }
    /// Judges the next sample of the burning arc. Returns the band that this sample, or an earlier
    /// one that the end mask delayed, leaves for the first time; else null.
    const BandRow *take(const Sample &sample);
    /// Sets verdict and reasons in the record of the finished seam.
    void conclude(Seam *seam) const;

private:
    Limits m_limits;
    Samples m_waiting;
    int m_taken = 0;
    QStringList m_broken;
};

} // namespace welmo::book
