#pragma once

#include <QString>

namespace welmo::pendant {

class ProgramCheck;

/// Why a line that a form wrote does not say what was chosen; empty if it does.
QString refusalOf(const QString &written, ProgramCheck *check);

} // namespace welmo::pendant
