#include "book/records/course.h"

#include <QDataStream>
#include <QtEndian>
#include <cmath>

namespace welmo::book {

namespace {

constexpr double resolution = 10;
constexpr double Sample::*channels[] = {&Sample::current, &Sample::voltage, &Sample::speed};

qint32 stored(double value)
{
    constexpr double most = 1e8;
    return static_cast<qint32>(std::lround(qBound(-most, value, most) * resolution));
}

} // namespace

// The channels one after the other, so that similar bytes are adjacent; most differences need one
// byte of four.
QByteArray packed(const Samples &samples)
{
    QByteArray plain;
    for (const auto channel : channels) {
        qint32 before = 0;
        for (const Sample &sample : samples) {
            const qint32 value = stored(sample.*channel);
            const qint32 difference = qToLittleEndian(value - before);
            plain.append(reinterpret_cast<const char *>(&difference), sizeof difference);
            before = value;
        }
    }
    return qCompress(plain);
}

Samples unpacked(const QByteArray &bytes)
{
    const QByteArray plain = bytes.isEmpty() ? QByteArray() : qUncompress(bytes);
    const int count = plain.size() / int(sizeof(qint32) * std::size(channels));
    Samples samples(count);
    const char *at = plain.constData();
    for (const auto channel : channels) {
        qint32 value = 0;
        for (Sample &sample : samples) {
            value += qFromLittleEndian<qint32>(at);
            at += sizeof value;
            sample.*channel = value / resolution;
        }
    }
    return samples;
}

Samples thinned(const Samples &samples, int count)
{
    Samples few;
    for (int first = 0; first < samples.size(); first += count) {
        const int some = qMin(count, samples.size() - first);
        Sample mean;
        for (const auto channel : channels) {
            for (int i = 0; i < some; ++i)
                mean.*channel += samples[first + i].*channel / some;
        }
        few.append(mean);
    }
    return few;
}

} // namespace welmo::book
