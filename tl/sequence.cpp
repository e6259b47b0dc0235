#include "tl/sequence.h"

#include <QCoreApplication>
#include <utility>

namespace welmo::tl {

namespace {

constexpr auto arcOnAlone = QT_TRANSLATE_NOOP("ProgramCheck", "ArcOn without ArcOff");
constexpr auto arcOffAlone = QT_TRANSLATE_NOOP("ProgramCheck", "ArcOff without ArcOn");
constexpr auto weaveOnAlone = QT_TRANSLATE_NOOP("ProgramCheck", "WeaveOn without WeaveOff");
constexpr auto weaveOffAlone = QT_TRANSLATE_NOOP("ProgramCheck", "WeaveOff without WeaveOn");
constexpr auto noArc =
    QT_TRANSLATE_NOOP("ProgramCheck", "a weld move outside ArcOn and ArcOff welds nothing");
constexpr auto noMove =
    QT_TRANSLATE_NOOP("ProgramCheck", "no weld move follows before the weaving ends");

} // namespace

void Sequence::tell(const Place &place, Finding::Kind kind, const char *detail)
{
    m_findings.append({place.line, place.column, kind, nullptr, detail, {}});
}

void Sequence::switchOn(Open *open, const ParsedLine &line, int number, const char *alone)
{
    for (const Place &place : open->places)
        tell(place, Finding::Kind::Unpaired, alone);
    *open = {{{number, line.column()}}, 0};
}

void Sequence::switchOff(Open *open, const ParsedLine &line, int number, const char *alone)
{
    if (open->places.empty())
        tell({number, line.column()}, Finding::Kind::Unpaired, alone);
    open->places.clear();
}

void Sequence::closeWeave()
{
    if (!m_weave.places.empty() && m_weave.weldMoves == 0)
        tell(m_weave.places.front(), Finding::Kind::Doubtful, noMove);
}

void Sequence::addMove(const ParsedLine &line, int number)
{
    ++m_weave.weldMoves;
    if (m_arc.places.empty())
        tell({number, line.column()}, Finding::Kind::Doubtful, noArc);
}

void Sequence::add(const ParsedLine &line, int number)
{
    if (!line.instruction)
        return;
    if (line.is(Word::WeaveOn) || line.is(Word::WeaveOff))
        closeWeave();
    if (line.is(Word::ArcOn))
        switchOn(&m_arc, line, number, arcOnAlone);
    else if (line.is(Word::ArcOff))
        switchOff(&m_arc, line, number, arcOffAlone);
    else if (line.is(Word::WeaveOn))
        switchOn(&m_weave, line, number, weaveOnAlone);
    else if (line.is(Word::WeaveOff))
        switchOff(&m_weave, line, number, weaveOffAlone);
    else if (line.isWeldMove())
        addMove(line, number);
}

int arcOnBefore(int line, const std::function<ParsedLine(int)> &lineAt)
{
    while (--line >= 0) {
        const ParsedLine before = lineAt(line);
        if (before.is(Word::ArcOn))
            return line;
        if (before.is(Word::ArcOff))
            break;
    }
    return -1;
}

Findings Sequence::finish()
{
    closeWeave();
    for (const Place &place : m_arc.places)
        tell(place, Finding::Kind::Unpaired, arcOnAlone);
    for (const Place &place : m_weave.places)
        tell(place, Finding::Kind::Unpaired, weaveOnAlone);
    return std::exchange(m_findings, {});
}

} // namespace welmo::tl
