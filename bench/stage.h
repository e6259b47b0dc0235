#pragma once

#include <QWidget>
#include <memory>

#include "bench/measure.h"
#include "support/formhost.h"

namespace bench {

constexpr QSize pageSize{1024, 700}; ///< of the pendant's area for a form or a page

/// The time that an operator waits for a widget: making, layout and painting; its deletion does
/// not count.
template<typename Make>
Trial opening(const Make &make)
{
    return [make] {
        std::unique_ptr<QWidget> widget;
        return cost([&] {
            widget.reset(make());
            widget->resize(pageSize);
            widget->grab();
        });
    };
}

} // namespace bench
