#include <QtTest>

#include "readback.h"
#include "support/rows.h"

using namespace welmo::line;
using Kind = PointExpression::Kind;
using Spelling = PointExpression::Spelling;
using testsupport::Rows;

/// What each instruction's lines say, what is wrong with them, and how they are written.
class tst_InstructionLines : public QObject
{
    Q_OBJECT
private slots:
    void classify()
    {
        const Rows<Instruction> rows{
            {"ArcOn \"a\",\"b\"", Instruction::ArcOn},
            {" \t WMoveC", Instruction::WMoveC},
            {"WeaveOff;", Instruction::WeaveOff},
            {"SegOn\"segdata1\"", Instruction::SegOn},
            {"DetectGas,1", Instruction::DetectGas},
            {"WMoveL(p1)", Instruction::WMoveL},
            {"arcon \"a\",\"b\"", Instruction::None},
            {"ArcOnce", Instruction::None},
            {"ArcOn:", Instruction::None},
            {"MoveJ p1,v100,fine,tool0", Instruction::None},
            {"// ArcOn", Instruction::None},
            {"!ArcOff", Instruction::None},
            {"", Instruction::None},
            {"\"ArcOn\"", Instruction::None},
        };
        for (const auto &[line, expected] : rows)
            QCOMPARE(welmo::line::classify(line), expected);
    }
    // What is read and written again, and what is said.
    void goodLines()
    {
        QLocale::setDefault(QLocale(QLocale::German)); // must not matter
        const Rows<QString> rows{
            {R"(ArcOn "arcondata3", "arcdata40")", R"(ArcOn "arcondata3","arcdata40")"},
            {R"(ArcOn "ARCONDATA3","ArcData40";)", R"(ArcOn "arcondata3","arcdata40")"},
            {R"(ArcOff "ArcOffData1")", R"(ArcOff "arcoffdata1")"},
            {R"(WeaveOn "weavedata7")", R"(WeaveOn "weavedata7")"},
            {R"(SegOn, ("segdata40");)", R"(SegOn "segdata40")"},
            {"DetectGas 0.1", "DetectGas 0.1"},
            {"DetectGas 1e2", "DetectGas 100"},
            {"FeedOnWire  1.234,", "FeedOnWire 1.234"},
            {"FeedBackWire 0.05", "FeedBackWire 0.05"},
            {"FeedBackWire 0", "FeedBackWire 0"},
            {"WeaveOff", "WeaveOff"},
            {"SegOff", "SegOff"},
            {"WMoveL p1,s1,z1,tool0", "WMoveL p1,s1,z1,tool0,-"},
            {"WMoveL Offs(p1, 1,2,3), s1 z1,tool0,w0", "WMoveL Offs(p1,1,2,3),s1,z1,tool0,w0"},
            {R"(WMoveL p1,s1,z1,tool0,"w1")", "WMoveL p1,s1,z1,tool0,_w1_"},
            {R"(WMoveC p2,p3,s1,z1,t0,w0,"w1")", R"(WMoveC p2,p3,s1,z1,t0,w0,"w1")"},
            {"WMoveC p2,p3,s1,z1,t0", "WMoveC p2,p3,s1,z1,t0,-"},
        };
        for (const auto &[line, expected] : rows) {
            const Instruction instruction = welmo::line::classify(line);
            QCOMPARE(readback::again(instruction, line), expected);
            QVERIFY(readback::problems(instruction, line).isEmpty());
        }
        QCOMPARE(formatTimedLine(Instruction::FeedBackWire, 123456.7),
                 QString("FeedBackWire 123457")); // six digits
        QCOMPARE(formatTimedLine(Instruction::FeedBackWire, -0.0), QString("FeedBackWire 0"));
    }
    void badLines()
    {
        const Rows<QString, QString> rows{
            // what is read of it nevertheless; the column, and what is said
            {R"(  ArcOn "arcondata1")", R"(ArcOn "-","-")", "3: arcon tl command format error"},
            {R"(ArcOn "arcondata1","arcdata1",1)", R"(ArcOn "-","-")",
             "1: arcon tl command format error"},
            {R"(ArcOn arcondata1,arcdata1)", R"(ArcOn "-","-")", "7: arcondata format error"},
            {R"(ArcOn "arcondata3",arcdata1)", R"(ArcOn "-","-")", "20: arcdata format error"},
            {R"(ArcOn "arcondata41","arcdata1")", R"(ArcOn "-","-")", "7: arcondata format error"},
            {R"(ArcOn "arcondata03","arcdata1")", R"(ArcOn "-","-")", "7: arcondata format error"},
            {R"(ArcOn "","arcdata1")", R"(ArcOn "-","-")", "7: arcondata format error"},
            {R"(ArcOn "arcondata3", "arcdata0")", R"(ArcOn "arcondata3","-")",
             "21: arcdata format error"},
            {R"(ArcOff arcoffdata1)", R"(ArcOff "-")", "8: arcoffdata format error"},
            {R"(ArcOff)", R"(ArcOff "-")", "1: arcoff tl command format error"},
            {R"(ArcOff "arcdata1")", R"(ArcOff "-")", "8: arcoffdata format error"},
            {R"(WeaveOn "WeaveData7")", R"(WeaveOn "-")", "9: weavedata format error"},
            {R"(WeaveOn "weavedata41")", R"(WeaveOn "-")", "9: weavedata format error"},
            {R"(WeaveOn weavedata7)", R"(WeaveOn "-")", "9: weavedata format error"},
            {R"(WeaveOn "weavedata7" "x")", R"(WeaveOn "-")", "1: weaveon tl command format error"},
            {R"(SegOn segdata1)", R"(SegOn "-")", "7: segdata format error"},
            {R"(SegOn "segdata1" 2)", R"(SegOn "-")", "1: segon tl command format error"},
            {"DetectGas 0.05", "-", "11: detectgas time format error"},
            {"FeedOnWire 0.0999", "-", "12: feedonwire time format error"},
            {"FeedBackWire -1", "-", "14: feedbackwire time format error"},
            {"FeedOnWire abc", "-", "12: feedonwire time format error"},
            {"FeedOnWire 2;", "-", "12: feedonwire time format error"},
            {"DetectGas nan", "-", "11: detectgas time format error"},
            {"DetectGas 1e999", "-", "11: detectgas time format error"},
            {"FeedOnWire", "-", "1: feedonwire tl command format error"},
            {" FeedOnWire 1 2", "-", "2: feedonwire tl command format error"},
            {"DetectGas 1,5", "-", "1: detectgas tl command format error"},
            {"FeedBackWire\t1", "-", "1: feedbackwire tl command format error"},
            {"WeaveOff ", "-", "1: weaveoff tl command format error"},
            {"\tWeaveOff", "-", "2: weaveoff tl command format error"},
            {"SegOff;", "-", "1: segoff tl command format error"},
            {"WMoveL p1,s1,z1", "-", "1: wmovel tl command format error"},
            {" WMoveL p1,s1,z1,t0,w0,\"w\",x", "-", "2: wmovel tl command format error"},
            {"WMoveC p1,s1,z1,t0", "-", "1: wmovec tl command format error"},
            {"WMoveC a,b,c,d,e,f,g,h", "-", "1: wmovec tl command format error"},
        };
        for (const auto &[line, expected, said] : rows) {
            const Instruction instruction = welmo::line::classify(line);
            const Problems problems = readback::problems(instruction, line);
            QCOMPARE(readback::again(instruction, line), expected);
            QCOMPARE(problems.size(), 1);
            QCOMPARE(QString("%1: %2").arg(problems[0].column).arg(shown(problems[0].message)),
                     said);
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
            {"RelTool(p1,0,0,1,2,3,4)", Kind::RelTool, "p1", Numbers{0, 0, 1, 2, 3, 4}, true,
             "RelTool(p1,0,0,1,2,3,4)"},
            {"Reltool(p1,0,0,1,2,3,4)", Kind::RelTool, "p1", Numbers{0, 0, 1, 2, 3, 4}, true,
             "Reltool(p1,0,0,1,2,3,4)"},
            {"Offs(p1,1,2)", Kind::Offs, "p1", Numbers{1, 2, 0}, false, ""},
            {"Offs(p1,1,x,3)", Kind::Offs, "p1", Numbers{1, 0, 3}, false, ""},
            {"Offs(p1,1,nan,inf)", Kind::Offs, "p1", Numbers{1, 0, 0}, false, ""},
            {"Offs(p1,1,2,3,4)", Kind::Offs, "p1", Numbers{1, 2, 3}, false, ""},
            {"Offs(p1,1.2345678,0,0)", Kind::Offs, "p1", Numbers{1.2345678, 0, 0}, true, ""},
            {"offs(p1,1,2,3)", Kind::Plain, "p1", Numbers{}, false, ""},
            {"Shift(p1)", Kind::Plain, "p1", Numbers{}, false, ""},
            {"Offs(,)", Kind::Offs, "", Numbers{0, 0, 0}, false, ""},
            {"Offs(RelTool(p1,0,0,1)", Kind::Offs, "RelTool(p1", Numbers{0, 0, 1}, true, ""},
            {"", Kind::Plain, "", Numbers{}, true, ""},
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
    }
    void numbersFillUp()
    {
        QCOMPARE((PointExpression{Kind::RelTool, "p1", {1, 2.5}}).format(Spelling::Insert),
                 QString("RelTool(p1,1,2.5,0,0,0,0)"));
        QCOMPARE((PointExpression{Kind::RelTool, "p1", {1, 2, 3, 4, 5, 6, 7}})
                     .format(Spelling::Property),
                 QString("Reltool(p1,1,2,3,4,5,6)"));
        QCOMPARE((PointExpression{Kind::Offs, "%2", {1234567}}).format(Spelling::Insert),
                 QString("Offs(%2,1.23457e+06,0,0)"));
        QCOMPARE((PointExpression{Kind::Plain, "p1", {1, 2}}).format(Spelling::Insert),
                 QString("p1"));
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
        QCOMPARE((PointExpression{Kind::Plain, evil, {}}).format(Spelling::Insert), safe);
        const MoveParameters parameters{evil, evil, evil, evil, evil};
        QCOMPARE(formatMoveLine(Instruction::WMoveL, {"p1"}, parameters.format()),
                 QString("WMoveL p1,%1,%1,%1,%1,\"%1\"").arg(safe));
    }
};

QTEST_GUILESS_MAIN(tst_InstructionLines)
#include "tst_instructionlines.moc"
