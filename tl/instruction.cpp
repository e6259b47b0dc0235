#include "tl/instruction.h"

#include <QCoreApplication>
#include <algorithm>
#include <iterator>

namespace welmo::tl {

namespace {

struct Row
{
    Instruction instruction;
    const char *name;
    const char *commandError;
};

constexpr Row rows[] = {
    {Instruction::ArcOn, "ArcOn",
     QT_TRANSLATE_NOOP("ProgramLine", "arcon tl command format error")},
    {Instruction::ArcOff, "ArcOff",
     QT_TRANSLATE_NOOP("ProgramLine", "arcoff tl command format error")},
    {Instruction::WMoveL, "WMoveL",
     QT_TRANSLATE_NOOP("ProgramLine", "wmovel tl command format error")},
    {Instruction::WMoveC, "WMoveC",
     QT_TRANSLATE_NOOP("ProgramLine", "wmovec tl command format error")},
    {Instruction::WeaveOn, "WeaveOn",
     QT_TRANSLATE_NOOP("ProgramLine", "weaveon tl command format error")},
    {Instruction::WeaveOff, "WeaveOff",
     QT_TRANSLATE_NOOP("ProgramLine", "weaveoff tl command format error")},
    {Instruction::FeedOnWire, "FeedOnWire",
     QT_TRANSLATE_NOOP("ProgramLine", "feedonwire tl command format error")},
    {Instruction::FeedBackWire, "FeedBackWire",
     QT_TRANSLATE_NOOP("ProgramLine", "feedbackwire tl command format error")},
    {Instruction::DetectGas, "DetectGas",
     QT_TRANSLATE_NOOP("ProgramLine", "detectgas tl command format error")},
    {Instruction::SegOn, "SegOn",
     QT_TRANSLATE_NOOP("ProgramLine", "segon tl command format error")},
    {Instruction::SegOff, "SegOff",
     QT_TRANSLATE_NOOP("ProgramLine", "segoff tl command format error")},
};

const Row *rowOf(Instruction instruction)
{
    const auto row = std::find_if(std::begin(rows), std::end(rows), [instruction](const Row &r) {
        return r.instruction == instruction;
    });
    return row == std::end(rows) ? nullptr : row;
}

bool endsWord(QChar character)
{
    return character.isSpace() || QStringView(u",;\"()").contains(character);
}

} // namespace

QString instructionName(Instruction instruction)
{
    const Row *row = rowOf(instruction);
    return row ? QLatin1String(row->name) : QString();
}

const char *commandError(Instruction instruction)
{
    const Row *row = rowOf(instruction);
    return row ? row->commandError : "";
}

Token firstWord(const QString &line)
{
    const int column = textColumn(line);
    const auto start = line.begin() + (column - 1);
    const auto end = std::find_if(start, line.end(), endsWord);
    return {line.mid(column - 1, int(end - start)), column};
}

Instruction classify(const QString &line)
{
    const QString word = firstWord(line).text;
    const auto row = std::find_if(std::begin(rows), std::end(rows),
                                  [&word](const Row &r) { return word == QLatin1String(r.name); });
    return row == std::end(rows) ? Instruction::None : row->instruction;
}

Problem commandProblem(Instruction instruction, const QString &line)
{
    return {commandError(instruction), textColumn(line)};
}

} // namespace welmo::tl
