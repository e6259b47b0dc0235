#include <QRandomGenerator>
#include <QtTest>

#include "tl/charactercheck.h"
#include "tl/lineformat.h"
#include "tl/normalform.h"
#include "tl/parse.h"

using namespace welmo::tl;
using PointKind = PointExpression::Kind;
using Spelling = PointExpression::Spelling;

namespace {

const QRegularExpression grammar(R"re((\w+\([^)]+\)|\"[^\"]*\"|\w+))re");

/// What a property form would write of a line; "-" stands for what was not read.
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

struct Case
{
    const char *line;
    QString written;
};

// What is read, and written again.
const Case goodLines[] = {
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
    {R"(WMoveC p2,p3,s1,z1,t0,w0,"weavedata1")", R"(WMoveC p2,p3,s1,z1,t0,w0,"weavedata1")"},
    {"WMoveC RelTool(p2,1,2,3,4,5,6),p3,s1,z1,t0,w0",
     "WMoveC RelTool(p2,1,2,3,4,5,6),p3,s1,z1,t0,w0"},
    {" \tWeaveOff ; // done", "WeaveOff"},
    {R"(ArcOff, "arcoffdata1")", R"(ArcOff "arcoffdata1")"},
    {"FeedOnWire 4000;", "FeedOnWire 4000"},
    {"MoveJ p1,v10,fine,tool0,w0", "MoveJ p1,v10,fine,tool0,w0"},
    {"WMoveL p1,v10,fine,tool0 // wobj9", "WMoveL p1,v10,fine,tool0,-"},
};

} // namespace

Q_DECLARE_METATYPE(welmo::tl::Word)

