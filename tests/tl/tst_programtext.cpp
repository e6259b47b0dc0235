#include <QtTest>

#include "support/datarows.h"
#include "tl/normalform.h"
#include "tl/programtext.h"

using namespace testsupport;
using welmo::tl::normalForm;
using welmo::tl::ProgramText;

/// A program's bytes, and the lines' normal form.
class tst_ProgramText : public QObject
{
    Q_OBJECT
private slots:
    void bytesStayAsTheyAre_data()
    {
        addRows<QByteArray, QStringList>({
            {"empty", "", {}},
            {"one end", "\n", {""}},
            {"no last end", "a\nb", {"a", "b"}},
            {"mixed", "a\r\n\r\nb\nc\r\n", {"a", "", "b", "c"}},
            {"lone CR", "a\rb\r\r\nc\r", {"a\rb\r", "c\r"}},
            {"byte order mark", "\xEF\xBB\xBF点\n", {"点"}},
            {"no UTF-8", "\xff.\n", {QString(QChar::ReplacementCharacter) + '.'}},
            {"NUL", QByteArray("a\0b\n", 4), {QString("a") + QChar(0) + 'b'}},
        });
    }
    void bytesStayAsTheyAre()
    {
        const auto &[name, bytes, lines] = currentRow<QByteArray, QStringList>();
        const ProgramText program(bytes);
        QCOMPARE(program.lines(), lines);
        QCOMPARE(program.lineCount(), lines.size());
        QCOMPARE(program.toBytes(), bytes);
    }
    void edits()
    {
        ProgramText program("a\r\nb\r\nc\n");
        program.setLine(1, "点");
        program.insertLine(2, "x");
        QCOMPARE(program.toBytes(), QByteArray("a\r\n点\r\nx\r\nc\n"));
        program.insertLine(4, "y");
        program.removeLine(0);
        QCOMPARE(program.toBytes(), QByteArray("点\r\nx\r\nc\ny\r\n"));
        program.moveLine(0, 3);
        QCOMPARE(program.line(3), QString("点"));
        program.moveLine(3, 0);
        QCOMPARE(program.lines(), QStringList({"点", "x", "c", "y"}));
        program.setLine(0, "x\nWeaveOff\r\n"); // makes no second line
        QCOMPARE(program.toBytes(), QByteArray("x WeaveOff  \r\nx\r\nc\ny\r\n"));

        ProgramText fresh;
        fresh.insertLine(0, "a");
        fresh.insertLine(1, "b");
        QCOMPARE(fresh.toBytes(), QByteArray("a\nb\n"));
    }
    void lastLineStaysWithoutEnd()
    {
        ProgramText program("a\r\nb");
        program.insertLine(2, "c");
        QCOMPARE(program.toBytes(), QByteArray("a\r\nb\r\nc"));
        program.moveLine(0, 2);
        QCOMPARE(program.toBytes(), QByteArray("b\r\nc\r\na"));
        program.removeLine(2);
        QCOMPARE(program.toBytes(), QByteArray("b\r\nc"));
        program.removeLine(1);
        program.removeLine(0);
        QCOMPARE(program.toBytes(), QByteArray());
    }
    void normalForms_data()
    {
        std::vector<Row<QString>> rows{
            {" ArcOn  \"ARCONDATA3\" , \"arcdata40\"\t", R"( ArcOn "arcondata3","arcdata40")"},
            {"ArcOff\t\"arcoffdata1\"", R"(ArcOff "arcoffdata1")"},
            {"\tWeaveOff ", "\tWeaveOff"},
            {"FeedOnWire  2 ; // s", "FeedOnWire 2 ; // s"},
            {"FeedOnWire 1000000", "FeedOnWire 1e+06"},
            {"WMoveL p1 ,  v10 fine, tool0", "WMoveL p1,v10,fine,tool0"}, // no work object added
            {"WMoveC RelTool( p1, 0,0, 10.0,0,0,0 ),Offs(p2,-0,1,2),v10,z1,t,w, \"weavedata1\"//x",
             R"(WMoveC RelTool(p1,0,0,10,0,0,0),Offs(p2,0,1,2),v10,z1,t,w,"weavedata1"//x)"},
        };
        // What would lose something is left alone.
        for (const char *line :
             {"FeedOnWire 1.2345678", "FeedOnWire 0.05", "FeedOnWire, 1", "FeedOnWire 1,",
              "FeedOnWire 1,5", R"(ArcOn x"arcondata1","arcdata1")", "WMoveL p1,,v10,fine,tool0",
              "WMoveL p1,v10,fine,tool0 ! comment", "WMoveL 点1,v10,fine,tool0",
              "WMoveL Offs(p1,1,2),v10,fine,tool0", "WMoveL Shift(p1,1),v10,fine,tool0",
              "MoveJ  p1, v10,fine,tool0"})
            rows.push_back({line, {}});
        addRows(rows);
    }
    void normalForms()
    {
        const auto &[line, expected] = currentRow<QString>();
        QCOMPARE(normalForm(QString(line)), expected);
    }
};

QTEST_GUILESS_MAIN(tst_ProgramText)
#include "tst_programtext.moc"
