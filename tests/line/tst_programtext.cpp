#include <QtTest>

#include "instructions/line/normalform.h"
#include "instructions/line/programtext.h"
#include "support/rows.h"

using testsupport::Rows;
using welmo::line::normalForm;
using welmo::line::ProgramText;

/// A program's bytes, and the lines' normal form.
class tst_ProgramText : public QObject
{
    Q_OBJECT
private slots:
    void bytesStayAsTheyAre()
    {
        const QString unknown(QChar::ReplacementCharacter);
        const Rows<QByteArray, QStringList> rows{
            {"empty", QByteArray(), QStringList()},
            {"one end", QByteArray("\n"), QStringList("")},
            {"no last end", QByteArray("a\nb"), QStringList({"a", "b"})},
            {"CRLF", QByteArray("a\r\n\r\nb\r\n"), QStringList({"a", "", "b"})},
            {"mixed", QByteArray("a\r\nb\nc"), QStringList({"a", "b", "c"})},
            {"lone CR", QByteArray("a\rb\r\r\nc\r"), QStringList({"a\rb\r", "c\r"})},
            {"byte order mark",
             QByteArray("\xEF\xBB\xBF"
                        "a\n"),
             QStringList("a")},
            {"UTF-8", QByteArray("点é\n"), QStringList("点é")},
            {"no UTF-8",
             QByteArray("\xff"
                        "a\n"),
             QStringList(unknown + "a")},
            {"NUL", QByteArray("a\0b\n", 4), QStringList(QString("a") + QChar(0) + 'b')},
        };
        for (const auto &[name, bytes, lines] : rows) {
            const ProgramText program(bytes);
            QCOMPARE(program.lines(), lines);
            QCOMPARE(program.lineCount(), program.lines().size());
            QCOMPARE(program.toBytes(), bytes);
        }
    }
    void edits()
    {
        ProgramText program("a\r\nb\r\nc\n");
        program.setLine(1, "点");
        QCOMPARE(program.toBytes(), QByteArray("a\r\n点\r\nc\n"));
        program.insertLine(2, "x");
        QCOMPARE(program.toBytes(), QByteArray("a\r\n点\r\nx\r\nc\n"));
        program.insertLine(4, "y");
        program.removeLine(0);
        QCOMPARE(program.toBytes(), QByteArray("点\r\nx\r\nc\ny\r\n"));
        program.moveLine(0, 3);
        QCOMPARE(program.line(3), QString("点"));
        program.moveLine(3, 0);
        QCOMPARE(program.lines(), QStringList({"点", "x", "c", "y"}));

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
        program.moveLine(2, 0);
        QCOMPARE(program.toBytes(), QByteArray("a\r\nb\r\nc"));
        program.removeLine(2);
        QCOMPARE(program.toBytes(), QByteArray("a\r\nb"));
        program.removeLine(1);
        program.removeLine(0);
        QCOMPARE(program.toBytes(), QByteArray());
    }
    void lineEndsDoNotMakeSecondLines()
    {
        ProgramText program("a\n");
        program.setLine(0, "x\nWeaveOff\r\n");
        program.insertLine(1, "y\rz");
        QCOMPARE(program.toBytes(), QByteArray("x WeaveOff  \ny z\n"));
    }
    void normalForms()
    {
        const Rows<QString> rewritten{
            {" ArcOn  \"ARCONDATA3\" , \"arcdata40\"\t", R"(ArcOn "arcondata3","arcdata40")"},
            {"ArcOff\t\"arcoffdata1\"", R"(ArcOff "arcoffdata1")"},
            {"\tWeaveOff ", "WeaveOff"},
            {"FeedOnWire 1.50", "FeedOnWire 1.5"},
            {"FeedOnWire 1000000", "FeedOnWire 1e+06"},
            {"WMoveL p1 ,  v10 fine, tool0", "WMoveL p1,v10,fine,tool0"}, // no work object added
            {"WMoveL RelTool( p1, 0,0, 10.0,0,0,0 ), v10,fine,tool0,wobj0, \"weavedata1\"",
             R"(WMoveL RelTool(p1,0,0,10,0,0,0),v10,fine,tool0,wobj0,"weavedata1")"},
            {"WMoveC Reltool(p1,0,0,0,0,0,0),Offs(p2,-0,1,2),v10,z1,t",
             "WMoveC Reltool(p1,0,0,0,0,0,0),Offs(p2,0,1,2),v10,z1,t"},
        };
        for (const auto &[line, expected] : rewritten)
            QCOMPARE(normalForm(line), expected);
        const Rows<QString> leftAlone{
            {"six digits cannot say it", "FeedOnWire 1.2345678"},
            {"refused", "FeedOnWire 0.05"},
            {"comma", "FeedOnWire, 1"},
            {"last comma", "FeedOnWire 1,"},
            {"semicolon", "WeaveOff;"},
            {"comment", R"(ArcOn "arcondata1","arcdata1"; // root)"},
            {"before a quote", R"(ArcOn x"arcondata1","arcdata1")"},
            {"after a quote", R"(ArcOn "arcondata1","arcdata1";)"},
            {"empty argument", "WMoveL p1,,v10,fine,tool0"},
            {"behind the tool", "WMoveL p1,v10,fine,tool0;"},
            {"comment behind the tool", "WMoveL p1,v10,fine,tool0 ! comment"},
            {"not ASCII", "WMoveL 点1,v10,fine,tool0"},
            {"a number would be added", "WMoveL Offs(p1,1,2),v10,fine,tool0"},
            {"digits would be lost", "WMoveL Offs(p1,1234.5678,0,0),v10,fine,tool0"},
            {"unknown function", "WMoveL Shift(p1,1),v10,fine,tool0"},
            {"another's instruction", "MoveJ  p1"},
            {"nothing", ""},
        };
        for (const auto &[name, line] : leftAlone)
            QCOMPARE(normalForm(line), QString());
    }
};

QTEST_GUILESS_MAIN(tst_ProgramText)
#include "tst_programtext.moc"
