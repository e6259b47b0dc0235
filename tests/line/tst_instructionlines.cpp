#include <QtTest>

#include "instructions/line/fileline.h"
#include "instructions/line/moveline.h"
#include "instructions/line/pointexpression.h"
#include "instructions/line/timedline.h"
#include "instructions/line/wordline.h"

using namespace welmo::line;
using Kind = PointExpression::Kind;
using Spelling = PointExpression::Spelling;

Q_DECLARE_METATYPE(Instruction)
Q_DECLARE_METATYPE(PointExpression)

namespace {

QString written(const Problems &problems)
{
    QStringList list;
    for (const Problem &problem : problems)
        list.append(QStringLiteral("%1: %2").arg(problem.column).arg(shown(problem.message)));
    return list.join('\n');
}

} // namespace

/// What each instruction's lines say, what is wrong with them, and how they are written.
class tst_InstructionLines : public QObject
{
    Q_OBJECT
private slots:
    void classify_data();
    void classify();
    void files_data();
    void files();
    void times_data();
    void times();
    void timeIsWrittenWithSixDigits();
    void words();
    void moves_data();
    void moves();
    void points_data();
    void points();
    void numbersFillUp();
    void namesStayWithinTheirArgument();
};

void tst_InstructionLines::classify_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<Instruction>("expected");
    const auto row = [](const char *line, Instruction expected) {
        QTest::newRow(line) << QString::fromUtf8(line) << expected;
    };
    row("ArcOn \"a\",\"b\"", Instruction::ArcOn);
    row(" \t WMoveC", Instruction::WMoveC);
    row("WeaveOff;", Instruction::WeaveOff);
    row("SegOn\"segdata1\"", Instruction::SegOn);
    row("DetectGas,1", Instruction::DetectGas);
    row("WMoveL(p1)", Instruction::WMoveL);
    row("arcon \"a\",\"b\"", Instruction::None);
    row("ArcOnce", Instruction::None);
    row("ArcOn:", Instruction::None);
    row("MoveJ p1,v100,fine,tool0", Instruction::None);
    row("// ArcOn", Instruction::None);
    row("!ArcOff", Instruction::None);
    row("", Instruction::None);
    row("\"ArcOn\"", Instruction::None);
}

void tst_InstructionLines::classify()
{
    QFETCH(QString, line);
    QTEST(welmo::line::classify(line), "expected");
}

void tst_InstructionLines::files_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("expected"); // "-": not recognised
    QTest::addColumn<QString>("problems");
    const auto row = [](const char *line, const QStringList &expected, const char *problems = "") {
        QTest::newRow(line) << QString::fromUtf8(line) << expected << QString::fromUtf8(problems);
    };
    row(R"(ArcOn "arcondata3", "arcdata40")", {"arcondata3", "arcdata40"});
    row(R"(ArcOn "ARCONDATA3","ArcData40")", {"arcondata3", "arcdata40"});
    row(R"(Anything "arcondata1" "arcdata1")", {"arcondata1", "arcdata1"});
    row(R"(ArcOn "arcondata1","arcdata1";)", {"arcondata1", "arcdata1"});
    row(R"(  ArcOn "arcondata1")", {"-", "-"}, "3: arcon tl command format error");
    row(R"(ArcOn "arcondata1","arcdata1",1)", {"-", "-"}, "1: arcon tl command format error");
    row(R"(ArcOn arcondata1,arcdata1)", {"-", "-"}, "7: arcondata format error");
    // Both arguments' quotes are looked at before the first name is looked up.
    row(R"(ArcOn "arcondata3",arcdata1)", {"-", "-"}, "20: arcdata format error");
    row(R"(ArcOn "arcondata41","arcdata1")", {"-", "-"}, "7: arcondata format error");
    row(R"(ArcOn "arcondata03","arcdata1")", {"-", "-"}, "7: arcondata format error");
    row(R"(ArcOn "","arcdata1")", {"-", "-"}, "7: arcondata format error");
    row(R"(ArcOn "arcondata3", "arcdata0")", {"arcondata3", "-"}, "21: arcdata format error");
    row(R"(ArcOff "ArcOffData1")", {"arcoffdata1"});
    row(R"(ArcOff arcoffdata1)", {"-"}, "8: arcoffdata format error");
    row(R"(ArcOff)", {"-"}, "1: arcoff tl command format error");
    row(R"(ArcOff "arcdata1")", {"-"}, "8: arcoffdata format error");
    row(R"(WeaveOn "weavedata7")", {"weavedata7"});
    row(R"(WeaveOn "WeaveData7")", {"-"}, "9: weavedata format error");
    row(R"(WeaveOn "weavedata41")", {"-"}, "9: weavedata format error");
    row(R"(WeaveOn weavedata7)", {"-"}, "9: weavedata format error");
    row(R"(WeaveOn "weavedata7" "x")", {"-"}, "1: weaveon tl command format error");
    row(R"(SegOn "segdata40")", {"segdata40"});
    row(R"(SegOn, ("segdata40");)", {"segdata40"});
    row(R"(SegOn segdata1)", {"-"}, "7: segdata format error");
    row(R"(SegOn "segdata1" 2)", {"-"}, "1: segon tl command format error");
}

