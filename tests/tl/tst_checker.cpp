#include <QtTest>

#include "support/rows.h"
#include "tl/checker.h"

using namespace welmo::tl;
using testsupport::Rows;

namespace {

ProjectNames project()
{
    return {{"p1", "p2"}, {"v10"},   {"fine"},
            {"tool0"},    {"wobj0"}, {"arcondata1", "weavedata1", "weavedata2"}};
}

QStringList found(const Checker &checker, const QString &program)
{
    QStringList list;
    for (const Finding &finding : checker.check(program.split('\n')))
        list.append(QString("%1:%2 %3: %4")
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
            {"WMoveC Offs(p1,1,2,3),p2,v10,fine,tool0,wobj0,\"weavedata1\"", QStringList{}},
            {"WMoveL p1,v10,fine,tool0,wobj0,\"NULL\"", QStringList{}},
            // A set of which the project holds no file says nothing about its files.
            {"ArcOn \"arcondata2\",\"arcdata40\"\nArcOff \"arcoffdata7\"",
             QStringList{"1:7 unknown: no file arcondata2 in the project"}},
            {"WeaveOn \"weavedata3\"\nWMoveL p1,v10,fine,tool0,wobj0,\"weavedata4\"\nWeaveOff",
             QStringList{"1:9 unknown: no file weavedata3 in the project",
                         "2:32 unknown: no file weavedata4 in the project"}},
            {"WeaveOff\nWeaveOn \"weavedata1\"\n WeaveOn \"weavedata1\"\nWeaveOff\nWeaveOff ",
             QStringList{"1:1 unpaired: WeaveOff without WeaveOn",
                         "2:1 unpaired: WeaveOn without WeaveOff",
                         "5:1 refused: weaveoff tl command format error",
                         "5:1 unpaired: WeaveOff without WeaveOn"}},
        };
        for (const auto &[program, expected] : rows)
            QCOMPARE(found(Checker(project()), program), expected);
    }
    void withoutProject()
    {
        const Checker checker;
        QCOMPARE(found(checker, "WMoveL p9,s,z,t,w\nSegOn \"segdata40\""), QStringList());
        QCOMPARE(found(checker, "WMoveL p9,\"s\",z(1),t,\"w\",x"),
                 QStringList({"1:11 refused: speed format error", "1:15 refused: zone format error",
                              "1:22 refused: wobj format error",
                              "1:26 refused: weavedata format error"}));
    }
    void namesAreFitToBeShown()
    {
        const QString line =
            QString("WMoveL Offs(\x1b[31m%1,1,2,3),v10,fine,tool0").arg(QString(100000, 'a'));
        const QString text = Checker(project()).check({line}).first().text();
        QVERIFY(text.size() < 100);
        QVERIFY2(text.startsWith("no point ?[31maaaa"), qPrintable(text));
    }
};

QTEST_GUILESS_MAIN(tst_Checker)
#include "tst_checker.moc"
