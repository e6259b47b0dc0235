#include <QRegularExpression>

#include "fuzz.h"
#include "tl/charactercheck.h"
#include "tl/normalform.h"
#include "tl/parse.h"

using namespace welmo::tl;

namespace {

void checkTokens(const QString &line, const Tokens &tokens)
{
    int end = 1;
    for (const Token &token : tokens) {
        require(token.column >= end && !token.text.isEmpty(), "tokens stand in a row", line);
        require(line.mid(token.column - 1, token.text.size()) == token.text,
                "a token stands at its column", line);
        end = token.end();
    }
}

// The scanners do the work of regular expressions, whose findings are compared with theirs.
QStringList matches(const QRegularExpression &expression, const QString &line)
{
    QStringList found;
    for (auto each = expression.globalMatch(line); each.hasNext();)
        found.append(each.next().captured());
    return found;
}

void checkScanners(const QString &line)
{
    static const QRegularExpression move(R"re((\w+\([^)]+\)|\"[^\"]*\"|\w+))re");
    static const QRegularExpression blanks("[ ,]");
    static const QRegularExpression quoted("\"([^\"]*)\"");
    require(CharacterCheck::splitMoveTlCommand(line) == matches(move, line), "a move's tokens",
            line);
    require(CharacterCheck::splitTlCommand(line) == line.split(blanks, Qt::SkipEmptyParts),
            "the tokens between blanks and commas", line);
    const QString found = CharacterCheck::checkQuotationMarks(line);
    const auto match = quoted.match(line);
    require(found == match.captured(1) && found.isNull() != match.hasMatch(), "the quoted text",
            line);
}

void checkProblems(const ParsedLine &parsed)
{
    for (const Problem &problem : parsed.problems) {
        require(problem.column >= 1 && problem.column <= qMax(1, parsed.text.size()),
                "a problem is within its line", parsed.text);
        require(!problem.english().isEmpty(), "a problem has a text", parsed.text);
    }
}

// A line of files, or of a word alone, without what does not count in it.
QString squeezed(QString line)
{
    static const QRegularExpression between("[\\s,]+");
    return line.remove(between).toLower();
}

bool saysTheSame(const ParsedLine &line, const ParsedLine &normal)
{
    switch (line.instruction->kind) {
    case Kind::Move:
        return keepsAll(line, normal.code());
    case Kind::Timed: {
        // A tab, which a form reads in another way, is made a blank before.
        const auto before = parse(line.text.simplified()).seconds;
        return before && normal.seconds
            && qAbs(*before - *normal.seconds) <= 1e-5 * *before; // for six digits are written
    }
    case Kind::Files:
    case Kind::Bare:
        return squeezed(line.text) == squeezed(normal.text);
    }
    return false;
}

} // namespace

/// The input is a line, which every reader takes apart.
void fuzz(const QByteArray &input)
{
    const QString line = textOf(input);
    checkTokens(line, splitArguments(line, 0, line.size()));
    checkTokens(line, splitMoveArguments(line, 0, line.size()));
    checkScanners(line);
    for (const Instruction &instruction : instructions)
        checkProblems(parseAs(instruction.word, line));
    const ParsedLine parsed = parse(line);
    checkProblems(parsed);
    require(parsed.before() + parsed.code() + parsed.after() == line, "a line keeps its text",
            line);
    const PointReading point = readPoint(line);
    if (const QString normal = point.normalForm(); !normal.isNull())
        require(readPoint(normal).point == point.point, "a normal point says the same", line);
    const QString normal = normalForm(parsed);
    if (normal.isNull())
        return;
    const ParsedLine again = parse(normal);
    require(normalForm(again) == normal, "a normal form is final", normal);
    require(again.instruction == parsed.instruction, "a normal form is of the same instruction",
            line);
    require(again.before() == parsed.before(), "a normal form keeps what is before the instruction",
            line);
    require(saysTheSame(parsed, again), "a normal form says the same", line);
}