void tst_InstructionLines::files()
{
    QFETCH(QString, line);
    const Instruction known = welmo::line::classify(line);
    const FileLine parsed =
        parseFileLine(known == Instruction::None ? Instruction::ArcOn : known, line);
    QStringList found;
    for (const auto &file : parsed.files)
        found.append(file.value_or("-"));
    QTEST(found, "expected");
    QTEST(written(parsed.problems), "problems");
}

void tst_InstructionLines::times_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<double>("expected"); // negative: refused
    QTest::addColumn<QString>("problems");
    const auto row = [](const char *line, double expected, const char *problems = "") {
        QTest::newRow(line) << QString::fromUtf8(line) << expected << QString::fromUtf8(problems);
    };
    row("DetectGas 0.1", 0.1);
    row("DetectGas 1e2", 100);
    row("DetectGas 0.05", -1, "11: detectgas time format error");
    row("FeedOnWire 0.0999", -1, "12: feedonwire time format error");
    row("FeedBackWire 0.05", 0.05);
    row("FeedBackWire 0", 0);
    row("FeedBackWire -1", -1, "14: feedbackwire time format error");
    row("FeedOnWire abc", -1, "12: feedonwire time format error");
    row("FeedOnWire 2;", -1, "12: feedonwire time format error");
    row("FeedOnWire  1.234,", 1.234);
    row("DetectGas nan", -1, "11: detectgas time format error");
    row("DetectGas inf", -1, "11: detectgas time format error");
    row("DetectGas 1e999", -1, "11: detectgas time format error");
    row("FeedOnWire", -1, "1: feedonwire tl command format error");
    row(" FeedOnWire 1 2", -1, "2: feedonwire tl command format error");
    row("DetectGas 1,5", -1, "1: detectgas tl command format error"); // a comma separates
    row("FeedBackWire\t1", -1, "1: feedbackwire tl command format error");
}

void tst_InstructionLines::times()
{
    QFETCH(QString, line);
    QLocale::setDefault(QLocale(QLocale::German)); // must not matter
    const TimedLine parsed = parseTimedLine(welmo::line::classify(line), line);
    QTEST(parsed.seconds.value_or(-1), "expected");
    QTEST(written(parsed.problems), "problems");
}

void tst_InstructionLines::timeIsWrittenWithSixDigits()
{
    QLocale::setDefault(QLocale(QLocale::German));
    QCOMPARE(formatTimedLine(Instruction::FeedOnWire, 1.5), QString("FeedOnWire 1.5"));
    QCOMPARE(formatTimedLine(Instruction::DetectGas, 2), QString("DetectGas 2"));
    QCOMPARE(formatTimedLine(Instruction::FeedBackWire, 123456.7), QString("FeedBackWire 123457"));
    QCOMPARE(formatTimedLine(Instruction::FeedBackWire, -0.0), QString("FeedBackWire 0"));
}

