#pragma once

#include "pendant/pages/hostpage.h"

namespace welmo::controller {
class Faults;
}

namespace tessa {
class ControllerStatus;
}

namespace welmo::pendant {

class Cell;
class LinkControl;

/// The controller as seen from the pendant: the link, and the faults that can be simulated.
class ControllerPage : public HostPage
{
    Q_OBJECT
public:
    /// @p faults is null for a controller on the network, which other pendants may use too.
    ControllerPage(LinkControl *link, Cell *cell, tessa::ControllerStatus *status,
                   controller::Faults *faults, QWidget *parent = nullptr);

private:
    QWidget *makeLink(LinkControl *link);
};

} // namespace welmo::pendant
