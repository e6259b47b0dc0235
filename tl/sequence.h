#pragma once

#include <vector>

#include "tl/finding.h"
#include "tl/parsedline.h"

namespace welmo::tl {

/// Goes through a program from line to line and finds what is wrong between them: what stands alone
/// of instructions that belong together, and what is switched on for nothing.
class Sequence
{
public:
    /// The next line; @p number, counted from 0, goes into the findings.
    void add(const ParsedLine &line, int number);
    /// After the last line: everything that was found.
    Findings finish();

private:
    struct Place
    {
        int line;
        int column;
    };
    /// An On that waits for its Off.
    struct Open
    {
        std::vector<Place> places; ///< at most one
        int weldMoves = 0; ///< since then
    };

    void switchOn(Open *open, const ParsedLine &line, int number, const char *alone);
    void switchOff(Open *open, const ParsedLine &line, int number, const char *alone);
    void addMove(const ParsedLine &line, int number);
    void closeWeave();
    void tell(const Place &place, Finding::Kind kind, const char *detail);

    Findings m_findings;
    Open m_arc;
    Open m_weave;
};

} // namespace welmo::tl
