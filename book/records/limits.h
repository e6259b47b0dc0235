#pragma once

#include <QString>
#include <QStringList>
#include <QVector>
#include <optional>

#include "book/records/course.h"
#include "book/records/seam.h"

namespace welmo::book {

/// Between what a value has to be; either end may be open.
struct Band
{
    std::optional<double> low;
    std::optional<double> high;

    bool isSet() const { return low || high; }
    bool holds(double value) const { return !(low && value < *low) && !(high && value > *high); }
    /// Within the middle two thirds, for a band that has both ends.
    bool holdsEasily(double value) const;
};

/// What a seam with this welding file is held to.
struct Limits
{
    QString file;
    Band current; ///< A, each sample
    Band voltage; ///< V, each sample
    Band speed; ///< mm/s, each sample
    Band length; ///< mm
    Band heatInput; ///< kJ/mm
    int maskStart = 500; ///< ms after the arc burns in which nothing is judged
    int maskEnd = 0; ///< ms before its end; the alarm comes later by as much
    int learntFrom = 0; ///< how many seams they come from; 0: set by hand

    bool areSet() const;
};

/// A band by its name in the book, in the order in which they are shown.
struct BandRow
{
    QString name;
    QString unit;
    Band Limits::*band;
    double Sample::*sample; ///< what of a sample it is held to; null for the whole seam's
};
const QVector<BandRow> &bandRows();

constexpr int fewestToLearnFrom = 10;

/// Mean ± 3 standard deviations over good seams, to be looked at before it is taken: of the samples
/// for what is held to each sample, of the seams' values for the rest; never narrower than ± 2 % of
/// the mean. Nothing from fewer than fewestToLearnFrom seams.
std::optional<Limits> learnt(const QString &file, const QVector<Seam> &goodSeams);

/// Why a seam is not green, as kept: "current" and the other bands' names for what left its band,
/// and these.
namespace reason {
inline const QString alarm = QStringLiteral("alarm");
inline const QString near = QStringLiteral("near_limit");
inline const QString restrike = QStringLiteral("restrike");
inline const QString interruption = QStringLiteral("interruption");
inline const QString stopped = QStringLiteral("stopped");
inline const QString incomplete = QStringLiteral("incomplete"); ///< not recorded to its end
} // namespace reason

/// Judges a seam while it runs and when it is over.
class Judge
{
public:
    /// Without limits only trouble is judged.
    explicit Judge(Limits limits = {})
        : m_limits(std::move(limits))
    { }

    const Limits &limits() const { return m_limits; }
    /// The next sample of the burning arc. Answers the band that it, or an earlier one that the end
    /// mask held back, leaves for the first time; else null.
    const BandRow *take(const Sample &sample);
    /// Puts verdict and reason into the record of the finished seam.
    void conclude(Seam *seam) const;

private:
    Limits m_limits;
    Samples m_waiting;
    int m_taken = 0;
    QStringList m_broken;
};

} // namespace welmo::book
