#include <QtTest>

#include "instructions/line/normalform.h"
#include "instructions/line/programtext.h"

using welmo::line::normalForm;
using welmo::line::ProgramText;

/// A program's bytes, and the lines' normal form.
class tst_ProgramText : public QObject
{
    Q_OBJECT
private slots:
    void bytesStayAsTheyAre_data();
    void bytesStayAsTheyAre();
    void edits();
    void lastLineStaysWithoutEnd();
    void lineEndsDoNotMakeSecondLines();
    void normalForms_data();
    void normalForms();
};

void tst_ProgramText::bytesStayAsTheyAre_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("lines");
    const QString unknown(QChar::ReplacementCharacter);
    QTest::newRow("empty") << QByteArray() << QStringList();
    QTest::newRow("one end") << QByteArray("\n") << QStringList("");
    QTest::newRow("no last end") << QByteArray("a\nb") << QStringList({"a", "b"});
    QTest::newRow("CRLF") << QByteArray("a\r\n\r\nb\r\n") << QStringList({"a", "", "b"});
    QTest::newRow("mixed") << QByteArray("a\r\nb\nc") << QStringList({"a", "b", "c"});
    QTest::newRow("lone CR") << QByteArray("a\rb\r\r\nc\r") << QStringList({"a\rb\r", "c\r"});
    QTest::newRow("byte order mark") << QByteArray("\xEF\xBB\xBF"
                                                   "a\n")
                                     << QStringList("a");
    QTest::newRow("UTF-8") << QByteArray("点é\n") << QStringList("点é");
    QTest::newRow("no UTF-8") << QByteArray("\xff"
                                            "a\n")
                              << QStringList(unknown + "a");
    QTest::newRow("NUL") << QByteArray("a\0b\n", 4) << QStringList(QString("a") + QChar(0) + 'b');
}

void tst_ProgramText::bytesStayAsTheyAre()
{
    QFETCH(QByteArray, bytes);
    const ProgramText program(bytes);
    QTEST(program.lines(), "lines");
    QCOMPARE(program.lineCount(), program.lines().size());
    QCOMPARE(program.toBytes(), bytes);
}

void tst_ProgramText::edits()
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

void tst_ProgramText::lastLineStaysWithoutEnd()
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

void tst_ProgramText::lineEndsDoNotMakeSecondLines()
{
    ProgramText program("a\n");
    program.setLine(0, "x\nWeaveOff\r\n");
    program.insertLine(1, "y\rz");
    QCOMPARE(program.toBytes(), QByteArray("x WeaveOff  \ny z\n"));
}

void tst_ProgramText::normalForms_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("expected"); // empty: left alone
    const auto row = [](const char *line, const char *expected = "") {
        QTest::newRow(line) << QString::fromUtf8(line) << QString::fromUtf8(expected);
    };
    row(" ArcOn  \"ARCONDATA3\" , \"arcdata40\"\t", R"(ArcOn "arcondata3","arcdata40")");
    row("ArcOff\t\"arcoffdata1\"", R"(ArcOff "arcoffdata1")");
    row("\tWeaveOff ", "WeaveOff");
    row("FeedOnWire 1.50", "FeedOnWire 1.5");
    row("FeedOnWire 1000000", "FeedOnWire 1e+06");
    row("FeedBackWire 0.05", "FeedBackWire 0.05");
    row("WMoveL p1 ,  v10 fine, tool0", "WMoveL p1,v10,fine,tool0"); // no work object added
    row("WMoveL RelTool( p1, 0,0, 10.0,0,0,0 ), v10,fine,tool0,wobj0, \"weavedata1\"",
        R"(WMoveL RelTool(p1,0,0,10,0,0,0),v10,fine,tool0,wobj0,"weavedata1")");
    row("WMoveC Reltool(p1,0,0,0,0,0,0),Offs(p2,-0,1,2),v10,z1,t",
        "WMoveC Reltool(p1,0,0,0,0,0,0),Offs(p2,0,1,2),v10,z1,t");
    row("FeedOnWire 1.2345678"); // six digits cannot say it
    row("FeedOnWire 0.05"); // refused
    row("FeedOnWire, 1");
    row("FeedOnWire 1,");
    row("WeaveOff;");
    row(R"(ArcOn "arcondata1","arcdata1"; // root)");
    row(R"(ArcOn x"arcondata1","arcdata1")");
    row(R"(ArcOn "arcondata1","arcdata1";)");
    row("WMoveL p1,,v10,fine,tool0");
    row("WMoveL p1,v10,fine,tool0;");
    row("WMoveL p1,v10,fine,tool0 ! comment");
    row("WMoveL 点1,v10,fine,tool0");
    row("WMoveL Offs(p1,1,2),v10,fine,tool0"); // a number would be added
    row("WMoveL Offs(p1,1234.5678,0,0),v10,fine,tool0");
    row("WMoveL Shift(p1,1),v10,fine,tool0");
    row("MoveJ  p1");
    row("");
}

void tst_ProgramText::normalForms()
{
    QFETCH(QString, line);
    QTEST(normalForm(line), "expected");
}

QTEST_GUILESS_MAIN(tst_ProgramText)
#include "tst_programtext.moc"
