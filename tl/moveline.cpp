#include "tl/moveline.h"

#include "tl/text.h"

namespace welmo::tl {

MoveLine parseMoveLine(Instruction instruction, const QString &line)
{
    const Tokens tokens = splitMoveArguments(line);
    const int points = instruction == Instruction::WMoveC ? 2 : 1;
    const int fewest = points + 4; // the word, speed, zone and tool
    MoveLine move;
    move.tokenCount = tokens.size();
    if (tokens.size() < fewest || tokens.size() > fewest + 2) {
        move.problems.append(commandProblem(instruction, line));
        return move;
    }
    if (points == 2)
        move.aux = tokens.at(1);
    move.target = tokens.at(points);
    move.speed = tokens.at(points + 1);
    move.zone = tokens.at(points + 2);
    move.tool = tokens.at(points + 3);
    if (tokens.size() > fewest)
        move.wobj = tokens.at(fewest);
    if (tokens.size() > fewest + 1)
        move.weave = tokens.at(fewest + 1);
    return move;
}

QString MoveParameters::format() const
{
    QStringList items{nameText(speed), nameText(zone), nameText(tool), nameText(wobj)};
    if (!weave.isEmpty() && weave != noWeave)
        items.append(QLatin1Char('"') + nameText(weave) + QLatin1Char('"'));
    return items.join(QLatin1Char(','));
}

QString formatMoveLine(Instruction instruction, const QStringList &points,
                       const QString &parameters)
{
    return instructionName(instruction) + QLatin1Char(' ') + points.join(QLatin1Char(','))
        + QLatin1Char(',') + parameters;
}

} // namespace welmo::tl
