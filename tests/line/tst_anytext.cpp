#include <QtTest>
#include <array>

#include "instructions/line/charactercheck.h"
#include "instructions/line/fileline.h"
#include "instructions/line/moveline.h"
#include "instructions/line/normalform.h"
#include "instructions/line/pointexpression.h"
#include "instructions/line/timedline.h"
#include "instructions/line/wordline.h"
#include "randomtext.h"

using namespace welmo::line;
using Kind = PointExpression::Kind;
using Spelling = PointExpression::Spelling;

namespace {

constexpr std::array<Instruction, 11> everyInstruction{
    Instruction::ArcOn,      Instruction::ArcOff,       Instruction::WMoveL,
    Instruction::WMoveC,     Instruction::WeaveOn,      Instruction::WeaveOff,
    Instruction::FeedOnWire, Instruction::FeedBackWire, Instruction::DetectGas,
    Instruction::SegOn,      Instruction::SegOff};

double randomNumber(QRandomGenerator &random)
{
    return (random.generateDouble() - 0.5) * std::pow(10, random.bounded(-5, 9));
}

QString randomWord(QRandomGenerator &random)
{
    static const QString letters = "abcXYZ019_";
    QString word;
    for (int i = 1 + random.bounded(8); i > 0; --i)
        word += letters.at(random.bounded(letters.size()));
    return word;
}

QString randomPoint(QRandomGenerator &random)
{
    PointExpression point{Kind(random.bounded(3)), randomWord(random), {}};
    for (int i = 0; i < PointExpression::numberCount(point.kind); ++i)
        point.numbers.append(randomNumber(random));
    return point.format(Spelling(random.bounded(2)));
}

QString randomMove(QRandomGenerator &random, Instruction instruction)
{
    QStringList points;
    for (int i = instruction == Instruction::WMoveC ? 2 : 1; i > 0; --i)
        points.append(randomPoint(random));
    MoveParameters parameters{randomWord(random), randomWord(random), randomWord(random),
                              randomWord(random)};
    if (random.bounded(2))
        parameters.weave = randomWord(random);
    return formatMoveLine(instruction, points, parameters.format());
}

// The line of some fields, as a form may write it.
QString randomLineOf(Instruction instruction, QRandomGenerator &random)
{
    switch (instruction) {
    case Instruction::WMoveL:
    case Instruction::WMoveC:
        return randomMove(random, instruction);
    case Instruction::FeedOnWire:
    case Instruction::FeedBackWire:
    case Instruction::DetectGas:
        return formatTimedLine(instruction, 0.1 + std::abs(randomNumber(random)));
    case Instruction::WeaveOff:
    case Instruction::SegOff:
        return instructionName(instruction);
    default:
        QStringList files;
        for (int i = 0; !fileNames(instruction, i).isEmpty(); ++i)
            files.append(fileNames(instruction, i).at(random.bounded(40)));
        return formatFileLine(instruction, files);
    }
}

QString pointAgain(const std::optional<Token> &token)
{
    const auto spelling = PointExpression::spellingOf(token->text);
    return PointExpression::parse(token->text).format(spelling);
}

QString moveAgain(Instruction instruction, const QString &line)
{
    const MoveLine move = parseMoveLine(instruction, line);
    if (!move.problems.isEmpty())
        return "refused";
    QStringList points;
    if (move.aux)
        points.append(pointAgain(move.aux));
    points.append(pointAgain(move.target));
    const QString weave =
        move.weave ? CharacterCheck::checkQuotationMarks(move.weave->text) : noWeave;
    return formatMoveLine(instruction, points,
                          MoveParameters{move.speed->text, move.zone->text, move.tool->text,
                                         move.wobj.value_or(Token{}).text, weave}
                              .format());
}

// Read and written again, as a property form does it.
QString again(Instruction instruction, const QString &line)
{
    switch (instruction) {
    case Instruction::WMoveL:
    case Instruction::WMoveC:
        return moveAgain(instruction, line);
    case Instruction::FeedOnWire:
    case Instruction::FeedBackWire:
    case Instruction::DetectGas:
        return formatTimedLine(instruction, parseTimedLine(instruction, line).seconds.value_or(-1));
    case Instruction::WeaveOff:
    case Instruction::SegOff:
        return checkWordLine(instruction, line).isEmpty() ? line : "refused";
    default:
        QStringList files;
        for (const auto &file : parseFileLine(instruction, line).files)
            files.append(file.value_or("refused"));
        return formatFileLine(instruction, files);
    }
}

// Everything that reads a line; the problems' columns lie within it.
template<typename Instructions>
bool readEveryWay(const QString &line, const Instructions &instructions)
{
    for (Instruction instruction : instructions) {
        const Problems problems = parseFileLine(instruction, line).problems
            + parseTimedLine(instruction, line).problems + checkWordLine(instruction, line)
            + parseMoveLine(instruction, line).problems;
        for (const Problem &problem : problems) {
            if (problem.column < 1 || problem.column > qMax(1, line.size()))
                return false;
        }
    }
    splitPoint(line);
    readsAsWritten(line);
    CharacterCheck::checkQuotationMarks(line);
    return true;
}

} // namespace

