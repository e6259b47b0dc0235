#include <QRandomGenerator>
#include <QtTest>

#include "support/rows.h"
#include "tl/charactercheck.h"
#include "tl/fileline.h"
#include "tl/moveline.h"
#include "tl/normalform.h"
#include "tl/pointexpression.h"
#include "tl/timedline.h"
#include "tl/wordline.h"

using namespace welmo::tl;
using Kind = PointExpression::Kind;
using Spelling = PointExpression::Spelling;
using testsupport::Rows;

namespace {

const QRegularExpression grammar(R"re((\w+\([^)]+\)|\"[^\"]*\"|\w+))re");

/// What the instruction's model says about a line, and what a property form would write of it; "-"
/// stands for what was not read.
struct Reading
{
    Problems problems;
    QString written = "-";
};

QString written(Instruction instruction, const MoveLine &move)
{
    QStringList points;
    for (const auto &token : {move.aux, move.target}) {
        if (token)
            points.append(PointExpression::parse(token->text)
                              .format(PointExpression::spellingOf(token->text)));
    }
    MoveParameters parameters{move.speed->text, move.zone->text, move.tool->text,
                              move.wobj ? move.wobj->text : "-"};
    if (move.weave)
        parameters.weave = CharacterCheck::checkQuotationMarks(move.weave->text);
    return formatMoveLine(instruction, points, parameters.format());
}

Reading read(Instruction instruction, const QString &line)
{
    Reading reading;
    const QString word = instructionName(instruction);
    if (word.startsWith("WMove")) {
        const MoveLine move = parseMoveLine(instruction, line);
        reading.problems = move.problems;
        if (move.problems.isEmpty())
            reading.written = written(instruction, move);
    } else if (word.startsWith("Feed") || instruction == Instruction::DetectGas) {
        const TimedLine timed = parseTimedLine(instruction, line);
        reading.problems = timed.problems;
        if (timed.seconds)
            reading.written = formatTimedLine(instruction, *timed.seconds);
    } else if (word == "WeaveOff" || word == "SegOff") {
        reading.problems = checkWordLine(instruction, line);
        if (reading.problems.isEmpty())
            reading.written = word;
    } else {
        const FileLine parsed = parseFileLine(instruction, line);
        QStringList files;
        for (const auto &file : parsed.files)
            files.append(file.value_or("-"));
        reading = {parsed.problems, formatFileLine(instruction, files)};
    }
    return reading;
}

/// Pieces that matter to the grammar, in random order: near misses of program lines.
QString randomLine(QRandomGenerator &random, int pieces)
{
    static const QStringList parts =
        QStringLiteral("ArcOn ArcOff WMoveL WMoveC WeaveOn WeaveOff FeedOnWire FeedBackWire "
                       "DetectGas SegOn SegOff Offs RelTool Reltool p1 v10 fine tool0 "
                       "\"arcondata1\" \"arcdata40\" \"weavedata7\" \" \" , , ( ) () -5.5 1e3 "
                       "nan ; _ \\ \t \r é 点")
            .split(' ')
        + QStringList{" ", " ", QChar(0), QChar(0xD800), QChar(0x2028)};
    QString line;
    for (int i = 0; i < pieces; ++i)
        line += parts.at(random.bounded(parts.size()));
    return line;
}

/// Every instruction's way to read a line; the problems' columns lie within it.
bool readEveryWay(const QString &line)
{
    for (int i = 1; i <= int(Instruction::SegOff); ++i) {
        for (const Problem &problem : read(Instruction(i), line).problems) {
            if (problem.column < 1 || problem.column > qMax(1, line.size()))
                return false;
        }
    }
    readsAsWritten(line);
    normalForm(line);
    return true;
}

// What is read, and written again.
const Rows<QString> goodLines{
    {R"(ArcOn "arcondata3", "arcdata40")", R"(ArcOn "arcondata3","arcdata40")"},
    {R"(ArcOn "ARCONDATA3","ArcData40";)", R"(ArcOn "arcondata3","arcdata40")"},
    {R"(ArcOff "ArcOffData1")", R"(ArcOff "arcoffdata1")"},
    {R"(WeaveOn "weavedata7")", R"(WeaveOn "weavedata7")"},
    {R"(SegOn, ("segdata40");)", R"(SegOn "segdata40")"},
    {"DetectGas 0.1", "DetectGas 0.1"},
    {"DetectGas 1e2", "DetectGas 100"},
    {"FeedOnWire  1.234,", "FeedOnWire 1.234"},
    {"FeedBackWire 0.05", "FeedBackWire 0.05"},
    {"FeedBackWire 123456.7", "FeedBackWire 123457"}, // six digits
    {"FeedBackWire -0", "FeedBackWire 0"},
    {"WeaveOff", "WeaveOff"},
    {"SegOff", "SegOff"},
    {"WMoveL Offs(p1, 1,2,3), s1 z1,tool0,w0", "WMoveL Offs(p1,1,2,3),s1,z1,tool0,w0"},
    {R"(WMoveL p1,s1,z1,tool0,"w1")", "WMoveL p1,s1,z1,tool0,_w1_"},
    {R"(WMoveC p2,p3,s1,z1,t0,w0,"w1")", R"(WMoveC p2,p3,s1,z1,t0,w0,"w1")"},
    {"WMoveC RelTool(p2,1,2,3,4,5,6),p3,s1,z1,t0,w0",
     "WMoveC RelTool(p2,1,2,3,4,5,6),p3,s1,z1,t0,w0"},
};

} // namespace

