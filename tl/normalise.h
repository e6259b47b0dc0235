#pragma once

namespace welmo::tl {

class ProgramText;

/// Rewrites every line that has a normal form and is not in it; all others keep their bytes.
/// Returns the number of changed lines.
int normalise(ProgramText &program);

} // namespace welmo::tl
