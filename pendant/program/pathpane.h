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

/// What a program's picture is made from; all of it outlives the picture.
struct PathParts
{
    ProgramDocument *document;
    ProgramCheck *check;
    ProgramRun *run;
    RobotState *robot;
    Cell *cell;
};

/// The program as a picture, with what it is expected to take. Follows the program, the project and
/// the robot while it is seen.
class PathPane : public QFrame
{
    Q_OBJECT
public:
    PathPane(const PathParts &parts, QWidget *parent);

signals:
    /// Its way was touched; counted from 0.
    void lineWanted(int line);

protected:
    void showEvent(QShowEvent *event) override;

private:
    void plan();
    void follow();
    void showFiles(const controller::ProgramPlan &plan);

    PathParts m_parts;
    PathView *m_view;
    QLabel *m_sums;
    QLabel *m_files;
    QTimer m_soon; // a form or a project changes much at a time
    std::array<double, 6> m_start{}; // where the robot was before the program
    bool m_hasStart = false;
    bool m_wasUnderWay = false;
};

} // namespace welmo::pendant
