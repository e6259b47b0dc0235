#pragma once

#include <QString>
#include <QStringList>

/// The weld running modes.
namespace welmo::weldmode {

/// "test_run", "simu", "real": the order in which the mode key goes round.
const QStringList &all();

/// The mode after @p mode; an unknown one is followed by the first.
QString next(const QString &mode);

} // namespace welmo::weldmode
