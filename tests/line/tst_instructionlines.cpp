#include <QtTest>

#include "readback.h"

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
    void lines_data();
    void lines();
    void timeIsWrittenWithSixDigits();
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

// What is read and written again, and what is said.
void tst_InstructionLines::lines_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<QString>("problems");
    const auto row = [](const char *line, const char *expected, const char *problems = "") {
        QTest::newRow(line) << line << expected << problems;
    };
    row(R"(ArcOn "arcondata3", "arcdata40")", R"(ArcOn "arcondata3","arcdata40")");
    row(R"(ArcOn "ARCONDATA3","ArcData40";)", R"(ArcOn "arcondata3","arcdata40")");
    const char *arcOn = R"(ArcOn "-","-")";
    row(R"(  ArcOn "arcondata1")", arcOn, "3: arcon tl command format error");
    row(R"(ArcOn "arcondata1","arcdata1",1)", arcOn, "1: arcon tl command format error");
    row(R"(ArcOn arcondata1,arcdata1)", arcOn, "7: arcondata format error");
    // Both arguments' quotes are looked at before the first name is looked up.
    row(R"(ArcOn "arcondata3",arcdata1)", arcOn, "20: arcdata format error");
    row(R"(ArcOn "arcondata41","arcdata1")", arcOn, "7: arcondata format error");
    row(R"(ArcOn "arcondata03","arcdata1")", arcOn, "7: arcondata format error");
    row(R"(ArcOn "","arcdata1")", arcOn, "7: arcondata format error");
    row(R"(ArcOn "arcondata3", "arcdata0")", R"(ArcOn "arcondata3","-")",
        "21: arcdata format error");
    row(R"(ArcOff "ArcOffData1")", R"(ArcOff "arcoffdata1")");
    row(R"(ArcOff arcoffdata1)", R"(ArcOff "-")", "8: arcoffdata format error");
    row(R"(ArcOff)", R"(ArcOff "-")", "1: arcoff tl command format error");
    row(R"(ArcOff "arcdata1")", R"(ArcOff "-")", "8: arcoffdata format error");
    row(R"(WeaveOn "weavedata7")", R"(WeaveOn "weavedata7")");
    row(R"(WeaveOn "WeaveData7")", R"(WeaveOn "-")", "9: weavedata format error");
    row(R"(WeaveOn "weavedata41")", R"(WeaveOn "-")", "9: weavedata format error");
    row(R"(WeaveOn weavedata7)", R"(WeaveOn "-")", "9: weavedata format error");
    row(R"(WeaveOn "weavedata7" "x")", R"(WeaveOn "-")", "1: weaveon tl command format error");
    row(R"(SegOn, ("segdata40");)", R"(SegOn "segdata40")");
    row(R"(SegOn segdata1)", R"(SegOn "-")", "7: segdata format error");
    row(R"(SegOn "segdata1" 2)", R"(SegOn "-")", "1: segon tl command format error");

    row("DetectGas 0.1", "DetectGas 0.1");
    row("DetectGas 1e2", "DetectGas 100");
    row("FeedOnWire  1.234,", "FeedOnWire 1.234");
    row("FeedBackWire 0.05", "FeedBackWire 0.05");
    row("FeedBackWire 0", "FeedBackWire 0");
    row("DetectGas 0.05", "-", "11: detectgas time format error");
    row("FeedOnWire 0.0999", "-", "12: feedonwire time format error");
    row("FeedBackWire -1", "-", "14: feedbackwire time format error");
    row("FeedOnWire abc", "-", "12: feedonwire time format error");
    row("FeedOnWire 2;", "-", "12: feedonwire time format error");
    row("DetectGas nan", "-", "11: detectgas time format error");
    row("DetectGas 1e999", "-", "11: detectgas time format error");
    row("FeedOnWire", "-", "1: feedonwire tl command format error");
    row(" FeedOnWire 1 2", "-", "2: feedonwire tl command format error");
    row("DetectGas 1,5", "-", "1: detectgas tl command format error"); // a comma separates
    row("FeedBackWire\t1", "-", "1: feedbackwire tl command format error");

    row("WeaveOff", "WeaveOff");
    row("WeaveOff ", "-", "1: weaveoff tl command format error");
    row("\tWeaveOff", "-", "2: weaveoff tl command format error");
    row("SegOff", "SegOff");
    row("SegOff;", "-", "1: segoff tl command format error");

    row("WMoveL p1,s1,z1,tool0", "WMoveL p1,s1,z1,tool0,-");
    row("WMoveL Offs(p1, 1,2,3), s1 z1,tool0,w0", "WMoveL Offs(p1,1,2,3),s1,z1,tool0,w0");
    // A weave without a work object stands in the work object's place.
    row(R"(WMoveL p1,s1,z1,tool0,"w1")", "WMoveL p1,s1,z1,tool0,_w1_");
    row(R"(WMoveC p2,p3,s1,z1,t0,w0,"w1")", R"(WMoveC p2,p3,s1,z1,t0,w0,"w1")");
    row("WMoveC p2,p3,s1,z1,t0", "WMoveC p2,p3,s1,z1,t0,-");
    row("WMoveL p1,s1,z1", "-", "1: wmovel tl command format error");
    row(" WMoveL p1,s1,z1,t0,w0,\"w\",x", "-", "2: wmovel tl command format error");
    row("WMoveC p1,s1,z1,t0", "-", "1: wmovec tl command format error");
    row("WMoveC a,b,c,d,e,f,g,h", "-", "1: wmovec tl command format error");
}

void tst_InstructionLines::lines()
{
    QFETCH(QString, line);
    QLocale::setDefault(QLocale(QLocale::German)); // must not matter
    const Instruction instruction = welmo::line::classify(line);
    QTEST(readback::again(instruction, line), "expected");
    QTEST(written(readback::problems(instruction, line)), "problems");
}

void tst_InstructionLines::timeIsWrittenWithSixDigits()
{
    QLocale::setDefault(QLocale(QLocale::German));
    QCOMPARE(formatTimedLine(Instruction::FeedOnWire, 1.5), QString("FeedOnWire 1.5"));
    QCOMPARE(formatTimedLine(Instruction::FeedBackWire, 123456.7), QString("FeedBackWire 123457"));
    QCOMPARE(formatTimedLine(Instruction::FeedBackWire, -0.0), QString("FeedBackWire 0"));
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
