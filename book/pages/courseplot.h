#pragma once

#include <QWidget>
#include <vector>

#include "book/records/course.h"
#include "book/records/limits.h"

class QwtPlot;
class QwtPlotCurve;
class QwtPlotMarker;
class QwtPlotZoneItem;

namespace welmo::book {

/// Current, voltage and speed over time, in strips: limits as bands, set values as dashed lines, a
/// second course as fainter lines.
class CoursePlot : public QWidget
{
    Q_OBJECT
public:
    explicit CoursePlot(QWidget *parent = nullptr);

    /// @p first is the time of the first sample in seconds.
    void setCourse(const Course &course, double first = 0);
    void setSecond(const Course &course);
    void setLimits(const Limits &limits);
    void setSetValues(const Seam &seam);
    /// Sets the shown time span in seconds; without a call all of the course is shown.
    void setSpan(double from, double to);
    void clear();
    void replot();

private:
    struct Strip
    {
        const BandRow *row;
        QwtPlot *plot;
        QwtPlotCurve *first;
        QwtPlotCurve *second;
        QwtPlotZoneItem *band;
        QwtPlotMarker *set;
    };

    Strip makeStrip(const BandRow &row);
    void show(QwtPlotCurve *curve, const BandRow &row, const Course &course, double first) const;
    void scale(Strip &strip);

    std::vector<Strip> m_strips;
};

} // namespace welmo::book
