#include "tl/timedline.h"

#include <QCoreApplication>

#include "tl/text.h"

namespace welmo::tl {

namespace {

// What is different between the timed instructions.
struct Grammar
{
    double lowest; ///< seconds
    const char *timeError;
};

Grammar grammarOf(Instruction instruction)
{
    switch (instruction) {
    case Instruction::FeedOnWire:
        return {0.1, QT_TRANSLATE_NOOP("ProgramLine", "feedonwire time format error")};
    case Instruction::FeedBackWire: // programs in the field hold times below a tenth
        return {0, QT_TRANSLATE_NOOP("ProgramLine", "feedbackwire time format error")};
    default:
        return {0.1, QT_TRANSLATE_NOOP("ProgramLine", "detectgas time format error")};
    }
}

} // namespace

TimedLine parseTimedLine(Instruction instruction, const QString &line)
{
    const Tokens tokens = splitArguments(line);
    if (tokens.size() != 2)
        return {{}, {commandProblem(instruction, line)}};
    const Grammar grammar = grammarOf(instruction);
    const std::optional<double> seconds = readNumber(tokens.at(1).text);
    if (!seconds || *seconds < grammar.lowest)
        return {{}, {{grammar.timeError, tokens.at(1).column}}};
    return {seconds, {}};
}

QString formatTimedLine(Instruction instruction, double seconds)
{
    return instructionName(instruction) + QLatin1Char(' ') + numberText(seconds);
}

} // namespace welmo::tl
