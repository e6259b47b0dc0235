#include <QtTest>

#include "support/datarows.h"
#include "tl/lineformat.h"
#include "tl/normalform.h"
#include "tl/parse.h"

using namespace testsupport;
using namespace welmo::tl;
using PointKind = PointExpression::Kind;
using Spelling = PointExpression::Spelling;

namespace {

/// What a property form writes of the line; "-" stands for what it could not read.
QString written(const ParsedLine &line)
{
    const Word word = line.instruction->word;
    if (line.instruction->kind == Kind::Files) {
        QStringList files;
        for (const auto &file : line.files)
            files.append(file.value_or("-"));
        return formatFileLine(word, files);
    }
    if (line.isRefused)
        return "-";
    if (line.instruction->kind == Kind::Bare)
        return line.instruction->text();
    if (line.instruction->kind == Kind::Timed)
        return line.seconds ? formatTimedLine(word, *line.seconds) : "-";
    QStringList points;
    for (const auto &point : {line.aux, line.target}) {
        if (point)
            points.append(point->reading.point.format(point->reading.spelling));
    }
    MoveParameters parameters{line.speed->text, line.zone->text, line.tool->text,
                              line.wobj ? line.wobj->text : "-", line.weaveFile()};
    return formatMoveLine(word, points, parameters.format());
}

/// Reads the line as every instruction; true if all problems lie within the line.
bool readEveryWay(const QString &line)
{
    for (const Instruction &instruction : instructions) {
        for (const Problem &problem : parseAs(instruction.word, line).problems) {
            if (problem.column < 1 || problem.column > qMax(1, line.size()))
                return false;
        }
    }
    readPoint(line);
    normalForm(line);
    return true;
}

} // namespace

