#pragma once

#include "tessa/basecontentwidget.h"

namespace welmo::pendant {

/// A form of the pendant's own. Its text goes into the program as it is, and may be several lines.
class HostForm : public tessa::BaseContentWidget
{
    Q_OBJECT
public:
    using BaseContentWidget::BaseContentWidget;
};

} // namespace welmo::pendant