/// How a line falls into tokens, what each instruction's lines say, what is wrong with them, and
/// how they are written.
class tst_InstructionLines : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase()
    {
        QLocale::setDefault(QLocale(QLocale::German)); // must not matter
    }
    void tokens_data()
    {
        QTest::addColumn<QString>("quoted"); // the first quoted text
        QTest::addColumn<QString>("split");
        QTest::newRow(R"(ArcOn "a1", "w2")") << "a1"
                                             << R"(ArcOn|"a1"|"w2")";
        QTest::newRow("  ,, ") << QString() << "";
        QTest::newRow(R"(a "")") << ""
                                 << R"(a|"")";
        QTest::newRow("a \"b") << QString() << "a|\"b";
        QTest::newRow("\"a\\\"b\"") << "a\\"
                                    << "\"a\\\"b\""; // no escapes
        QTest::newRow(R"(ArcOn "my data")") << "my data"
                                            << R"(ArcOn|"my|data")";
        QTest::newRow(", DetectGas ,1.5;, ") << QString() << "DetectGas|1.5;";
        QTest::newRow("f(a\tb,点)") << QString() << "f(a\tb|点)";
    }
    void tokens()
    {
        QFETCH(QString, quoted);
        const QString line = QTest::currentDataTag();
        const QString found = CharacterCheck::checkQuotationMarks(line);
        QCOMPARE(found, quoted);
        QCOMPARE(found.isNull(), quoted.isNull()); // "" and no quotes at all are two things
        QTEST(CharacterCheck::splitTlCommand(line).join('|'), "split");
    }
    void whatIsReadIsWrittenAgain_data()
    {
        QTest::addColumn<QString>("expected");
        for (const Case &good : goodLines)
            QTest::newRow(good.line) << good.written;
    }
    void whatIsReadIsWrittenAgain()
    {
        QFETCH(QString, expected);
        const ParsedLine line = parse(QTest::currentDataTag());
        QCOMPARE(written(line), expected);
        QVERIFY(line.problems.isEmpty());
        QCOMPARE(written(parse(expected)), expected);
        if (line.instruction->standing != Standing::Host && !expected.endsWith('-'))
            QCOMPARE(normalForm(expected), expected);
    }
    void badLines_data()
    {
        QTest::addColumn<QString>("expected"); // what is read of it nevertheless
        QTest::addColumn<QString>("said"); // the column, and what is said
        const auto add = [](const char *line, const QString &expected, const QString &said) {
            QTest::newRow(line) << expected << said;
        };
        add(R"(  ArcOn "arcondata1")", R"(ArcOn "-","-")", "3: arcon tl command format error");
        add("ArcOn arcondata1,arcdata1", R"(ArcOn "-","-")", "7: arcondata format error");
        add(R"(ArcOn "arcondata3",arcdata1)", R"(ArcOn "-","-")", "20: arcdata format error");
        add(R"(ArcOn "arcondata03","arcdata1")", R"(ArcOn "-","-")", "7: arcondata format error");
        add(R"(ArcOn "arcondata3", "arcdata0")", R"(ArcOn "arcondata3","-")",
            "21: arcdata format error");
        add(R"(ArcOff "arcdata1")", R"(ArcOff "-")", "8: arcoffdata format error");
        add(R"(WeaveOn "WeaveData7")", R"(WeaveOn "-")", "9: weavedata format error");
        add(R"(WeaveOn "weavedata41")", R"(WeaveOn "-")", "9: weavedata format error");
        add("SegOn segdata1", R"(SegOn "-")", "7: segdata format error");
        add("DetectGas 0.05", "-", "11: detectgas time format error");
        add("DetectGas 1,5", "-", "11: detectgas time format error");
        add("DetectGas 1, 5", "-", "1: detectgas tl command format error");
        add("FeedBackWire -1", "-", "14: feedbackwire time format error");
        add("FeedOnWire 2;5", "-", "12: feedonwire time format error");
        add("DetectGas nan", "-", "11: detectgas time format error");
        add(" FeedOnWire 1 2", "-", "2: feedonwire tl command format error");
        add("FeedBackWire\t1", "-", "1: feedbackwire tl command format error");
        add("SegOff.", "-", "1: segoff tl command format error");
        add(" WMoveL p1,s1,z1,t0,w0,\"w\",x", "-", "2: wmovel tl command format error");
        add("WMoveC p1,s1,z1,t0", "-", "1: wmovec tl command format error");
        add("WMoveC a,b,c,d,e,f,g,h", "-", "1: wmovec tl command format error");
        add("MoveL p1,v10,fine,t0,w0,\"weavedata1\"", "-", "1: movel format error");
        add(R"(WMoveL p1,s1,z1,tool0,"weavedata1")", "WMoveL p1,s1,z1,tool0,_weavedata1_",
            "23: wobj format error");
    }
    void badLines()
    {
        const QString text = QTest::currentDataTag();
        ParsedLine line = parse(text);
        if (text == "SegOff.") // another word, but the form reads any
            line = parseAs(Word::SegOff, text);
        QTEST(written(line), "expected");
        QCOMPARE(line.problems.size(), 1);
        const Problem &problem = line.problems.first();
        QTEST(QString("%1: %2").arg(problem.column).arg(shown(problem.message)), "said");
    }
    // A form is handed text as it stands; what is around an instruction is for others to take off.
    void formsReadWhatTheyAreGiven_data()
    {
        QTest::addColumn<Word>("word");
        QTest::newRow("WeaveOff ") << Word::WeaveOff;
        QTest::newRow("SegOff;") << Word::SegOff;
        QTest::newRow("FeedOnWire 2;") << Word::FeedOnWire;
        QTest::newRow("DetectGas 2 // s") << Word::DetectGas;
    }
    void formsReadWhatTheyAreGiven()
    {
        QFETCH(Word, word);
        QCOMPARE(parseAs(word, QTest::currentDataTag()).problems.size(), 1);
        QVERIFY(parse(QTest::currentDataTag()).problems.isEmpty());
    }
    void whatIsAroundAnInstruction_data()
    {
        QTest::addColumn<QString>("parts");
        QTest::newRow(" \tWeaveOff ; // a // b") << " \t|WeaveOff| ; // a // b";
        QTest::newRow("ArcOff \"//\"//") << "|ArcOff \"//\"|//";
        QTest::newRow("ArcOff \" // x") << "|ArcOff \"| // x";
        QTest::newRow("  # WeaveOff") << "  ||# WeaveOff";
        QTest::newRow("!WeaveOff") << "||!WeaveOff";
        QTest::newRow("") << "||";
        QTest::newRow(" \t") << " \t||";
    }
    void whatIsAroundAnInstruction()
    {
        const ParsedLine line = parse(QTest::currentDataTag());
        QTEST((QStringList{line.before(), line.code(), line.after()}.join('|')), "parts");
    }
    void meantWords_data()
    {
        QTest::addColumn<QString>("meant");
        QTest::newRow("Weaveoff") << "WeaveOff";
        QTest::newRow("movel") << "MoveL";
        QTest::newRow("WMovL") << "WMoveL";
        QTest::newRow("WMoveLL") << "WMoveL";
        QTest::newRow("ArcOm") << "ArcOn";
        QTest::newRow("MoveS") << ""; // may be a move of the host's
        QTest::newRow("Weave") << "";
        QTest::newRow("label:") << "";
    }
    void meantWords()
    {
        const Instruction *meant = meantBy(QTest::currentDataTag());
        QTEST(meant ? meant->text() : QString(), "meant");
    }
    void points_data()
    {
        using Numbers = QVector<double>;
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("name");
        QTest::addColumn<Numbers>("numbers");
        QTest::addColumn<bool>("asWritten");
        QTest::addColumn<QString>("normal");
        const auto add = [](const char *text, PointKind kind, const char *name,
                            const Numbers &numbers, bool asWritten, const char *normal) {
            QTest::newRow(text) << int(kind) << name << numbers << asWritten << normal;
        };
        add("p10", PointKind::Plain, "p10", {}, true, "p10");
        add("Offs( p1 , 10,-5.50,0)", PointKind::Offs, "p1", {10, -5.5, 0}, true,
            "Offs(p1,10,-5.5,0)");
        add("Reltool(p1,0,0,1,2,3,4)", PointKind::RelTool, "p1", {0, 0, 1, 2, 3, 4}, true,
            "Reltool(p1,0,0,1,2,3,4)");
        add("Offs(p1,1,x,3)", PointKind::Offs, "p1", {1, 0, 3}, false, "");
        add("Offs(p1,1,nan)", PointKind::Offs, "p1", {1, 0, 0}, false, "");
        add("Offs(p1,1,2,3,4)", PointKind::Offs, "p1", {1, 2, 3}, false, "");
        add("Offs(p1,1.2345678,0,0)", PointKind::Offs, "p1", {1.2345678, 0, 0}, true, "");
        add("offs(p1,1,2,3)", PointKind::Plain, "p1", {}, false, "");
        add("Offs(,)", PointKind::Offs, "", {0, 0, 0}, false, "");
        add("Offs(RelTool(p1,0,0,1)", PointKind::Offs, "RelTool(p1", {0, 0, 1}, true, "");
        add("f(", PointKind::Plain, "f(", {}, false, "");
        add("f() Offs(p1,1,2,3)", PointKind::Offs, "p1", {1, 2, 3}, false, "");
    }
    void points()
    {
        const PointReading reading = readPoint(QTest::currentDataTag());
        QTEST(int(reading.point.kind), "kind");
        QTEST(reading.point.name, "name");
        QTEST(reading.point.numbers, "numbers");
        QTEST(reading.isAsWritten, "asWritten");
        QTEST(reading.normalForm(), "normal");
    }
    void pointsAreWritten()
    {
        QCOMPARE((PointExpression{PointKind::RelTool, "p1", {1, 2.5}}).format(Spelling::Insert),
                 QString("RelTool(p1,1,2.5,0,0,0,0)"));
        QCOMPARE((PointExpression{PointKind::Offs, "%2", {1, 2, 3, 4}}).format(Spelling::Property),
                 QString("Offs(%2,1,2,3)"));
    }
    // Whatever a name holds, it ends neither the line nor the argument.
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
    void nearMisses()
    {
        QStringList good;
        for (const Case &each : goodLines)
            good.append(each.line);
        QRandomGenerator random(4203);
        int normalised = 0;
        for (int i = 0; i < 30000; ++i) {
            QString line = i % 2 ? good.at(random.bounded(good.size())) : QString();
            line.insert(random.bounded(line.size() + 1), randomLine(random, i % 2 ? 1 : 12));
            QVERIFY2(readEveryWay(line), qPrintable(line));
            // The scanners stand for these expressions.
            QStringList tokens;
            for (auto found = grammar.globalMatch(line); found.hasNext();)
                tokens.append(found.next().captured());
            QCOMPARE(CharacterCheck::splitMoveTlCommand(line), tokens);
            QCOMPARE(CharacterCheck::splitTlCommand(line),
                     line.split(QRegularExpression("[ ,]"), Qt::SkipEmptyParts));
            // Or else "--fix" would change what a program does.
            const QString normal = normalForm(line);
            if (normal.isNull() || line.contains('\t')) // a tab is read otherwise than a blank
                continue;
            ++normalised;
            QCOMPARE(normalForm(normal), normal);
            QCOMPARE(written(parse(normal)), written(parse(line)));
        }
        QVERIFY(normalised > 1000);
    }
    // A megabyte; a time that grew with its square would end at the test's time limit.
    void longLines_data()
    {
        QTest::addColumn<QString>("head");
        QTest::addColumn<QString>("piece");
        QTest::newRow("one word before nothing") << ""
                                                 << "a";
        QTest::newRow("open expressions") << "WMoveL f(x) "
                                          << "a(";
        QTest::newRow("empty expressions") << ""
                                           << "a()";
        QTest::newRow("opening parentheses") << "f(x)"
                                             << "(";
        QTest::newRow("quotes") << "WeaveOn "
                                << "\"";
        QTest::newRow("separators") << "ArcOn "
                                    << " ,";
        QTest::newRow("digits") << "FeedOnWire "
                                << "9";
        QTest::newRow("letters outside ASCII") << "WMoveL "
                                               << "点";
    }
    void longLines()
    {
        QFETCH(QString, head);
        QFETCH(QString, piece);
        QVERIFY(readEveryWay(head + piece.repeated(1024 * 1024 / piece.size()) + "()"));
    }
};

QTEST_GUILESS_MAIN(tst_InstructionLines)
#include "tst_instructionlines.moc"
