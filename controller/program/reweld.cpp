#include "controller/program/reweld.h"

#include "controller/program/travel.h"

namespace welmo::controller {

namespace {

// The line that ends the weld: where the arc came back there must be one, even if the run did not
// reach it.
std::optional<size_t> closingLine(const SeamTrack::Gap &gap,
                                  const std::vector<tl::ParsedLine> &lines)
{
    if (gap.arcOff || !gap.found)
        return gap.arcOff;
    for (size_t line = gap.arcOn; line < lines.size(); ++line) {
        if (lines[line].is(tl::Word::ArcOff))
            return line;
    }
    return {};
}

} // namespace

std::deque<PlannedStep> reweldSteps(const SeamTrack::Gap &gap,
                                    const std::vector<tl::ParsedLine> &lines)
{
    const size_t first = gap.legAt(gap.from());
    const size_t last = gap.found ? gap.legAt(*gap.found) : first;
    std::deque<PlannedStep> steps;
    const auto add = [&steps](size_t line, std::unique_ptr<ProgramInstruction> instruction) {
        steps.push_back({line, std::move(instruction)});
    };
    const auto addLeg = [&](size_t index, double from, std::optional<double> to) {
        const SeamTrack::Leg &leg = gap.legs[index];
        add(leg.line, makeMoveOn(lines[leg.line], leg, from, to));
    };
    const double start = gap.from() - gap.legs[first].start;
    add(gap.arcOn, makeApproach(gap.legs[first], start));
    add(gap.arcOn, nullptr);
    for (size_t i = first; i <= last; ++i) {
        const bool endsHere = gap.found && i == last;
        addLeg(i, i == first ? start : 0,
               endsHere ? std::make_optional(*gap.found - gap.legs[i].start) : std::nullopt);
    }
    const auto closing = closingLine(gap, lines);
    if (!closing)
        return steps;
    for (size_t line = gap.found ? *closing : gap.legs[last].line + 1; line <= *closing; ++line) {
        if (lines[line].hasCode())
            add(line, nullptr);
    }
    add(*closing, makeRetreat(gap.legs[last].tool));
    return steps;
}

size_t resumeAt(const SeamTrack::Gap &gap, const std::vector<tl::ParsedLine> &lines)
{
    return closingLine(gap, lines) ? lines.size() : gap.legs[gap.legAt(gap.from())].line + 1;
}

} // namespace welmo::controller
