#pragma once

#include <QVariantMap>

namespace welmo::pendant {

/// A run's result in words: how it ended, what went wrong, how much of it was welded.
QString runResultText(const QVariantMap &result);

} // namespace welmo::pendant
