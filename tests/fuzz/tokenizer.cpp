#include <QRegularExpression>

#include "fuzz.h"
#include "tl/charactercheck.h"
#include "tl/fileline.h"
#include "tl/moveline.h"
#include "tl/normalform.h"
#include "tl/pointexpression.h"
#include "tl/timedline.h"
#include "tl/token.h"
#include "tl/wordline.h"

using namespace welmo::tl;

namespace {

void checkTokens(const QString &line, const Tokens &tokens)
{
    int end = 1;
    for (const Token &token : tokens) {
        require(token.column >= end && !token.text.isEmpty(), "tokens stand in a row", line);
        require(line.mid(token.column - 1, token.text.size()) == token.text, "at their columns",
                line);
        end = token.end();
    }
}

// Whatever the line's first word is.
Problems problems(const QString &line)
{
    Problems all;
    for (auto move : {Instruction::WMoveL, Instruction::WMoveC})
        all += parseMoveLine(move, line).problems;
    for (auto timed : {Instruction::FeedOnWire, Instruction::FeedBackWire, Instruction::DetectGas})
        all += parseTimedLine(timed, line).problems;
    for (auto files :
         {Instruction::ArcOn, Instruction::ArcOff, Instruction::WeaveOn, Instruction::SegOn})
        all += parseFileLine(files, line).problems;
    return all + checkWordLine(Instruction::WeaveOff, line)
        + checkWordLine(Instruction::SegOff, line);
}

// All that counts in a line of files, or of a word alone.
QString squeezed(QString line)
{
    return line.remove(QRegularExpression("[\\s,]+")).toLower();
}

bool saysTheSame(const QString &line, const QString &normal)
{
    const Instruction instruction = classify(line);
    if (normal.startsWith("WMove"))
        return keepsAll(line, normal);
    if (const auto seconds = parseTimedLine(instruction, normal).seconds) {
        // A form reads a tab otherwise than a blank; which is why it is made one.
        const auto before = parseTimedLine(instruction, line.simplified()).seconds;
        return before && qAbs(*before - *seconds) <= 1e-5 * *before; // six digits are written
    }
    return squeezed(line) == squeezed(normal);
}

} // namespace

/// One line, taken apart in every way there is.
void fuzz(const QByteArray &input)
{
    const QString line = textOf(input);
    checkTokens(line, splitArguments(line));
    checkTokens(line, splitMoveArguments(line));
    CharacterCheck::checkQuotationMarks(line);
    for (const Problem &problem : problems(line))
        require(problem.column >= 1 && problem.column <= qMax(1, line.size()),
                "a problem is within its line", line);
    const PointExpression point = PointExpression::parse(line);
    if (const QString normal = normalPoint(line); !normal.isNull())
        require(PointExpression::parse(normal) == point, "a normal point says the same", line);
    const QString normal = normalForm(line);
    if (normal.isNull())
        return;
    require(normalForm(normal) == normal, "a normal form is final", normal);
    require(classify(normal) == classify(line), "and of the same instruction", line);
    require(saysTheSame(line, normal), "and says the same", line);
}
