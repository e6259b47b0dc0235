#include "tl/normalform.h"

#include <algorithm>

#include "tl/charactercheck.h"
#include "tl/fileline.h"
#include "tl/moveline.h"
#include "tl/pointexpression.h"
#include "tl/timedline.h"
#include "tl/wordline.h"

namespace welmo::tl {

namespace {

// Without white space around it, and with blanks for the tabs between the arguments.
QString tidied(const QString &line)
{
    QString text = line.trimmed();
    bool quoted = false;
    for (QChar &character : text) {
        if (character == QLatin1Char('"'))
            quoted = !quoted;
        else if (character == QLatin1Char('\t') && !quoted)
            character = QLatin1Char(' ');
    }
    return text;
}

bool isMove(Instruction instruction)
{
    return instruction == Instruction::WMoveL || instruction == Instruction::WMoveC;
}

bool isGap(QStringView gap, int mostCommas)
{
    return !gap.isEmpty() && std::count(gap.begin(), gap.end(), QLatin1Char(',')) <= mostCommas
        && std::all_of(gap.begin(), gap.end(), [](QChar character) {
               return character == QLatin1Char(' ') || character == QLatin1Char(',');
           });
}

// True when there is nothing but the word and its arguments, and no argument is empty.
bool isComplete(const QString &line, const Tokens &tokens, Instruction instruction)
{
    if (tokens.first().text != instructionName(instruction)
        || tokens.last().end() != line.size() + 1)
        return false;
    for (int i = 1; i < tokens.size(); ++i) {
        const int start = tokens.at(i - 1).end() - 1;
        const QStringView gap = QStringView(line).mid(start, tokens.at(i).column - 1 - start);
        if (!isGap(gap, i == 1 ? 0 : 1))
            return false;
    }
    return true;
}

QString normalFiles(Instruction instruction, const QString &line, const Tokens &tokens)
{
    const FileLine parsed = parseFileLine(instruction, line);
    if (!parsed.problems.isEmpty())
        return {};
    QStringList names;
    for (const auto &file : parsed.files) {
        names.append(*file);
        if (tokens.at(names.size()).text.size() != file->size() + 2) // the quotes, no more
            return {};
    }
    return formatFileLine(instruction, names);
}

QString normalTime(Instruction instruction, const QString &line)
{
    const TimedLine parsed = parseTimedLine(instruction, line);
    if (!parsed.seconds)
        return {};
    const QString normal = formatTimedLine(instruction, *parsed.seconds);
    return parseTimedLine(instruction, normal).seconds == parsed.seconds ? normal : QString();
}

QString normalMove(Instruction instruction, const QString &line, const Tokens &tokens)
{
    if (!parseMoveLine(instruction, line).problems.isEmpty())
        return {};
    const int points = instruction == Instruction::WMoveC ? 2 : 1;
    QStringList arguments;
    for (int i = 1; i < tokens.size(); ++i) {
        const QString &text = tokens.at(i).text;
        arguments.append(i <= points ? normalPoint(text) : text);
        if (arguments.last().isNull())
            return {};
    }
    return instructionName(instruction) + QLatin1Char(' ') + arguments.join(QLatin1Char(','));
}

bool keepsPoint(const std::optional<Token> &asked, const std::optional<Token> &got)
{
    return !asked
        || (got && PointExpression::parse(got->text) == PointExpression::parse(asked->text));
}

bool keepsName(const std::optional<Token> &asked, const std::optional<Token> &got)
{
    return !asked || (got && got->text == asked->text);
}

QString weaveOf(const MoveLine &move)
{
    return move.weave ? CharacterCheck::checkQuotationMarks(move.weave->text) : noWeave;
}

bool keepsMove(const MoveLine &asked, const MoveLine &got)
{
    return keepsPoint(asked.aux, got.aux) && keepsPoint(asked.target, got.target)
        && keepsName(asked.speed, got.speed) && keepsName(asked.zone, got.zone)
        && keepsName(asked.tool, got.tool) && keepsName(asked.wobj, got.wobj)
        && weaveOf(asked) == weaveOf(got);
}

} // namespace

QString normalForm(const QString &line)
{
    const Instruction instruction = classify(line);
    if (instruction == Instruction::None)
        return {};
    const QString text = tidied(line);
    const Tokens tokens = isMove(instruction) ? splitMoveArguments(text) : splitArguments(text);
    if (tokens.isEmpty() || !isComplete(text, tokens, instruction))
        return {};
    switch (instruction) {
    case Instruction::WMoveL:
    case Instruction::WMoveC:
        return normalMove(instruction, text, tokens);
    case Instruction::FeedOnWire:
    case Instruction::FeedBackWire:
    case Instruction::DetectGas:
        return normalTime(instruction, text);
    case Instruction::WeaveOff:
    case Instruction::SegOff:
        return checkWordLine(instruction, text).isEmpty() ? text : QString();
    default:
        return normalFiles(instruction, text, tokens);
    }
}

bool keepsAll(const QString &line, const QString &written)
{
    const Instruction instruction = classify(line);
    const QString normal = normalForm(line);
    if (normal.isNull() || !isMove(instruction))
        return !normal.isNull() && normal == normalForm(written);
    return keepsMove(parseMoveLine(instruction, normal), parseMoveLine(instruction, written));
}

} // namespace welmo::tl
