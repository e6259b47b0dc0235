#pragma once

namespace welmo::line {
class ProgramText;
}

namespace tlcheck {

/// Rewrites every line that has a normal form and is not in it; all others keep their bytes.
/// Gives the number of lines that changed.
int normalise(welmo::line::ProgramText &program);

} // namespace tlcheck