/// Properties that hold for every line, good or bad.
class tst_AnyText : public QObject
{
    Q_OBJECT
private slots:
    void writtenReadAndWrittenAgain();
    void normalFormIsFinal();
    void garbage();
    void longLines_data();
    void longLines();
};

void tst_AnyText::writtenReadAndWrittenAgain()
{
    QRandomGenerator random(4202);
    for (int i = 0; i < 5000; ++i) {
        for (Instruction instruction : everyInstruction) {
            const QString line = randomLineOf(instruction, random);
            QCOMPARE(classify(line), instruction);
            QCOMPARE(again(instruction, line), line);
            QCOMPARE(normalForm(line), line);
        }
    }
}

void tst_AnyText::normalFormIsFinal()
{
    QRandomGenerator random(4203);
    int normalised = 0;
    for (int i = 0; i < 20000; ++i) {
        QString line = randomLineOf(everyInstruction[size_t(random.bounded(11))], random);
        line.insert(random.bounded(line.size() + 1), randomLine(random, 1));
        line.replace(',', random.bounded(2) ? ", " : ",");
        const QString normal = normalForm(line);
        if (normal.isNull())
            continue;
        ++normalised;
        QCOMPARE(normalForm(normal), normal);
        QCOMPARE(classify(normal), classify(line));
        QVERIFY2(readEveryWay(normal, everyInstruction), qPrintable(normal));
        const auto meaning = [](QString text) {
            return again(classify(text), text.replace('\t', ' ').trimmed());
        };
        QCOMPARE(meaning(normal), meaning(line));
    }
    QVERIFY(normalised > 1000);
}

void tst_AnyText::garbage()
{
    QRandomGenerator random(4204);
    for (int i = 0; i < 100000; ++i) {
        const QString line = i % 2 ? randomLine(random, random.bounded(16))
                                   : QString::fromUtf8(QByteArray::number(random.generate64()))
                + QChar(ushort(random.bounded(0x10000)));
        QVERIFY2(readEveryWay(line, everyInstruction), qPrintable(line));
        normalForm(line);
    }
}

void tst_AnyText::longLines_data()
{
    QTest::addColumn<QString>("piece");
    QTest::addColumn<QString>("head");
    QTest::newRow("one word") << "a"
                              << "";
    QTest::newRow("open expressions") << "a("
                                      << "WMoveL f(x) ";
    QTest::newRow("empty expressions") << "a()"
                                       << "";
    QTest::newRow("opening parentheses") << "("
                                         << "f(x)";
    QTest::newRow("quotes") << "\""
                            << "WeaveOn ";
    QTest::newRow("separators") << " ,"
                                << "ArcOn ";
    QTest::newRow("words") << "ab "
                           << "WMoveL ";
    QTest::newRow("digits") << "9"
                            << "FeedOnWire ";
    QTest::newRow("closing far away") << "a"
                                      << ")) (";
    QTest::newRow("NUL") << QString(QChar(0)) << "";
    QTest::newRow("letters outside ASCII") << "点"
                                           << "WMoveL ";
}

// A megabyte; a time that grew with its square would end at the test's time limit.
void tst_AnyText::longLines()
{
    QFETCH(QString, piece);
    QFETCH(QString, head);
    const QString line = head + piece.repeated(1024 * 1024 / piece.size());
    QVERIFY(readEveryWay(line, std::array{Instruction::SegOn}));
    normalForm(line);
}

QTEST_GUILESS_MAIN(tst_AnyText)
#include "tst_anytext.moc"
