#pragma once

namespace welmo::tl {

class ProgramText;

/// Rewrites every line that has a normal form and is not in it; all others keep their bytes.
/// Gives the number of lines that changed.
int normalise(ProgramText &program);

} // namespace welmo::tl
