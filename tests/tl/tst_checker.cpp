#include <QtTest>

#include "support/datarows.h"
#include "tl/checker.h"
#include "tl/parse.h"

using namespace testsupport;
using namespace welmo::tl;

namespace {

ProjectNames project()
{
    ProjectNames names;
    names.points = {{"p1", {}}, {"p2", {"tool0", "wobj0"}}};
    names.speeds = {"v10"};
    names.zones = {"fine"};
    names.tools = {"tool0", "tool1"};
    names.wobjs = {"wobj0", "w1"};
    names.files = {"arcondata1", "arcdata1", "arcoffdata1", "weavedata1"};
    names.words = {"Weaveon"};
    return names;
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
    void programs_data()
    {
        addRows<QString, QStringList>({
            {"empty", "", {}},
            {"nobody's", "Wait 5\n// ArcOn\n! WMoveL\nlabel:\n\tWeave p\nOther", {}},
            {"nearly one",
             "Weaveoff\nWMovL p1",
             {"1:1 doubtful: Weaveoff is no instruction; WeaveOff may be meant",
              "2:1 doubtful: WMovL is no instruction; WMoveL may be meant"}},
            {"welding",
             "ArcOn \"arcondata1\",\"arcdata1\" // root\n"
             "  WMoveC Offs(p1,1,2,3),p2,v10,fine,tool0,wobj0,\"weavedata1\";\n"
             "WMoveL p1,v10,fine,tool0,wobj0,\"NULL\"\nArcOff, \"ArcOffData1\"",
             {}},
            {"missing",
             "MoveJ p9,v9,z9,t9,w9",
             {"1:7 unknown: no point p9 in the project",
              "1:10 unknown: speed format error: no speed v9 in the project",
              "1:13 unknown: zone format error: no zone z9 in the project",
              "1:16 unknown: tool format error: no tool t9 in the project",
              "1:19 unknown: wobj format error: no work object w9 in the project"}},
            {"no file",
             "ArcOff \"arcoffdata7\"\nArcOn \"arcondata1\",\"arcdata40\"",
             {"1:1 unpaired: ArcOff without ArcOn",
              "1:8 unknown: no file arcoffdata7 in the project",
              "2:1 unpaired: ArcOn without ArcOff",
              "2:20 unknown: no file arcdata40 in the project"}},
            {"allowed",
             "ArcOff \"arcoffdata41\"\nDetectGas 0.05\nFeedOnWire 1,5",
             {"1:1 unpaired: ArcOff without ArcOn",
              "1:8 refused: arcoffdata format error: arcoffdata41: files are arcoffdata1 to "
              "arcoffdata40",
              "2:11 refused: detectgas time format error: 0.05: the shortest time is 0.1 s",
              "3:12 refused: feedonwire time format error: 1,5 is no time in seconds"}},
            {"unpaired",
             "WeaveOff\nWeaveOn \"weavedata1\"\n WeaveOn \"weavedata1\"\nWeaveOff\nWeaveOff x",
             {"1:1 unpaired: WeaveOff without WeaveOn",
              "2:1 doubtful: no weld move follows before the weaving ends",
              "2:1 unpaired: WeaveOn without WeaveOff",
              "3:2 doubtful: no weld move follows before the weaving ends",
              "5:1 refused: weaveoff tl command format error: the line reads WeaveOff",
              "5:1 unpaired: WeaveOff without WeaveOn"}},
            {"no weld",
             "WMoveC p1,p1,v10,fine,tool0\nSegOff",
             {"1:1 doubtful: a weld move outside ArcOn and ArcOff welds nothing",
              "1:11 doubtful: the auxiliary point and the target are the same",
              "2:1 doubtful: SegOff is not carried out"}},
            {"taught elsewhere",
             "MoveL p2,v10,fine,tool1,w1",
             {"1:19 doubtful: p2 was taught with tool0; the line uses tool1",
              "1:25 doubtful: p2 was taught in wobj0; the line uses w1"}},
        });
    }
    void programs()
    {
        const auto &[name, program, findings] = currentRow<QString, QStringList>();
        QCOMPARE(found(Checker(project()), program), findings);
    }
    void withoutProject()
    {
        const Checker checker;
        QCOMPARE(found(checker, "MoveL p9,s,z,t,w"), QStringList());
        QCOMPARE(found(checker, "MoveL p9,\"s\",z(1),t,\"w\"").filter("refused: ").size(), 3);
    }
    void namesAreFitToBeShown()
    {
        const QString line =
            QString("WMoveL Offs(\x1b[31m%1,1,2,3),v10,fine,tool0").arg(QString(100000, 'a'));
        const QString text = Checker(project()).checkLine(parse(line), 0).first().text();
        QVERIFY(text.size() < 120);
        QVERIFY2(text.startsWith("no point ?[31maaaa"), qPrintable(text));
    }
};

QTEST_GUILESS_MAIN(tst_Checker)
#include "tst_checker.moc"
