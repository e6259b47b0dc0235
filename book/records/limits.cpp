#include "book/records/limits.h"

#include <algorithm>

namespace welmo::book {

namespace {

constexpr int msPerSample = 1000 / Course::fullRate;

constexpr double leastHalfWidth = 0.02; // as a part of the mean

// A least width, since limits from identical welds would reject the next one for a rounding error.
Band threeSigma(double mean, double deviation)
{
    const double half = std::max(3 * deviation, leastHalfWidth * mean);
    return {std::max(0.0, mean - half), mean + half};
}

// Over all samples of all seams, computed from the statistics in the seams' records.
Band ofSamples(const QVector<Seam> &seams, Spread Seam::*value)
{
    double weight = 0;
    double mean = 0;
    for (const Seam &seam : seams) {
        weight += seam.arcTime;
        mean += (seam.*value).mean * seam.arcTime;
    }
    mean /= weight;
    double squares = 0;
    for (const Seam &seam : seams) {
        const double apart = (seam.*value).mean - mean;
        const double own = (seam.*value).deviation;
        squares += (own * own + apart * apart) * seam.arcTime;
    }
    return threeSigma(mean, std::sqrt(squares / weight));
}

template<typename Value>
Band ofSeams(const QVector<Seam> &seams, Value value)
{
    Statistics all;
    for (const Seam &seam : seams) {
        if (const std::optional<double> number = seam.*value)
            all.add(*number);
    }
    return all.count() ? threeSigma(all.spread().mean, all.spread().deviation) : Band{};
}

} // namespace

bool Band::holdsEasily(double value) const
{
    if (!low || !high)
        return holds(value);
    const double margin = (*high - *low) / 6;
    return value >= *low + margin && value <= *high - margin;
}

bool Limits::areSet() const
{
    const auto &rows = bandRows();
    return std::any_of(rows.begin(), rows.end(),
                       [this](const BandRow &row) { return (this->*row.band).isSet(); });
}

const QVector<BandRow> &bandRows()
{
    static const QVector<BandRow> rows{
        {QStringLiteral("current"), QStringLiteral("A"), &Limits::current, &Sample::current},
        {QStringLiteral("voltage"), QStringLiteral("V"), &Limits::voltage, &Sample::voltage},
        {QStringLiteral("speed"), QStringLiteral("mm/s"), &Limits::speed, &Sample::speed},
        {QStringLiteral("length"), QStringLiteral("mm"), &Limits::length, nullptr},
        {QStringLiteral("heat_input"), QStringLiteral("kJ/mm"), &Limits::heatInput, nullptr},
    };
    return rows;
}

std::optional<Limits> learnt(const QString &file, const QVector<Seam> &goodSeams)
{
    QVector<Seam> seams;
    std::copy_if(goodSeams.begin(), goodSeams.end(), std::back_inserter(seams),
                 [](const Seam &seam) { return seam.arcTime > 0; });
    if (seams.size() < fewestToLearnFrom)
        return std::nullopt;
    Limits limits;
    limits.file = file;
    limits.current = ofSamples(seams, &Seam::current);
    limits.voltage = ofSamples(seams, &Seam::voltage);
    limits.speed = ofSamples(seams, &Seam::speed);
    limits.length = ofSeams(seams, &Seam::length);
    limits.heatInput = ofSeams(seams, &Seam::heatInput);
    limits.learntFrom = seams.size();
    return limits;
}

const BandRow *Judge::take(const Sample &sample)
{
    m_waiting.append(sample);
    if (m_waiting.size() <= m_limits.maskEnd / msPerSample)
        return nullptr;
    const Sample due = m_waiting.takeFirst();
    if (++m_taken <= m_limits.maskStart / msPerSample)
        return nullptr;
    const BandRow *first = nullptr;
    for (const BandRow &row : bandRows()) {
        if (!row.sample || (m_limits.*row.band).holds(due.*row.sample)
            || m_broken.contains(row.name))
            continue;
        m_broken.append(row.name);
        first = first ? first : &row;
    }
    return first;
}

void Judge::conclude(Seam *seam) const
{
    QStringList red = m_broken;
    QStringList amber;
    const auto note = [](QStringList &list, bool isSo, const QString &word) {
        if (isSo)
            list.append(word);
    };
    const bool whole = seam->ended == ending::regular;
    note(red, whole && !m_limits.length.holds(seam->length), QStringLiteral("length"));
    note(red, seam->heatInput && !m_limits.heatInput.holds(*seam->heatInput),
         QStringLiteral("heat_input"));
    note(red, seam->ended == ending::alarm, reason::alarm);
    note(amber, seam->restrikes > 0, reason::restrike);
    note(amber, seam->interruptions > 0, reason::interruption);
    note(amber, seam->ended == ending::stopped, reason::stopped);
    note(amber, seam->ended == ending::interrupted || seam->ended == ending::linkLost,
         reason::incomplete);
    note(amber,
         red.isEmpty()
             && !(m_limits.current.holdsEasily(seam->current.mean)
                  && m_limits.voltage.holdsEasily(seam->voltage.mean)),
         reason::near);
    seam->reason = (red + amber).join(QLatin1Char(' '));
    const bool green = m_limits.areSet() && seam->arcTime > 0;
    seam->verdict = !seam->isReal() ? Verdict::None
        : !red.isEmpty()            ? Verdict::Red
        : !amber.isEmpty()          ? Verdict::Amber
        : green                     ? Verdict::Green
                                    : Verdict::None;
}

} // namespace welmo::book
