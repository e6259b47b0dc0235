#include "book/pages/courseplot.h"

#include <QVBoxLayout>
#include <qwt/qwt_plot.h>
#include <qwt/qwt_plot_canvas.h>
#include <qwt/qwt_plot_curve.h>
#include <qwt/qwt_plot_grid.h>
#include <qwt/qwt_plot_layout.h>
#include <qwt/qwt_plot_marker.h>
#include <qwt/qwt_plot_zoneitem.h>
#include <qwt/qwt_scale_draw.h>
#include <qwt/qwt_text.h>

#include "book/keeper/bookkeeper.h"
#include "book/pages/words.h"

namespace welmo::book {

namespace {

constexpr int axisWidth =
    46; // the same for every strip, so that equal times stand above each other

QColor faint(QColor color, int alpha)
{
    color.setAlpha(alpha);
    return color;
}

QwtText caption(const BandRow &row)
{
    QString title = bandTitle(row.name);
    title[0] = title[0].toUpper();
    QwtText text(QStringLiteral("%1, %2").arg(title, row.unit));
    text.setColor(themeColor("text_dim"));
    text.setRenderFlags(Qt::AlignLeft | Qt::AlignVCenter);
    return text;
}

} // namespace

CoursePlot::CoursePlot(QWidget *parent)
    : QWidget(parent)
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2);
    for (const BandRow &row : bandRows()) {
        if (!row.sample)
            continue;
        m_strips.push_back(makeStrip(row));
        column->addWidget(m_strips.back().plot, 1);
    }
    for (size_t i = 0; i + 1 < m_strips.size(); ++i) // one time axis for all strips
        m_strips[i].plot->enableAxis(QwtPlot::xBottom, false);
}

CoursePlot::Strip CoursePlot::makeStrip(const BandRow &row)
{
    Strip strip{&row,
                new QwtPlot(this),
                new QwtPlotCurve,
                new QwtPlotCurve,
                new QwtPlotZoneItem,
                new QwtPlotMarker};
    QwtPlot *plot = strip.plot;
    plot->setMinimumHeight(70);
    plot->setTitle(caption(row));
    plot->setCanvasBackground(themeColor("input_bkg"));
    plot->plotLayout()->setAlignCanvasToScales(true);
    plot->axisScaleDraw(QwtPlot::yLeft)->setMinimumExtent(axisWidth);
    plot->setAxisMaxMajor(QwtPlot::yLeft, 3);
    static_cast<QwtPlotCanvas *>(plot->canvas())->setFrameStyle(QFrame::NoFrame);

    auto *grid = new QwtPlotGrid;
    grid->setPen(themeColor("tbl_grid"), 0);
    grid->attach(plot);
    strip.band->setOrientation(Qt::Horizontal);
    strip.band->setBrush(faint(themeColor("ok"), 40));
    strip.band->setPen(faint(themeColor("ok"), 140));
    strip.set->setLineStyle(QwtPlotMarker::HLine);
    strip.set->setLinePen(themeColor("text"), 1, Qt::DashLine);
    strip.second->setPen(themeColor("warning"), 1);
    strip.first->setPen(themeColor("topic"), 1.5);
    for (QwtPlotItem *item :
         {static_cast<QwtPlotItem *>(strip.band), static_cast<QwtPlotItem *>(strip.set),
          static_cast<QwtPlotItem *>(strip.second), static_cast<QwtPlotItem *>(strip.first)})
        item->attach(plot); // the plot owns it from now on
    return strip;
}

void CoursePlot::show(QwtPlotCurve *curve, const BandRow &row, const Course &course,
                      double first) const
{
    QVector<QPointF> points;
    points.reserve(course.samples.size());
    for (int i = 0; i < course.samples.size(); ++i)
        points.append({first + double(i) / course.rate, course.samples[i].*row.sample});
    curve->setSamples(points);
}

void CoursePlot::setCourse(const Course &course, double first)
{
    for (const Strip &strip : m_strips)
        show(strip.first, *strip.row, course, first);
}

void CoursePlot::setSecond(const Course &course)
{
    for (const Strip &strip : m_strips)
        show(strip.second, *strip.row, course, 0);
}

void CoursePlot::setLimits(const Limits &limits)
{
    for (const Strip &strip : m_strips) {
        const Band &band = limits.*strip.row->band;
        strip.band->setVisible(band.isSet());
        if (band.isSet())
            strip.band->setInterval(band.low.value_or(0),
                                    band.high.value_or(band.low.value_or(0) * 2));
    }
}

void CoursePlot::setSetValues(const Seam &seam)
{
    const std::optional<double> values[] = {seam.setCurrent, seam.setVoltage, seam.setSpeed};
    for (size_t i = 0; i < m_strips.size(); ++i) {
        m_strips[i].set->setVisible(values[i].has_value());
        m_strips[i].set->setYValue(values[i].value_or(0));
    }
}

void CoursePlot::setSpan(double from, double to)
{
    for (const Strip &strip : m_strips)
        strip.plot->setAxisScale(QwtPlot::xBottom, from, to);
}

void CoursePlot::clear()
{
    setCourse({});
    setSecond({});
    setLimits({});
    setSetValues({});
}

// From 0 to the highest value, with a margin; the band counts as well.
void CoursePlot::scale(Strip &strip)
{
    double most = 0;
    for (const QwtPlotCurve *curve : {strip.first, strip.second}) {
        if (curve->dataSize() > 0)
            most = qMax(most, curve->maxYValue());
    }
    if (strip.band->isVisible())
        most = qMax(most, strip.band->interval().maxValue());
    if (strip.set->isVisible())
        most = qMax(most, strip.set->yValue());
    strip.plot->setAxisScale(QwtPlot::yLeft, 0, most > 0 ? most * 1.1 : 1);
}

void CoursePlot::replot()
{
    for (Strip &strip : m_strips) {
        scale(strip);
        strip.plot->replot();
    }
}

} // namespace welmo::book