void tst_InstructionLines::words()
{
    QVERIFY(checkWordLine(Instruction::WeaveOff, "WeaveOff").isEmpty());
    QVERIFY(checkWordLine(Instruction::SegOff, "SegOff").isEmpty());
    for (const char *line : {"WeaveOff ", " WeaveOff", "weaveoff", "WeaveOff;", ""})
        QVERIFY(written(checkWordLine(Instruction::WeaveOff, line))
                    .endsWith(": weaveoff tl command format error"));
    QCOMPARE(written(checkWordLine(Instruction::SegOff, "  segoff")),
             QString("3: segoff tl command format error"));
}

void tst_InstructionLines::moves_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("expected");
    QTest::addColumn<QString>("problems");
    const auto row = [](const char *line, const QStringList &expected, const char *problems = "") {
        QTest::newRow(line) << QString::fromUtf8(line) << expected << QString::fromUtf8(problems);
    };
    row("WMoveL p1,s1,z1,tool0", {"-", "8 p1", "11 s1", "14 z1", "17 tool0", "-", "-"});
    row("WMoveL Offs(p1, 1,2,3), s1 z1,tool0,w0",
        {"-", "8 Offs(p1, 1,2,3)", "25 s1", "28 z1", "31 tool0", "37 w0", "-"});
    // A weave without a work object stands in the work object's place.
    row(R"(WMoveL p1,s1,z1,tool0,"w1")",
        {"-", "8 p1", "11 s1", "14 z1", "17 tool0", "23 \"w1\"", "-"});
    row(R"(WMoveC p2,p3,s1,z1,t0,w0,"w1")",
        {"8 p2", "11 p3", "14 s1", "17 z1", "20 t0", "23 w0", "26 \"w1\""});
    row("WMoveC p2,p3,s1,z1,t0", {"8 p2", "11 p3", "14 s1", "17 z1", "20 t0", "-", "-"});
    const QStringList none{"-", "-", "-", "-", "-", "-", "-"};
    row("WMoveL p1,s1,z1", none, "1: wmovel tl command format error");
    row(" WMoveL p1,s1,z1,t0,w0,\"w\",x", none, "2: wmovel tl command format error");
    row("WMoveC p1,s1,z1,t0", none, "1: wmovec tl command format error");
    row("WMoveC a,b,c,d,e,f,g,h", none, "1: wmovec tl command format error");
}

void tst_InstructionLines::moves()
{
    QFETCH(QString, line);
    const MoveLine move = parseMoveLine(welmo::line::classify(line), line);
    QStringList found;
    for (const auto &token :
         {move.aux, move.target, move.speed, move.zone, move.tool, move.wobj, move.weave})
        found.append(token ? QStringLiteral("%1 %2").arg(token->column).arg(token->text) : "-");
    QTEST(found, "expected");
    QTEST(written(move.problems), "problems");
}

