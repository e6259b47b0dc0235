#pragma once

#include <QSet>
#include <QWidget>

#include "controller/program/programplan.h"

namespace welmo::pendant {

/// A program's paths from above and from the side, to one scale: moves, seams coloured by their
/// file, points, lines with findings, the torch and what it has welded.
class PathView : public QWidget
{
    Q_OBJECT
public:
    using Place = controller::ProgramPlan::Place;

    explicit PathView(QWidget *parent = nullptr);

    /// @p wrong are the lines with findings, from 0.
    void setPlan(const controller::ProgramPlan &plan, const QSet<int> &wrong);
    /// Shows the torch; while it welds, a bead is drawn behind it.
    void setTorch(const Place &tip, bool welds);
    void clearBead();

    /// The colour of a welding file.
    static QColor colourOf(const QString &file);

signals:
    /// The operator touched a path.
    void lineTouched(int line);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    enum Side { FromAbove, FromTheSide };
    struct Frame
    {
        double u0 = 0, v0 = 0, w0 = 0; ///< the lowest value of each axis, mm
        double uSize = 1, vSize = 1, wSize = 1;
        bool turned = false; ///< y is drawn to the right instead of x
        double scale = 1; ///< pixels per mm
    };

    Frame frameNow() const;
    QPointF at(const Frame &frame, Side side, const Place &place) const;
    QPolygonF polygon(const Frame &frame, Side side, const std::vector<Place> &places) const;
    void paintSide(QPainter *painter, const Frame &frame, Side side) const;
    void paintLegs(QPainter *painter, const Frame &frame, Side side) const;
    void paintMarks(QPainter *painter, const Frame &frame, Side side) const;
    void paintNames(QPainter *painter, const Frame &frame, Side side) const;
    void paintAxes(QPainter *painter, const Frame &frame, Side side) const;
    QRectF area(const Frame &frame, Side side) const;

    controller::ProgramPlan m_plan;
    QSet<int> m_wrong;
    Place m_tip{};
    bool m_hasTip = false;
    std::vector<std::vector<Place>> m_beads;
    bool m_welds = false;
};

} // namespace welmo::pendant
