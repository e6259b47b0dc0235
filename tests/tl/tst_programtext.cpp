#include <QtTest>

#include "support/datarows.h"
#include "tl/normalform.h"
#include "tl/programtext.h"

using namespace testsupport;
using welmo::tl::normalForm;
using welmo::tl::ProgramText;

/// The bytes of a program, and the normal form of its lines.
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
    void normalForms_data()
    {
        std::vector<Row<QString>> rows{
            {" ArcOn  \"ARCONDATA3\" , \"arcdata40\"\t", R"( ArcOn "arcondata3","arcdata40")"},
            {"ArcOff\t\"arcoffdata1\"", R"(ArcOff "arcoffdata1")"},
            {"\tWeaveOff ", "\tWeaveOff"},
            {"FeedOnWire  2 ; // s", "FeedOnWire 2 ; // s"},
            {"FeedOnWire 1000000", "FeedOnWire 1e+06"},
            {"WMoveL p1 ,  v10 fine, tool0",
             "WMoveL p1,v10,fine,tool0"}, // a work object is not added
            {"WMoveC RelTool( p1, 0,0, 10.0,0,0,0 ),Offs(p2,-0,1,2),v10,z1,t,w, \"weavedata1\"//x",
             R"(WMoveC RelTool(p1,0,0,10,0,0,0),Offs(p2,0,1,2),v10,z1,t,w,"weavedata1"//x)"},
        };
        // A normal form of these would lose something, so they have none.
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
