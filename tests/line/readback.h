#pragma once

#include "instructions/line/charactercheck.h"
#include "instructions/line/fileline.h"
#include "instructions/line/moveline.h"
#include "instructions/line/pointexpression.h"
#include "instructions/line/timedline.h"
#include "instructions/line/wordline.h"

/// A line read and written again, as a property form does it; "-" stands for what was not read.
namespace readback {

using namespace welmo::line;

inline QString point(const std::optional<Token> &token)
{
    const auto spelling = PointExpression::spellingOf(token->text);
    return PointExpression::parse(token->text).format(spelling);
}

inline QString move(Instruction instruction, const QString &line)
{
    const MoveLine move = parseMoveLine(instruction, line);
    if (!move.problems.isEmpty())
        return "-";
    QStringList points;
    if (move.aux)
        points.append(point(move.aux));
    points.append(point(move.target));
    const QString weave =
        move.weave ? CharacterCheck::checkQuotationMarks(move.weave->text) : noWeave;
    const MoveParameters parameters{move.speed->text, move.zone->text, move.tool->text,
                                    move.wobj ? move.wobj->text : "-", weave};
    return formatMoveLine(instruction, points, parameters.format());
}

inline QString time(Instruction instruction, const QString &line)
{
    const auto seconds = parseTimedLine(instruction, line).seconds;
    return seconds ? formatTimedLine(instruction, *seconds) : "-";
}

inline QString files(Instruction instruction, const QString &line)
{
    QStringList files;
    for (const auto &file : parseFileLine(instruction, line).files)
        files.append(file.value_or("-"));
    return formatFileLine(instruction, files);
}

inline QString again(Instruction instruction, const QString &line)
{
    switch (instruction) {
    case Instruction::WMoveL:
    case Instruction::WMoveC:
        return move(instruction, line);
    case Instruction::FeedOnWire:
    case Instruction::FeedBackWire:
    case Instruction::DetectGas:
        return time(instruction, line);
    case Instruction::WeaveOff:
    case Instruction::SegOff:
        return checkWordLine(instruction, line).isEmpty() ? instructionName(instruction) : "-";
    default:
        return files(instruction, line);
    }
}

/// What the instruction's model has to say about the line.
inline Problems problems(Instruction instruction, const QString &line)
{
    switch (instruction) {
    case Instruction::WMoveL:
    case Instruction::WMoveC:
        return parseMoveLine(instruction, line).problems;
    case Instruction::FeedOnWire:
    case Instruction::FeedBackWire:
    case Instruction::DetectGas:
        return parseTimedLine(instruction, line).problems;
    case Instruction::WeaveOff:
    case Instruction::SegOff:
        return checkWordLine(instruction, line);
    default:
        return parseFileLine(instruction, line).problems;
    }
}

} // namespace readback
