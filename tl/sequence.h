#pragma once

#include <functional>
#include <vector>

#include "tl/finding.h"
#include "tl/parsedline.h"

namespace welmo::tl {

/// Goes through a program line by line and finds what is wrong between lines: one of a pair of
/// instructions without the other, and what is switched on without being used.
class Sequence
{
public:
    /// The next line; @p number, counted from 0, is put into the findings.
    void add(const ParsedLine &line, int number);
    /// To be called after the last line; returns all findings.
    Findings finish();

private:
    struct Place
    {
        int line;
        int column;
    };
    /// An On that needs its Off.
    struct Open
    {
        std::vector<Place> places; ///< at most one
        int weldMoves = 0; ///< since the On
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

/// The line of the ArcOn in whose seam @p line lies, -1 if it lies in none. Lines count from 0;
/// @p lineAt is called for those before @p line, from the last one back.
int arcOnBefore(int line, const std::function<ParsedLine(int)> &lineAt);

} // namespace welmo::tl
