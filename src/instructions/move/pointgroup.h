#pragma once

#include <QWidget>
#include <memory>

#include "instructions/move/pointrobot.h"

namespace welmo {

namespace Ui {
class PointGroup;
}
class PointEdit;
class TaughtNotice;

/// One point of a move in a property form: what the line says of it, where it is, and buttons that
/// move the robot there. WMoveC has two of them.
class PointGroup : public QWidget
{
    Q_OBJECT
public:
    explicit PointGroup(QWidget *parent = nullptr);
    ~PointGroup() override;

    PointEdit *edit() const;
    /// The tool and work object of the line: positions are read and moves are made with them.
    void setTool(const QString &tool);
    void setWorkObject(const QString &workObject);

    /// Shows the chosen point again if the project changed it; a position that was edited, or read
    /// from the robot, stays.
    void refresh();
    /// Asks the user, then shows where the robot is. If the robot does not answer, that is reported
    /// and nothing else changes.
    void updateLocation();
    /// Adds a project point where the robot is, and chooses it.
    void saveLocation();
    /// Shows the pose that the line's expression means, computed from the point's stored pose even
    /// if the shown position was edited: the line names the point.
    void computeComplex();
    /// Clears the computed pose when the expression changed, so that the robot cannot be moved to
    /// it.
    void forgetComplex();
    void moveToPoint(robot::Motion motion);
    /// Does nothing without a computed pose.
    void moveToComplex(robot::Motion motion);
    void stopMove();

signals:
    /// A point was added to the project; the lists are to be read again.
    void pointAdded();
    /// The line is to use this tool and this work object.
    void toolAndObjectWanted(const QString &tool, const QString &workObject);

private:
    void initConnect();
    void showPoint();
    void keepPosition(const QString &title);
    void compareWithPoint();
    void move(const PoseValues &pose, const PoseFrame &frame, robot::Motion motion);

    std::unique_ptr<Ui::PointGroup> ui;
    TaughtNotice *m_taught;
    QString m_tool;
    QString m_workObject;
    std::optional<points::Point> m_point; ///< the chosen point when it was last read
    bool m_showsPoint = true; ///< false: the position was read from the robot, or edited
    PoseFrame m_positionFrame; ///< in which the position's values are measured
    PoseFrame m_complexFrame;
};

} // namespace welmo
