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

/// One point of a move in a property form: what the line says of it, where that is, and the robot
/// brought there. WMoveC has two of them.
class PointGroup : public QWidget
{
    Q_OBJECT
public:
    explicit PointGroup(QWidget *parent = nullptr);
    ~PointGroup() override;

    PointEdit *edit() const;
    /// The names with which the position is read, and the tool whose tip is moved: the line's own.
    void setTool(const QString &tool);
    void setWorkObject(const QString &workObject);

    /// Shows the chosen point again if it was changed; what was edited, or read from the robot,
    /// stays.
    void refresh();
    /// Asks first, then shows where the robot is. Without an answer nothing changes but the log.
    void updateLocation();
    /// Adds a project point where the robot is, and chooses it.
    void saveLocation();
    /// Shows the pose that the line's expression means. The point's stored pose counts, whatever
    /// the boxes of the position hold: the line names the point.
    void computeComplex();
    /// A target that no longer belongs to what is shown must not move the robot.
    void forgetComplex();
    void moveToPoint(robot::Motion motion);
    /// Only to a target that was computed from what is shown.
    void moveToComplex(robot::Motion motion);
    void stopMove();

signals:
    /// The project has another point; the lists are to be read again.
    void pointAdded();
    /// The line shall use this tool and this work object.
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
    std::optional<points::Point> m_point; ///< the chosen one, as it was last looked at
    bool m_showsPoint = true; ///< else the position is the robot's, or was edited
    PoseFrame m_positionFrame; ///< where the boxes of the position are measured
    PoseFrame m_complexFrame;
};

} // namespace welmo
