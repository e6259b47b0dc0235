#pragma once

#include "pendant/pages/hostpage.h"

class EnableButton;
class QComboBox;
class QGridLayout;

namespace tessa {
class ControllerStatus;
}

namespace welmo::pendant {

class Cell;

/// The switches of a cell: operating mode, power, emergency stop, and the user's level. A cell on
/// the network knows its users itself.
class CellPanel : public Card
{
    Q_OBJECT
public:
    CellPanel(tessa::ControllerStatus *status, Cell *cell, bool hasLevel,
              QWidget *parent = nullptr);

private:
    QComboBox *addChoice(QGridLayout *grid, const QString &caption, const QString &name,
                         const QStringList &texts);
    void refresh();

    tessa::ControllerStatus *m_status;
    QComboBox *m_mode;
    QComboBox *m_power;
    QComboBox *m_level = nullptr;
    EnableButton *m_fault;
};

} // namespace welmo::pendant
