#include "pendant/program/pathview.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <limits>

#include "vu/xtheme.h"

namespace welmo::pendant {

namespace {

constexpr double margin = 44; // pixels, around and between the two views
constexpr double touchRadius = 26;
constexpr double leastSize = 20; // mm
constexpr QSizeF nameRoom{40, 18}; // pixels between the names of points

QColor themeColour(const char *key)
{
    return vu::xtheme::current().color(QString::fromLatin1(key));
}

struct Span
{
    double low = std::numeric_limits<double>::max();
    double high = std::numeric_limits<double>::lowest();

    void take(double value)
    {
        low = std::min(low, value);
        high = std::max(high, value);
    }
    double size() const { return high - low; }
    void widen()
    {
        const double lacks = std::max(0.0, leastSize - size());
        low -= lacks / 2;
        high += lacks / 2;
    }
};

double distance(const QPointF &point, const QPointF &from, const QPointF &to)
{
    const QPointF way = to - from;
    const double square = QPointF::dotProduct(way, way);
    const double part =
        square > 0 ? std::clamp(QPointF::dotProduct(point - from, way) / square, 0.0, 1.0) : 0;
    const QPointF off = point - (from + part * way);
    return std::hypot(off.x(), off.y());
}

double distance(const QPointF &point, const QPolygonF &line)
{
    double nearest = std::numeric_limits<double>::max();
    for (int i = 1; i < line.size(); ++i)
        nearest = std::min(nearest, distance(point, line.at(i - 1), line.at(i)));
    return nearest;
}

} // namespace

PathView::PathView(QWidget *parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("pndPath"));
    setAccessibleName(tr("The program's path"));
    setMinimumHeight(240);
}

void PathView::setPlan(const controller::ProgramPlan &plan, const QSet<int> &wrong)
{
    m_plan = plan;
    m_wrong = wrong;
    update();
}

void PathView::setTorch(const Place &tip, bool welds)
{
    if (welds && !m_welds)
        m_beads.push_back({m_tip});
    if (welds)
        m_beads.back().push_back(tip);
    m_welds = welds;
    m_tip = tip;
    m_hasTip = true;
    update();
}

void PathView::clearBead()
{
    m_beads.clear();
    m_welds = false;
    update();
}

QColor PathView::colourOf(const QString &file)
{
    int number = 0;
    for (const QChar sign : file)
        number = sign.isDigit() ? 10 * number + sign.digitValue() : number;
    const bool dark = themeColour("input_bkg").lightness() < 128;
    return QColor::fromHsv((205 + 97 * (number - 1)) % 360, 200, dark ? 235 : 165);
}

// The longer of x and y is drawn across, so that the picture fills the page.
PathView::Frame PathView::frameNow() const
{
    Span x, y, z;
    for (const auto &leg : m_plan.legs) {
        for (const Place &place : leg.way) {
            x.take(place[0]);
            y.take(place[1]);
            z.take(place[2]);
        }
    }
    Frame frame;
    if (m_plan.legs.empty())
        return frame;
    x.widen();
    y.widen();
    z.widen();
    frame.turned = y.size() > x.size();
    const Span &u = frame.turned ? y : x;
    const Span &v = frame.turned ? x : y;
    frame = {u.low, v.low, z.low, u.size(), v.size(), z.size(), frame.turned, 1};
    frame.scale = std::min((width() - 2 * margin) / frame.uSize,
                           (height() - 3 * margin) / (frame.vSize + frame.wSize));
    return frame;
}

QRectF PathView::area(const Frame &frame, Side side) const
{
    const double across = frame.uSize * frame.scale;
    const double left = (width() - across) / 2;
    const double above = frame.vSize * frame.scale;
    const double beside = frame.wSize * frame.scale;
    const double top = (height() - above - beside - margin) / 2;
    return side == FromAbove ? QRectF(left, top, across, above)
                             : QRectF(left, top + above + margin, across, beside);
}

// If y points to the right in the view from above, x points down.
QPointF PathView::at(const Frame &frame, Side side, const Place &place) const
{
    const QRectF rect = area(frame, side);
    const double u = (place[frame.turned ? 1 : 0] - frame.u0) * frame.scale;
    const double v = (place[frame.turned ? 0 : 1] - frame.v0) * frame.scale;
    const double w = (place[2] - frame.w0) * frame.scale;
    if (side == FromTheSide)
        return {rect.left() + u, rect.bottom() - w};
    return {rect.left() + u, frame.turned ? rect.top() + v : rect.bottom() - v};
}

QPolygonF PathView::polygon(const Frame &frame, Side side, const std::vector<Place> &places) const
{
    QPolygonF line;
    for (const Place &place : places)
        line.append(at(frame, side, place));
    return line;
}