/// How a line falls into tokens, what each instruction's lines say, what is wrong with them, and
/// how they are written.
class tst_InstructionLines : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase()
    {
        QLocale::setDefault(QLocale(QLocale::German)); // must not matter
        // As where the system forbids compiled expressions: there a careless one takes for ever.
        qputenv("QT_ENABLE_REGEXP_JIT", "0");
    }
    void tokens()
    {
        const Rows<QString, QString> rows{
            // the first quoted text, and the tokens
            {R"(ArcOn "a1", "w2")", "a1", R"(ArcOn|"a1"|"w2")"},
            {R"(  ,, )", QString(), ""},
            {R"(a "")", "", R"(a|"")"},
            {"a \"b", QString(), "a|\"b"},
            {"\"a\\\"b\"", "a\\", "\"a\\\"b\""}, // no escapes
            {R"(ArcOn "my data")", "my data", R"(ArcOn|"my|data")"},
            {", DetectGas ,1.5;, ", QString(), "DetectGas|1.5;"},
            {"f(a\tb,点)", QString(), "f(a\tb|点)"},
        };
        for (const auto &[line, quoted, split] : rows) {
            const QString found = CharacterCheck::checkQuotationMarks(line);
            QCOMPARE(found, quoted);
            QCOMPARE(found.isNull(), quoted.isNull()); // "" and no quotes at all are two things
            QCOMPARE(CharacterCheck::splitTlCommand(line).join('|'), split);
        }
    }
    void whatIsReadIsWrittenAgain()
    {
        for (const auto &[line, expected] : goodLines) {
            const Reading reading = read(classify(line), line);
            QCOMPARE(reading.written, expected);
            QVERIFY(reading.problems.isEmpty());
            QCOMPARE(read(classify(line), expected).written, expected);
            QCOMPARE(normalForm(expected), expected);
        }
    }
    void badLines()
    {
        const Rows<QString, QString> rows{
            // what is read of it nevertheless; the column, and what is said
            {R"(  ArcOn "arcondata1")", R"(ArcOn "-","-")", "3: arcon tl command format error"},
            {R"(ArcOn arcondata1,arcdata1)", R"(ArcOn "-","-")", "7: arcondata format error"},
            {R"(ArcOn "arcondata3",arcdata1)", R"(ArcOn "-","-")", "20: arcdata format error"},
            {R"(ArcOn "arcondata03","arcdata1")", R"(ArcOn "-","-")", "7: arcondata format error"},
            {R"(ArcOn "arcondata3", "arcdata0")", R"(ArcOn "arcondata3","-")",
             "21: arcdata format error"},
            {R"(ArcOff "arcdata1")", R"(ArcOff "-")", "8: arcoffdata format error"},
            {R"(WeaveOn "WeaveData7")", R"(WeaveOn "-")", "9: weavedata format error"},
            {R"(WeaveOn "weavedata41")", R"(WeaveOn "-")", "9: weavedata format error"},
            {R"(SegOn segdata1)", R"(SegOn "-")", "7: segdata format error"},
            {"DetectGas 0.05", "-", "11: detectgas time format error"},
            {"FeedBackWire -1", "-", "14: feedbackwire time format error"},
            {"FeedOnWire 2;", "-", "12: feedonwire time format error"},
            {"DetectGas nan", "-", "11: detectgas time format error"},
            {" FeedOnWire 1 2", "-", "2: feedonwire tl command format error"},
            {"FeedBackWire\t1", "-", "1: feedbackwire tl command format error"},
            {"WeaveOff ", "-", "1: weaveoff tl command format error"},
            {"SegOff;", "-", "1: segoff tl command format error"},
            {" WMoveL p1,s1,z1,t0,w0,\"w\",x", "-", "2: wmovel tl command format error"},
            {"WMoveC p1,s1,z1,t0", "-", "1: wmovec tl command format error"},
            {"WMoveC a,b,c,d,e,f,g,h", "-", "1: wmovec tl command format error"},
        };
        for (const auto &[line, expected, said] : rows) {
            const Reading reading = read(classify(line), line);
            QCOMPARE(reading.written, expected);
            QCOMPARE(reading.problems.size(), 1);
            const Problem &problem = reading.problems.first();
            QCOMPARE(QString("%1: %2").arg(problem.column).arg(shown(problem.message)), said);
        }
    }
    void points()
    {
        using Numbers = QVector<double>;
        const Rows<Kind, QString, Numbers, bool, QString> rows{
            // whether it reads as it is written; its normal form
            {"p10", Kind::Plain, "p10", Numbers{}, true, "p10"},
            {"Offs( p1 , 10,-5.50,0)", Kind::Offs, "p1", Numbers{10, -5.5, 0}, true,
             "Offs(p1,10,-5.5,0)"},
            {"Reltool(p1,0,0,1,2,3,4)", Kind::RelTool, "p1", Numbers{0, 0, 1, 2, 3, 4}, true,
             "Reltool(p1,0,0,1,2,3,4)"},
            {"Offs(p1,1,x,3)", Kind::Offs, "p1", Numbers{1, 0, 3}, false, ""},
            {"Offs(p1,1,nan)", Kind::Offs, "p1", Numbers{1, 0, 0}, false, ""},
            {"Offs(p1,1,2,3,4)", Kind::Offs, "p1", Numbers{1, 2, 3}, false, ""},
            {"Offs(p1,1.2345678,0,0)", Kind::Offs, "p1", Numbers{1.2345678, 0, 0}, true, ""},
            {"offs(p1,1,2,3)", Kind::Plain, "p1", Numbers{}, false, ""},
            {"Offs(,)", Kind::Offs, "", Numbers{0, 0, 0}, false, ""},
            {"Offs(RelTool(p1,0,0,1)", Kind::Offs, "RelTool(p1", Numbers{0, 0, 1}, true, ""},
            {"f(", Kind::Plain, "f(", Numbers{}, false, ""},
        };
        for (const auto &[text, kind, pointName, numbers, asWritten, normal] : rows) {
            const PointExpression point = PointExpression::parse(text);
            QCOMPARE(point.kind, kind);
            QCOMPARE(point.name, pointName);
            QCOMPARE(point.numbers, numbers);
            QCOMPARE(readsAsWritten(text), asWritten);
            QCOMPARE(normalPoint(text), normal);
        }
        QCOMPARE((PointExpression{Kind::RelTool, "p1", {1, 2.5}}).format(Spelling::Insert),
                 QString("RelTool(p1,1,2.5,0,0,0,0)"));
        QCOMPARE((PointExpression{Kind::Offs, "%2", {1, 2, 3, 4}}).format(Spelling::Property),
                 QString("Offs(%2,1,2,3)"));
    }
    // Whatever a name holds, it ends neither the line nor the argument.
    void namesStayWithinTheirArgument()
    {
        const QString evil = "a\"),b;(\r\nWeaveOff\n\t" + QString(QChar(0)) + QChar(0x2028) + "点";
        const QString safe = "a___b____WeaveOff____点";
        QCOMPARE(formatFileLine(Instruction::ArcOn, {evil, "w"}),
                 QString("ArcOn \"%1\",\"w\"").arg(safe));
        QCOMPARE((PointExpression{Kind::Offs, evil, {}}).format(Spelling::Property),
                 QString("Offs(%1,0,0,0)").arg(safe));
        const MoveParameters parameters{evil, evil, evil, evil, evil};
        QCOMPARE(formatMoveLine(Instruction::WMoveL, {"p1"}, parameters.format()),
                 QString("WMoveL p1,%1,%1,%1,%1,\"%1\"").arg(safe));
    }
    void nearMisses()
    {
        QStringList good;
        for (const auto &[name, line] : goodLines)
            good.append(line);
        QRandomGenerator random(4203);
        int normalised = 0;
        for (int i = 0; i < 30000; ++i) {
            QString line = i % 2 ? good.at(random.bounded(good.size())) : QString();
            line.insert(random.bounded(line.size() + 1), randomLine(random, i % 2 ? 1 : 12));
            QVERIFY2(readEveryWay(line), qPrintable(line));
            // The splitter takes a short cut after the last parenthesis, which must not show.
            QStringList tokens;
            for (auto found = grammar.globalMatch(line); found.hasNext();)
                tokens.append(found.next().captured());
            QCOMPARE(CharacterCheck::splitMoveTlCommand(line), tokens);
            // Or else "--fix" would change what a program does.
            const QString normal = normalForm(line);
            if (normal.isNull() || line.contains('\t')) // a tab is read otherwise than a blank
                continue;
            ++normalised;
            QCOMPARE(normalForm(normal), normal);
            QCOMPARE(read(classify(normal), normal).written,
                     read(classify(line), line.trimmed()).written);
        }
        QVERIFY(normalised > 1000);
    }
    // A megabyte; a time that grew with its square would end at the test's time limit.
    void longLines()
    {
        const Rows<QString, QString> rows{
            {"one word before nothing", "", "a"}, {"open expressions", "WMoveL f(x) ", "a("},
            {"empty expressions", "", "a()"},     {"opening parentheses", "f(x)", "("},
            {"quotes", "WeaveOn ", "\""},         {"separators", "ArcOn ", " ,"},
            {"digits", "FeedOnWire ", "9"},       {"letters outside ASCII", "WMoveL ", "点"},
        };
        for (const auto &[name, head, piece] : rows)
            QVERIFY(readEveryWay(head + piece.repeated(1024 * 1024 / piece.size()) + "()"));
    }
};

QTEST_GUILESS_MAIN(tst_InstructionLines)
#include "tst_instructionlines.moc"
