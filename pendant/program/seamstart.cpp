#include "pendant/program/seamstart.h"

#include "pendant/program/programdocument.h"
#include "tl/parse.h"
#include "tl/sequence.h"

namespace welmo::pendant {

namespace {

int approachTo(int arcOn, const std::function<tl::ParsedLine(int)> &lineAt)
{
    for (int row = arcOn - 1; row >= 0; --row) {
        const tl::ParsedLine before = lineAt(row);
        if (before.instruction && before.instruction->kind == tl::Kind::Move)
            return row;
    }
    return arcOn;
}

} // namespace

std::optional<SeamStart> seamStartAt(const ProgramDocument &program, int line)
{
    const auto lineAt = [&program](int row) { return tl::parse(program.line(row)); };
    const int arcOn = tl::arcOnBefore(line, lineAt);
    for (int row = line; arcOn >= 0 && row < program.rowCount(); ++row) {
        const tl::ParsedLine next = lineAt(row);
        if (next.isWeldMove())
            return SeamStart{row, next.word.text, arcOn, approachTo(arcOn, lineAt)};
        if (next.is(tl::Word::ArcOn) || next.is(tl::Word::ArcOff))
            break;
    }
    return {};
}

} // namespace welmo::pendant
