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

/// Findings in programs, beside those that examples/mistakes.tl shows.
class tst_Checker : public QObject
{
    Q_OBJECT
private slots:
    void programs_data()
    {
        addRows<QString, QStringList>({
            {"empty", "", {}},
            {"nobody's", "Wait 5\n// ArcOn\n! WMoveL\nlabel:\n\tWeave p\nOther", {}},
            {"welding",
             "ArcOn \"arcondata1\",\"arcdata1\" // root\n"
             "  WMoveC Offs(p1,1,2,3),p2,v10,fine,tool0,wobj0,\"weavedata1\";\n"
             "WMoveL p1,v10,fine,tool0,wobj0,\"NULL\"\nArcOff, \"ArcOffData1\"",
             {}},
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