void tst_InstructionLines::points_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<PointExpression>("expected");
    QTest::addColumn<bool>("asWritten");
    QTest::addColumn<QString>("normal");
    const auto row = [](const char *text, const PointExpression &expected, bool asWritten,
                        const char *normal) {
        QTest::newRow(text) << QString::fromUtf8(text) << expected << asWritten
                            << QString::fromUtf8(normal);
    };
    row("p10", {Kind::Plain, "p10", {}}, true, "p10");
    row("Offs( p1 , 10,-5.50,0)", {Kind::Offs, "p1", {10, -5.5, 0}}, true, "Offs(p1,10,-5.5,0)");
    row("RelTool(p1,0,0,1,2,3,4)", {Kind::RelTool, "p1", {0, 0, 1, 2, 3, 4}}, true,
        "RelTool(p1,0,0,1,2,3,4)");
    row("Reltool(p1,0,0,1,2,3,4)", {Kind::RelTool, "p1", {0, 0, 1, 2, 3, 4}}, true,
        "Reltool(p1,0,0,1,2,3,4)");
    row("Offs(p1,1,2)", {Kind::Offs, "p1", {1, 2, 0}}, false, "");
    row("Offs(p1,1,x,3)", {Kind::Offs, "p1", {1, 0, 3}}, false, "");
    row("Offs(p1,1,nan,inf)", {Kind::Offs, "p1", {1, 0, 0}}, false, "");
    row("Offs(p1,1,2,3,4)", {Kind::Offs, "p1", {1, 2, 3}}, false, "");
    row("Offs(p1,1.2345678,0,0)", {Kind::Offs, "p1", {1.2345678, 0, 0}}, true, "");
    row("offs(p1,1,2,3)", {Kind::Plain, "p1", {}}, false, "");
    row("Shift(p1)", {Kind::Plain, "p1", {}}, false, "");
    row("Offs(,)", {Kind::Offs, "", {0, 0, 0}}, false, "");
    row("Offs(RelTool(p1,0,0,1)", {Kind::Offs, "RelTool(p1", {0, 0, 1}}, true, "");
    row("", {Kind::Plain, "", {}}, true, "");
    row("f(", {Kind::Plain, "f(", {}}, false, "");
}

void tst_InstructionLines::points()
{
    QFETCH(QString, text);
    QFETCH(PointExpression, expected);
    const PointExpression point = PointExpression::parse(text);
    QCOMPARE(point.kind, expected.kind);
    QCOMPARE(point.name, expected.name);
    QCOMPARE(point.numbers, expected.numbers);
    QTEST(readsAsWritten(text), "asWritten");
    QTEST(normalPoint(text), "normal");
}

void tst_InstructionLines::numbersFillUp()
{
    QCOMPARE((PointExpression{Kind::RelTool, "p1", {1, 2.5}}).format(Spelling::Insert),
             QString("RelTool(p1,1,2.5,0,0,0,0)"));
    QCOMPARE(
        (PointExpression{Kind::RelTool, "p1", {1, 2, 3, 4, 5, 6, 7}}).format(Spelling::Property),
        QString("Reltool(p1,1,2,3,4,5,6)"));
    QCOMPARE((PointExpression{Kind::Offs, "%2", {1234567}}).format(Spelling::Insert),
             QString("Offs(%2,1.23457e+06,0,0)"));
    QCOMPARE((PointExpression{Kind::Plain, "p1", {1, 2}}).format(Spelling::Insert), QString("p1"));
}

// Whatever a name holds, it ends neither the line nor the argument.
void tst_InstructionLines::namesStayWithinTheirArgument()
{
    const QString evil = "a\"),b;(\r\nWeaveOff\n\t" + QString(QChar(0)) + QChar(0x2028) + "点";
    const QString safe = "a___b____WeaveOff____点";
    QCOMPARE(formatFileLine(Instruction::ArcOn, {evil, "w"}),
             QString("ArcOn \"%1\",\"w\"").arg(safe));
    QCOMPARE((PointExpression{Kind::Offs, evil, {}}).format(Spelling::Property),
             QString("Offs(%1,0,0,0)").arg(safe));
    QCOMPARE((PointExpression{Kind::Plain, evil, {}}).format(Spelling::Insert), safe);
    const MoveParameters parameters{evil, evil, evil, evil, evil};
    QCOMPARE(formatMoveLine(Instruction::WMoveL, {"p1"}, parameters.format()),
             QString("WMoveL p1,%1,%1,%1,%1,\"%1\"").arg(safe));
}

QTEST_GUILESS_MAIN(tst_InstructionLines)
#include "tst_instructionlines.moc"
