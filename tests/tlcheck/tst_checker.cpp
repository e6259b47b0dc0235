#include <QtTest>

#include "support/rows.h"
#include "tools/tlcheck/checker.h"

using namespace tlcheck;
using testsupport::Rows;

namespace {

ProjectNames project()
{
    return {{"p1", "p2"}, {"v10"},   {"fine"},
            {"tool0"},    {"wobj0"}, {"arcondata1", "weavedata1", "weavedata2"}};
}

QStringList written(const Findings &findings)
{
    QStringList list;
    for (const Finding &finding : findings)
        list.append(QStringLiteral("%1:%2 %3: %4")
                        .arg(finding.line + 1)
                        .arg(finding.column)
                        .arg(finding.kindName(), finding.text()));
    return list;
}

} // namespace

/// What is found in a program, and where.
class tst_Checker : public QObject
{
    Q_OBJECT
private slots:
    void programs()
    {
        const Rows<QStringList> rows{
            {"", QStringList{}},
            {"MoveJ p9,v10\n// ArcOn\n! WMoveL\nlabel:\narcoff\n\tWeave p", QStringList{}},
            {"WMoveL p1,v10,fine,tool0\n WMoveC Offs(p1,1,2,3),p2, "
             "v10,fine,tool0,wobj0,\"weavedata1\"",
             QStringList{}},
            {"WMoveL p9,V10,Fine,x,y,\"weavedata1\"",
             QStringList{"1:8 unknown: no point p9 in the project",
                         "1:11 unknown: speed format error: no speed V10 in the project",
                         "1:15 unknown: zone format error: no zone Fine in the project",
                         "1:20 unknown: tool format error: no tool x in the project",
                         "1:22 unknown: wobj format error: no work object y in the project"}},
            {"\n  WMoveC p1,RelTool(p9,0,0,0,0,0,0),v10,fine,tool0",
             QStringList{"2:13 unknown: no point p9 in the project"}},
            {"WMoveL p1,v10,fine,tool0,wobj0,\"NULL\"", QStringList{}},
            {"WMoveL Shift(p9,1),v10,fine,tool0",
             QStringList{"1:8 misread: point format error: Shift(p9,1) is read as p9",
                         "1:8 unknown: no point p9 in the project"}},
            {"WMoveL Reltool(p1,a,2),v10,fine,tool0",
             QStringList{"1:8 misread: point format error: Reltool(p1,a,2) is read as "
                         "Reltool(p1,0,2,0,0,0,0)"}},
            // A set of which the project holds no file says nothing about its files.
            {"ArcOn \"arcondata2\",\"arcdata40\"\nArcOff \"arcoffdata7\"",
             QStringList{"1:7 unknown: no file arcondata2 in the project"}},
            {"WeaveOn \"weavedata3\"\nWMoveL p1,v10,fine,tool0,wobj0,\"weavedata4\"\nWeaveOff",
             QStringList{"1:9 unknown: no file weavedata3 in the project",
                         "2:32 unknown: no file weavedata4 in the project"}},
            {"ArcOn x\nArcOff\nWeaveOff ",
             QStringList{"1:1 refused: arcon tl command format error",
                         "2:1 refused: arcoff tl command format error",
                         "3:1 refused: weaveoff tl command format error",
                         "3:1 unpaired: WeaveOff without WeaveOn"}},
            {"WeaveOff\nWeaveOn \"weavedata1\"\n WeaveOn \"weavedata1\"\nWeaveOff\nWeaveOff",
             QStringList{"1:1 unpaired: WeaveOff without WeaveOn",
                         "2:1 unpaired: WeaveOn without WeaveOff",
                         "5:1 unpaired: WeaveOff without WeaveOn"}},
            {"ArcOff \"arcoffdata1\"\n\tArcOn \"arcondata1\",\"arcdata1\"",
             QStringList{"1:1 unpaired: ArcOff without ArcOn",
                         "2:2 unpaired: ArcOn without ArcOff"}},
            {"SegOn segdata1\nSegOff\nSegOff;\nDetectGas 0.05",
             QStringList{"1:7 refused: segdata format error",
                         "3:1 refused: segoff tl command format error",
                         "4:11 refused: detectgas time format error"}},
        };
        for (const auto &[program, expected] : rows)
            QCOMPARE(written(Checker(project()).check(QString(program).split('\n'))), expected);
    }
    void withoutProject()
    {
        const Rows<QString, QStringList> rows{
            {"any names", "WMoveL p9,s,z,t,w", QStringList()},
            {"no such name can be", "WMoveL p9,\"s\",z(1),t,\"w\",x",
             QStringList({"1:11 refused: speed format error", "1:15 refused: zone format error",
                          "1:22 refused: wobj format error",
                          "1:26 refused: weavedata format error"})},
            {"files", "SegOn \"segdata40\"", QStringList()},
        };
        for (const auto &[name, line, expected] : rows) {
            QCOMPARE(written(Checker().check({line})), expected);
        }
    }
    void namesAreFitToBeShown()
    {
        const QString line =
            QString("WMoveL Offs(\x1b[31m%1,1,2,3),v10,fine,tool0").arg(QString(100000, 'a'));
        const QString text = Checker(project()).check({line}).first().text();
        QVERIFY(text.size() < 100);
        QVERIFY2(text.startsWith("no point ?[31maaaa"), qPrintable(text));
    }
    void tellsHowFarItIs()
    {
        QStringList lines;
        for (int i = 0; i < 2500; ++i)
            lines.append("WeaveOff");
        QVector<int> told;
        QCOMPARE(Checker().check(lines, [&told](int done) { told.append(done); }).size(), 2500);
        QCOMPARE(told, QVector<int>({1000, 2000}));
    }
};

QTEST_GUILESS_MAIN(tst_Checker)
#include "tst_checker.moc"
