#pragma once

#include <QVariantMap>

#include "schema/welders.h"

namespace welmo::controller {

/// A choice among the welders: null when there is no such machine.
const schema::Welder *findWelder(const QString &protocol, const QString &brand,
                                 const QString &type);
/// Modes and voltage ranges of a welder with a rated current: what a pendant offers.
QVariantMap deviceParamOf(const schema::Welder &welder, int ratedCurrent);

} // namespace welmo::controller
