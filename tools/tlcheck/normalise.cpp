#include "tools/tlcheck/normalise.h"

#include "instructions/line/normalform.h"
#include "instructions/line/programtext.h"

namespace tlcheck {

int normalise(welmo::line::ProgramText &program)
{
    int changed = 0;
    for (int i = 0; i < program.lineCount(); ++i) {
        const QString line = program.line(i);
        const QString normal = welmo::line::normalForm(line);
        if (normal.isNull() || normal == line || !program.isFaithful(i))
            continue;
        program.setLine(i, normal);
        ++changed;
    }
    return changed;
}

} // namespace tlcheck
