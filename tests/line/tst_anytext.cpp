#include <QtTest>
#include <array>

#include "instructions/line/charactercheck.h"
#include "instructions/line/normalform.h"
#include "randomtext.h"
#include "readback.h"
#include "support/rows.h"

using namespace welmo::line;

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
    PointExpression point{PointExpression::Kind(random.bounded(3)), randomWord(random), {}};
    for (int i = 0; i < PointExpression::numberCount(point.kind); ++i)
        point.numbers.append(randomNumber(random));
    return point.format(PointExpression::Spelling(random.bounded(2)));
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

// Every instruction's way to read a line; the problems' columns lie within it.
template<typename Instructions>
bool readEveryWay(const QString &line, const Instructions &instructions)
{
    for (Instruction instruction : instructions) {
        for (const Problem &problem : readback::problems(instruction, line)) {
            if (problem.column < 1 || problem.column > qMax(1, line.size()))
                return false;
        }
    }
    readsAsWritten(line);
    return true;
}

} // namespace

/// Properties that hold for every line, good or bad.
class tst_AnyText : public QObject
{
    Q_OBJECT
private slots:
    // As where the system forbids compiled expressions: there a careless one takes for ever.
    void initTestCase() { qputenv("QT_ENABLE_REGEXP_JIT", "0"); }
    void writtenReadAndWrittenAgain()
    {
        QRandomGenerator random(4202);
        for (int i = 0; i < 5000; ++i) {
            for (Instruction instruction : everyInstruction) {
                const QString line = randomLineOf(instruction, random);
                QCOMPARE(classify(line), instruction);
                QCOMPARE(readback::again(instruction, line), line);
                QCOMPARE(normalForm(line), line);
            }
        }
    }
    void normalFormIsFinal()
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
                return readback::again(classify(text), text.replace('\t', ' ').trimmed());
            };
            QCOMPARE(meaning(normal), meaning(line));
        }
        QVERIFY(normalised > 1000);
    }
    void garbage()
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
    // A megabyte; a time that grew with its square would end at the test's time limit.
    void longLines()
    {
        const testsupport::Rows<QString, QString, QString> rows{
            {"one word", "", "a", ""},
            {"one word before nothing", "", "a", "()"},
            {"open expressions", "WMoveL f(x) ", "a(", ""},
            {"empty expressions", "", "a()", ""},
            {"opening parentheses", "f(x)", "(", ""},
            {"quotes", "WeaveOn ", "\"", ""},
            {"separators", "ArcOn ", " ,", ""},
            {"words", "WMoveL ", "ab ", ""},
            {"digits", "FeedOnWire ", "9", ""},
            {"NUL", "", QString(QChar(0)), ""},
            {"letters outside ASCII", "WMoveL ", "点", ""},
        };
        for (const auto &[name, head, piece, tail] : rows) {
            const QString line = head + piece.repeated(1024 * 1024 / piece.size()) + tail;
            QVERIFY(readEveryWay(line, std::array{Instruction::ArcOn, Instruction::WMoveL}));
            normalForm(line);
        }
    }
};

QTEST_GUILESS_MAIN(tst_AnyText)
#include "tst_anytext.moc"
