#pragma once

#include <QVariantMap>

#include "schema/welders.h"

namespace welmo::controller {

/// The welder of these names; null if there is none.
const schema::Welder *findWelder(const QString &protocol, const QString &brand,
                                 const QString &type);
/// Modes and voltage ranges of a welder with a rated current, as a pendant offers them.
QVariantMap deviceParamOf(const schema::Welder &welder, int ratedCurrent);

} // namespace welmo::controller
