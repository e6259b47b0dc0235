#pragma once

#include <QByteArray>
#include <QVector>

namespace welmo::book {

/// The actual values at one moment of a seam.
struct Sample
{
    double current = 0; ///< A
    double voltage = 0; ///< V
    double speed = 0; ///< mm/s
};

using Samples = QVector<Sample>;

/// Samples at a fixed pace, from the start of the seam on.
struct Course
{
    static constexpr int fullRate = 10; ///< a second, as recorded
    static constexpr int thinRate = 1; ///< of old seams

    int rate = fullRate; ///< a second
    Samples samples;
};

/// Compresses the samples: tenths, as differences. Every stored value is within 0.05 of its sample.
QByteArray packed(const Samples &samples);
/// Empty if the bytes are damaged.
Samples unpacked(const QByteArray &bytes);
/// One sample for each @p count: their mean.
Samples thinned(const Samples &samples, int count);

} // namespace welmo::book
