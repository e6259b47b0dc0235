#pragma once

#include <QWidget>
#include <memory>

#include "bench/measure.h"
#include "support/formhost.h"

namespace bench {

constexpr QSize pageSize{1024, 700}; ///< of the place that the pendant has for a form or a page

/// What an operator waits for: the widget is made, laid out and painted. Microseconds; that it is
/// taken down again does not count.
template<typename Make>
Trial opening(const Make &make)
{
    return [make] {
        std::unique_ptr<QWidget> widget;
        return microseconds([&] {
            widget.reset(make());
            widget->resize(pageSize);
            widget->grab();
        });
    };
}

} // namespace bench
