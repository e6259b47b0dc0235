#pragma once

#include <QString>
#include <QStringList>

/// The weld running modes, as the controller names them.
namespace welmo::schema::weldmode {

inline constexpr char testRun[] = "test_run"; ///< moves only, at the dry-run speed
inline constexpr char simulation[] = "simu"; ///< moves as in the weld, without an arc
inline constexpr char real[] = "real"; ///< welds

/// In the order in which the mode key switches them.
const QStringList &all();

/// The mode after @p mode; an unknown one is followed by the first.
QString next(const QString &mode);

} // namespace welmo::schema::weldmode
