#pragma once

#include <QStringList>

#include "tessa/controllerstatus.h"

namespace welmo::pendant {

/// The user levels in the operator's language, in the order of the enumeration.
QStringList levelTexts();

inline QString levelText(tessa::ControllerStatus::Level level)
{
    return levelTexts().at(static_cast<int>(level));
}

} // namespace welmo::pendant
