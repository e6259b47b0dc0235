#pragma once

#include <QWidget>

class EnableButton;
class QLabel;

namespace tessa {
class ControllerStatus;
}

namespace welmo::pendant {

class Cell;
class LinkControl;

/// The strip above everything: which cell, who works it, what it does, in which weld mode, and the
/// link to it.
class HeaderBar : public QWidget
{
    Q_OBJECT
public:
    /// @p place is the cell and the user of a networked cell; empty for the one in here, whose user
    /// is the level.
    HeaderBar(tessa::ControllerStatus *status, Cell *cell, LinkControl *link, const QString &place,
              QWidget *parent = nullptr);

private:
    QLabel *addChip(const QString &name, const QString &tip);
    void refresh();

    tessa::ControllerStatus *m_status;
    Cell *m_cell;
    LinkControl *m_link;
    QString m_place;
    QLabel *m_user;
    QLabel *m_mode;
    QLabel *m_state;
    EnableButton *m_switch;
};

} // namespace welmo::pendant
