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

/// The strip at the top: the cell, its user, its state, the weld mode, and the link.
class HeaderBar : public QWidget
{
    Q_OBJECT
public:
    /// @p place is cell and user of a cell on the network; empty for a controller in this process,
    /// whose user is the level.
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
