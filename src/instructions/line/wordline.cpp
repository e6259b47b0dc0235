#include "instructions/line/wordline.h"

namespace welmo::line {

Problems checkWordLine(Instruction instruction, const QString &line)
{
    if (line == instructionName(instruction))
        return {};
    return {commandProblem(instruction, line)};
}

} // namespace welmo::line