void PathView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), themeColour("input_bkg"));
    painter.setFont(font());
    if (m_plan.legs.empty()) {
        painter.setPen(themeColour("text_dim"));
        painter.drawText(rect(), Qt::AlignCenter, tr("The program moves nowhere."));
        return;
    }
    const Frame frame = frameNow();
    for (const Side side : {FromAbove, FromTheSide})
        paintSide(&painter, frame, side);
}

void PathView::paintSide(QPainter *painter, const Frame &frame, Side side) const
{
    paintAxes(painter, frame, side);
    paintLegs(painter, frame, side);
    painter->setPen(QPen(themeColour("warning"), 5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    for (const auto &bead : m_beads)
        painter->drawPolyline(polygon(frame, side, bead));
    paintMarks(painter, frame, side);
    if (!m_hasTip)
        return;
    painter->setPen(QPen(themeColour("text"), 2));
    painter->setBrush(themeColour(m_welds ? "warning" : "ok"));
    painter->drawEllipse(at(frame, side, m_tip), 7, 7);
}

void PathView::paintLegs(QPainter *painter, const Frame &frame, Side side) const
{
    painter->setBrush(Qt::NoBrush);
    for (const bool seams : {false, true}) {
        for (const auto &leg : m_plan.legs) {
            if (leg.isSeam != seams)
                continue;
            const QColor colour = seams ? colourOf(leg.file) : themeColour("text_dim");
            painter->setPen(QPen(colour, seams ? 3 : 1.5, seams ? Qt::SolidLine : Qt::DashLine));
            painter->drawPolyline(polygon(frame, side, leg.way));
            painter->setPen(QPen(colour, 1));
            painter->drawPolyline(polygon(frame, side, leg.weave));
        }
    }
}

void PathView::paintMarks(QPainter *painter, const Frame &frame, Side side) const
{
    paintNames(painter, frame, side);
    for (const auto &leg : m_plan.legs) {
        const QPointF end = at(frame, side, leg.way.back());
        painter->setPen(Qt::NoPen);
        painter->setBrush(themeColour("text"));
        painter->drawEllipse(end, 3, 3);
        if (!m_wrong.contains(leg.line))
            continue;
        painter->setPen(QPen(themeColour("error"), 3));
        painter->setBrush(Qt::NoBrush);
        painter->drawEllipse(end, 12, 12);
    }
}

// Each point is named once, where it is; a place beside it only if nothing ends at the point.
void PathView::paintNames(QPainter *painter, const Frame &frame, Side side) const
{
    QSet<QString> named;
    std::vector<QPointF> places;
    painter->setPen(themeColour("text"));
    for (const bool beside : {false, true}) {
        for (const auto &leg : m_plan.legs) {
            const QPointF end = at(frame, side, leg.way.back());
            const auto isTaken = [&end](const QPointF &place) {
                return std::abs(end.x() - place.x()) < nameRoom.width()
                    && std::abs(end.y() - place.y()) < nameRoom.height();
            };
            if (leg.isBeside != beside || named.contains(leg.target)
                || std::any_of(places.begin(), places.end(), isTaken))
                continue;
            named.insert(leg.target);
            places.push_back(end);
            painter->drawText(end + QPointF(8, -7), leg.target);
        }
    }
}

void PathView::paintAxes(QPainter *painter, const Frame &frame, Side side) const
{
    constexpr double arrow = 30;
    const QPointF origin = side == FromAbove ? QPointF(16, frame.turned ? 40 : 40 + arrow)
                                             : QPointF(16, area(frame, side).top() + 8 + arrow);
    const bool down = side == FromAbove && frame.turned;
    const QString across = frame.turned ? QStringLiteral("y") : QStringLiteral("x");
    const QString along = side == FromTheSide ? QStringLiteral("z")
        : frame.turned                        ? QStringLiteral("x")
                                              : QStringLiteral("y");
    const QPointF end = origin + QPointF(0, down ? arrow : -arrow);
    painter->setPen(QPen(themeColour("text_dim"), 1.5));
    painter->drawLine(origin, origin + QPointF(arrow, 0));
    painter->drawLine(origin, end);
    painter->drawText(origin + QPointF(arrow + 4, 5), across);
    painter->drawText(end + QPointF(6, down ? 4 : 8), along);
    const QString title = side == FromAbove ? tr("From above") : tr("From the side");
    painter->drawText(QPointF(16, side == FromAbove ? 24 : origin.y() - arrow - 12), title);
}

void PathView::mouseReleaseEvent(QMouseEvent *event)
{
    const Frame frame = frameNow();
    double nearest = touchRadius;
    int line = -1;
    for (const auto &leg : m_plan.legs) {
        for (const Side side : {FromAbove, FromTheSide}) {
            // A seam is preferred over a move that crosses it.
            const double away = distance(event->localPos(), polygon(frame, side, leg.way))
                + (leg.isSeam ? 0 : touchRadius / 2);
            if (away < nearest) {
                nearest = away;
                line = leg.line;
            }
        }
    }
    if (line >= 0)
        emit lineTouched(line);
}

} // namespace welmo::pendant
