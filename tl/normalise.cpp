#include "tl/normalise.h"

#include "tl/normalform.h"
#include "tl/programtext.h"

namespace welmo::tl {

int normalise(ProgramText &program)
{
    int changed = 0;
    for (int i = 0; i < program.lineCount(); ++i) {
        const QString line = program.line(i);
        const QString normal = normalForm(line);
        if (normal.isNull() || normal == line || !program.isFaithful(i))
            continue;
        program.setLine(i, normal);
        ++changed;
    }
    return changed;
}

} // namespace welmo::tl
