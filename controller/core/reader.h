#pragma once

#include "controller/core/request.h"

namespace welmo::controller {

/// A source of stored values: the controller's store, or a copy of its values elsewhere.
class Reader
{
public:
    virtual ~Reader() = default;
    /// The stored value, or @p fallback if there is none.
    virtual Reply load(const QString &path, const QString &key = {},
                       const QVariant &fallback = {}) const = 0;
};

} // namespace welmo::controller
