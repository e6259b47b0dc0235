#pragma once

#include <QByteArray>

#include "book/records/limits.h"

namespace welmo::book {

/// Limits as they are stored and backed up: {"current": {"low": 1, "high": 2}, "mask_start": 500,
/// …}.
QByteArray toJson(const Limits &limits);
/// Missing values are not set.
Limits limitsFromJson(const QString &file, const QByteArray &json);

} // namespace welmo::book