/// Reading and writing the lines of each instruction.
class tst_InstructionLines : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase()
    {
        QLocale::setDefault(QLocale(QLocale::German)); // reading must not use it
    }
    void whatIsReadIsWrittenAgain_data()
    {
        addRows<QString>(
            {{R"(ArcOn "arcondata3", "arcdata40")", R"(ArcOn "arcondata3","arcdata40")"},
             {R"(ArcOn "ARCONDATA3","ArcData40";)", R"(ArcOn "arcondata3","arcdata40")"},
             {R"(ArcOff "ArcOffData1")", R"(ArcOff "arcoffdata1")"},
             {R"(SegOn, ("segdata40");)", R"(SegOn "segdata40")"},
             {"DetectGas 1e2", "DetectGas 100"},
             {"FeedOnWire  1.234,", "FeedOnWire 1.234"},
             {"FeedBackWire 123456.7", "FeedBackWire 123457"}, // six digits are written
             {"FeedBackWire -0", "FeedBackWire 0"},
             {"WMoveL Offs(p1, 1,2,3), s1 z1,tool0,w0", "WMoveL Offs(p1,1,2,3),s1,z1,tool0,w0"},
             {R"(WMoveC p2,p3,s1,z1,t0,w0,"weavedata1")",
              R"(WMoveC p2,p3,s1,z1,t0,w0,"weavedata1")"},
             {"WMoveC RelTool(p2,1,2,3,4,5,6),p3,s1,z1,t0,w0",
              "WMoveC RelTool(p2,1,2,3,4,5,6),p3,s1,z1,t0,w0"},
             {" \tWeaveOff ; // done", "WeaveOff"},
             {R"(ArcOff, "arcoffdata1")", R"(ArcOff "arcoffdata1")"},
             {"MoveJ p1,v10,fine,tool0,w0", "MoveJ p1,v10,fine,tool0,w0"},
             {"WMoveL p1,v10,fine,tool0 // wobj9", "WMoveL p1,v10,fine,tool0,-"}});
    }
    void whatIsReadIsWrittenAgain()
    {
        const auto &[text, expected] = currentRow<QString>();
        const ParsedLine line = parse(text);
        QCOMPARE(written(line), expected);
        QVERIFY(line.problems.isEmpty());
        QCOMPARE(written(parse(expected)), expected);
        if (line.instruction->standing != Standing::Host && !expected.endsWith('-'))
            QCOMPARE(normalForm(expected), expected);
    }
    void badLines_data()
    {
        // lines that examples/mistakes.tl lacks; what is read all the same; the problem and its
        // column
        addRows<QString, QString>(
            {{R"(  ArcOn "arcondata1")", R"(ArcOn "-","-")", "3: arcon tl command format error"},
             {"ArcOn arcondata1,arcdata1", R"(ArcOn "-","-")", "7: arcondata format error"},
             {R"(ArcOn "arcondata3", "arcdata0")", R"(ArcOn "arcondata3","-")",
              "21: arcdata format error"},
             {R"(ArcOff "arcdata1")", R"(ArcOff "-")", "8: arcoffdata format error"},
             {"DetectGas nan", "-", "11: detectgas time format error"},
             {" FeedOnWire 1 2", "-", "2: feedonwire tl command format error"},
             {"FeedBackWire\t1", "-", "1: feedbackwire tl command format error"},
             {"SegOff.", "-", "1: segoff tl command format error"},
             {" WMoveL p1,s1,z1,t0,w0,\"w\",x", "-", "2: wmovel tl command format error"},
             {"MoveL p1,v10,fine,t0,w0,\"weavedata1\"", "-", "1: movel format error"},
             {R"(WMoveL p1,s1,z1,tool0,"weavedata1")", "WMoveL p1,s1,z1,tool0,_weavedata1_",
              "23: wobj format error"}});
    }
    void badLines()
    {
        const auto &[text, expected, said] = currentRow<QString, QString>();
        // The parser takes "SegOff." for another word; the form does not look at the word.
        const ParsedLine line = text == "SegOff." ? parseAs(Word::SegOff, text) : parse(text);
        QCOMPARE(written(line), expected);
        QCOMPARE(line.problems.size(), 1);
        const Problem &problem = line.problems.first();
        QCOMPARE(QString("%1: %2").arg(problem.column).arg(shown(problem.message)), said);
    }
    // Only parse() removes blanks and comments around an instruction; a form does not.
    void formsReadWhatTheyAreGiven()
    {
        for (const auto &[line, word] :
             {std::pair{"WeaveOff ", Word::WeaveOff}, {"DetectGas 2 // s", Word::DetectGas}}) {
            QCOMPARE(parseAs(word, line).problems.size(), 1);
            QVERIFY(parse(line).problems.isEmpty());
        }
    }
    void whatIsAroundAnInstruction_data()
    {
        addRows<QString>({{" \tWeaveOff ; // a // b", " \t|WeaveOff| ; // a // b"},
                          {"ArcOff \"//\"//", "|ArcOff \"//\"|//"},
                          {"  # WeaveOff", "  ||# WeaveOff"},
                          {"!WeaveOff", "||!WeaveOff"},
                          {"", "||"},
                          {" \t", " \t||"}});
    }
    void whatIsAroundAnInstruction()
    {
        const auto &[text, parts] = currentRow<QString>();
        const ParsedLine line = parse(text);
        QCOMPARE((QStringList{line.before(), line.code(), line.after()}.join('|')), parts);
    }
    void meantWords_data()
    {
        addRows<QString>({{"Weaveoff", "WeaveOff"},
                          {"movel", "MoveL"},
                          {"WMovL", "WMoveL"},
                          {"WMoveLL", "WMoveL"},
                          {"ArcOm", "ArcOn"},
                          {"Weave", ""},
                          {"label:", ""},
                          {"MoveS", ""}}); // the host may have such a move
    }
    void meantWords()
    {
        const auto &[word, expected] = currentRow<QString>();
        const Instruction *meant = meantBy(word);
        QCOMPARE(meant ? meant->text() : QString(), expected);
    }
    void points_data()
    {
        // what is read; true if that is the whole text; the normal form
        addRows<PointKind, QString, QString, bool, QString>(
            {{"p10", PointKind::Plain, "p10", "", true, "p10"},
             {"Offs( p1 , 10,-5.50,0)", PointKind::Offs, "p1", "10 -5.5 0", true,
              "Offs(p1,10,-5.5,0)"},
             {"Reltool(p1,0,0,1,2,3,4)", PointKind::RelTool, "p1", "0 0 1 2 3 4", true,
              "Reltool(p1,0,0,1,2,3,4)"},
             {"Offs(p1,1,x,3)", PointKind::Offs, "p1", "1 0 3", false, ""},
             {"Offs(p1,1,nan)", PointKind::Offs, "p1", "1 0 0", false, ""},
             {"Offs(p1,1,2,3,4)", PointKind::Offs, "p1", "1 2 3", false, ""},
             {"Offs(p1,1.2345678,0,0)", PointKind::Offs, "p1", "1.2345678 0 0", true, ""},
             {"offs(p1,1,2,3)", PointKind::Plain, "p1", "", false, ""},
             {"Offs(,)", PointKind::Offs, "", "0 0 0", false, ""},
             {"Offs(RelTool(p1,0,0,1)", PointKind::Offs, "RelTool(p1", "0 0 1", true, ""},
             {"\"p.\t1\"", PointKind::Plain, "\"p.\t1\"", "", false, ""},
             {"f() Offs(p1,1,2,3)", PointKind::Offs, "p1", "1 2 3", false, ""}});
    }
    void points()
    {
        const auto &[text, kind, name, numbers, asWritten, normal] =
            currentRow<PointKind, QString, QString, bool, QString>();
        const PointReading reading = readPoint(text);
        QCOMPARE(reading.point.kind, kind);
        QCOMPARE(reading.point.name, name);
        QStringList read;
        for (const double number : reading.point.numbers)
            read.append(QString::number(number, 'g', 8));
        QCOMPARE(read.join(' '), numbers);
        QCOMPARE(reading.isAsWritten, asWritten);
        QCOMPARE(reading.normalForm(), normal);
    }
    void pointsAreWritten()
    {
        QCOMPARE((PointExpression{PointKind::RelTool, "p1", {1, 2.5}}).format(Spelling::Insert),
                 QString("RelTool(p1,1,2.5,0,0,0,0)"));
        QCOMPARE((PointExpression{PointKind::Offs, "%2", {1, 2, 3, 4}}).format(Spelling::Property),
                 QString("Offs(%2,1,2,3)"));
    }
    // No character of a name may end the line or the argument.
    void namesStayWithinTheirArgument()
    {
        const QString evil = "a\"),b;(\r\nWeaveOff\n\t" + QString(QChar(0)) + QChar(0x2028) + "点";
        const QString safe = "a___b____WeaveOff____点";
        QCOMPARE(formatFileLine(Word::ArcOn, {evil, "w"}), QString("ArcOn \"%1\",\"w\"").arg(safe));
        QCOMPARE((PointExpression{PointKind::Offs, evil, {}}).format(Spelling::Property),
                 QString("Offs(%1,0,0,0)").arg(safe));
        const MoveParameters parameters{evil, evil, evil, evil, evil};
        QCOMPARE(formatMoveLine(Word::WMoveL, {"p1"}, parameters.format()),
                 QString("WMoveL p1,%1,%1,%1,%1,\"%1\"").arg(safe));
    }
    void longLines_data()
    {
        addRows<QString, QString>({{"one word before nothing", "", "a"},
                                   {"open expressions", "WMoveL f(x) ", "a("},
                                   {"opening parentheses", "f(x)", "("},
                                   {"digits", "FeedOnWire ", "9"},
                                   {"letters outside ASCII", "WMoveL ", "点"}});
    }
    // A line of a megabyte would run into the time limit if the time grew with its square.
    void longLines()
    {
        const auto &[name, head, piece] = currentRow<QString, QString>();
        QVERIFY(readEveryWay(head + piece.repeated(1024 * 1024 / piece.size()) + "()"));
    }
};

QTEST_GUILESS_MAIN(tst_InstructionLines)
#include "tst_instructionlines.moc"
