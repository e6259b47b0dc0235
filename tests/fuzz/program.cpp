#include <algorithm>

#include "fuzz.h"
#include "tl/checker.h"
#include "tl/normalise.h"
#include "tl/programtext.h"

using welmo::tl::ProgramText;

namespace {

welmo::tl::Findings check(const ProgramText &program)
{
    const QStringList lines = program.lines();
    const welmo::tl::Findings findings = welmo::tl::Checker().check(lines);
    for (const welmo::tl::Finding &finding : findings) {
        require(finding.line >= 0 && finding.line < lines.size(), "a finding is in a line");
        const int length = qMax(1, lines.at(finding.line).size());
        require(finding.column >= 1 && finding.column <= length,
                "a finding is in a column of its line");
        require(!finding.text().isEmpty(), "a finding has a text");
    }
    return findings;
}

// A line to edit that depends on the input alone.
int place(const QByteArray &input, int count)
{
    return count > 0 ? int(qHash(input) % uint(count)) : 0;
}

} // namespace

/// The input is a program file: it is kept, edited, checked and brought into its normal form.
void fuzz(const QByteArray &input)
{
    ProgramText program(input);
    require(program.toBytes() == input, "a program keeps its bytes");
    const QStringList lines = program.lines();
    const welmo::tl::Findings findings = check(program);

    const int at = place(input, program.lineCount() + 1);
    program.insertLine(at, "WeaveOff");
    require(program.line(at) == "WeaveOff", "a line is inserted where it belongs");
    program.removeLine(at);
    require(program.toBytes() == input, "a line is taken away without a trace");
    if (const int count = program.lineCount(); count > 0) {
        ProgramText moved = program;
        moved.moveLine(0, at % count);
        require(moved.line(at % count) == lines.first(), "a line is moved where it belongs");
        moved.moveLine(at % count, 0);
        require(moved.lines() == lines, "a line is moved back");
        require(program.toBytes() == input, "a copy's changes are its own");
    }

    welmo::tl::normalise(program);
    require(welmo::tl::normalise(program) == 0, "a normal form is final");
    for (const welmo::tl::Finding &finding : check(program))
        require(std::any_of(findings.begin(), findings.end(),
                            [&finding](const welmo::tl::Finding &before) {
                                return before.line == finding.line
                                    && before.text() == finding.text();
                            }),
                "nothing is wrong with a normal form that was not before", finding.text());
}
