#pragma once

#include "pendant/hostpage.h"

namespace controller {
class Faults;
}

namespace pendant {

class LinkControl;

/// The controller seen from the pendant: the link, and what can be made to go wrong.
class ControllerPage : public HostPage
{
    Q_OBJECT
public:
    /// @p faults is null for a controller elsewhere, which others may work too.
    ControllerPage(LinkControl *link, controller::Faults *faults, QWidget *parent = nullptr);

private:
    QWidget *makeLink(LinkControl *link);
};

} // namespace pendant
