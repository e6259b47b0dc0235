#pragma once

#include <QFrame>
#include <QTimer>
#include <array>

class QLabel;

namespace welmo::controller {
struct ProgramPlan;
}

namespace welmo::pendant {

class Cell;
class PathView;
class ProgramCheck;
class ProgramDocument;
class ProgramRun;
class RobotState;

/// What the picture of a program is made from; everything must outlive the pane.
struct PathParts
{
    ProgramDocument *document;
    ProgramCheck *check;
    ProgramRun *run;
    RobotState *robot;
    Cell *cell;
};

/// The program as a picture, with its expected time and wire. Follows the program, the project and
/// the robot while it is visible.
class PathPane : public QFrame
{
    Q_OBJECT
public:
    PathPane(const PathParts &parts, QWidget *parent);

signals:
    /// The operator touched the path of this line, counted from 0.
    void lineWanted(int line);

protected:
    void showEvent(QShowEvent *event) override;

private:
    void plan();
    void follow();
    bool burns() const;
    void showFiles(const controller::ProgramPlan &plan);

    PathParts m_parts;
    PathView *m_view;
    QLabel *m_sums;
    QLabel *m_files;
    QTimer m_soon; // delays the update, since a form or a project changes often at once
    std::array<double, 6> m_start{}; // joints of the robot before the run
    bool m_hasStart = false;
    bool m_wasUnderWay = false;
};

} // namespace welmo::pendant
