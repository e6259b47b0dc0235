#pragma once

#include "controller/core/request.h"

namespace welmo::controller {

/// Where stored values are read: the store of a controller, or a copy of it elsewhere.
class Reader
{
public:
    virtual ~Reader() = default;
    /// The stored value, or @p fallback when there is none.
    virtual Reply load(const QString &path, const QString &key = {},
                       const QVariant &fallback = {}) const = 0;
};

} // namespace welmo::controller
