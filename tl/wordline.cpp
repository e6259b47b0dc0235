#include "tl/wordline.h"

namespace welmo::tl {

Problems checkWordLine(Instruction instruction, const QString &line)
{
    if (line == instructionName(instruction))
        return {};
    return {commandProblem(instruction, line)};
}

} // namespace welmo::tl
