#pragma once

#include "pendant/pages/hostpage.h"

class QComboBox;
class QLabel;

namespace tessa {
class Host;
}

namespace welmo::pendant {

class Cell;
class JogPad;
class JogSpeed;
class KeyHolds;
class ProjectPoints;
class RobotState;

/// What the page shows and uses; everything must outlive the page.
struct JogParts
{
    tessa::Host *host;
    KeyHolds *holds;
    Cell *cell;
    RobotState *robot;
    JogSpeed *speed;
};

/// Moving the robot by hand, and the project's points. The keys work while the page is visible, in
/// manual mode, with the link up and no program on the robot.
class JogPage : public HostPage
{
    Q_OBJECT
public:
    explicit JogPage(const JogParts &parts, QWidget *parent = nullptr);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    QWidget *makeMoving();
    QLayout *makeSpeed(QWidget *card);
    bool isJoint() const;
    void start(int axis, int direction);
    void stop();
    void refreshAxes();
    void refresh();
    QString obstacle() const;

    JogParts m_parts;
    JogPad *m_pad = nullptr;
    QComboBox *m_frame = nullptr;
    QLabel *m_speed = nullptr;
    QLabel *m_state = nullptr;
};

} // namespace welmo::pendant
