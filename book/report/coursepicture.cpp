#include "book/report/coursepicture.h"

#include <QPainter>
#include <cmath>

namespace welmo::book {

namespace {

constexpr QColor ink(0x17, 0x21, 0x2B);
constexpr QColor grid(0xCB, 0xD3, 0xDA);
constexpr QColor line(0x0A, 0x61, 0xA6);
constexpr QColor bandColor(26, 105, 48, 40);

struct Strip
{
    QRectF box;
    double seconds = 0; ///< the time at the right edge
    double most = 0; ///< the value at the upper edge

    QPointF at(double time, double value) const
    {
        return {box.left() + box.width() * time / seconds,
                box.bottom() - box.height() * qBound(0.0, value, most) / most};
    }
};

// The smallest of 1, 2, 5, 10, … above a quarter of the range, which gives three or four lines.
double stepFor(double range)
{
    const double power = std::pow(10, std::floor(std::log10(range / 4)));
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (factor * power >= range / 4)
            return factor * power;
    }
    return 10 * power;
}

double mostOf(const BandRow &row, const Course &course, const Band &band,
              const std::optional<double> &set)
{
    double most = qMax(band.high.value_or(0), set.value_or(0));
    for (const Sample &sample : course.samples)
        most = qMax(most, sample.*row.sample);
    return most > 0 ? most * 1.1 : 1;
}

void drawScale(QPainter *painter, const Strip &strip, bool withTime)
{
    const int text = painter->fontMetrics().height();
    const double step = stepFor(strip.most);
    for (int i = 0; i * step <= strip.most; ++i) {
        const double value = i * step;
        const QPointF left = strip.at(0, value);
        painter->setPen(grid);
        painter->drawLine(left, strip.at(strip.seconds, value));
        painter->setPen(ink);
        painter->drawText(QRectF(0, left.y() - text / 2.0, strip.box.left() - text / 3.0, text),
                          Qt::AlignRight | Qt::AlignVCenter, QString::number(value));
    }
    const double seconds = stepFor(strip.seconds);
    for (int i = 0; withTime && i * seconds <= strip.seconds; ++i) {
        const double time = i * seconds;
        painter->drawText(QRectF(strip.at(time, 0) - QPointF(100, -text / 4.0), QSizeF(200, text)),
                          Qt::AlignHCenter, QString::number(time) + QStringLiteral(" s"));
    }
}

void drawStrip(QPainter *painter, const Strip &strip, const BandRow &row, const Course &course,
               const Band &band, const std::optional<double> &set)
{
    if (band.isSet())
        painter->fillRect(QRectF(strip.at(0, band.high.value_or(strip.most)),
                                 strip.at(strip.seconds, band.low.value_or(0))),
                          bandColor);
    const double width = painter->fontMetrics().height() / 8.0;
    if (set) {
        painter->setPen(QPen(ink, width / 2, Qt::DashLine));
        painter->drawLine(strip.at(0, *set), strip.at(strip.seconds, *set));
    }
    QPolygonF points;
    for (int i = 0; i < course.samples.size(); ++i)
        points.append(strip.at(double(i) / course.rate, course.samples[i].*row.sample));
    painter->setPen(QPen(line, width));
    painter->drawPolyline(points);
    painter->setPen(ink);
    painter->drawText(strip.box.topLeft() - QPointF(0, width * 2),
                      QStringLiteral("%1 [%2]").arg(row.name, row.unit));
}

} // namespace

QImage coursePicture(const Seam &seam, const Course &course, const Limits &limits, QSize size)
{
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    QFont font = painter.font();
    font.setPixelSize(size.height() / 28);
    painter.setFont(font);
    const std::optional<double> sets[] = {seam.setCurrent, seam.setVoltage, seam.setSpeed};
    const double text = painter.fontMetrics().height();
    const double height = (size.height() - text * 2) / std::size(sets);
    const double seconds = qMax(1.0, double(course.samples.size()) / course.rate);
    for (size_t i = 0; i < std::size(sets); ++i) {
        const BandRow &row = bandRows()[int(i)];
        const Band &band = limits.*row.band;
        const Strip strip{QRectF(text * 3.5, i * height + text * 1.6, size.width() - text * 5,
                                 height - text * 1.9),
                          seconds, mostOf(row, course, band, sets[i])};
        drawScale(&painter, strip, i + 1 == std::size(sets));
        drawStrip(&painter, strip, row, course, band, sets[i]);
    }
    return picture;
}

} // namespace welmo::book
