#include <QtTest>

#include "programfixture.h"
#include "support/files.h"
#include "tl/checker.h"
#include "tl/parse.h"
#include "tools/tlcheck/projectfile.h"

using namespace welmo;
using tl::Finding;

namespace {

/// A controller with one file of each set.
struct Cell : ProgramFixture
{
    Cell() { save("weave_param", {{"name", "weavedata1"}}); }

    /// True if the controller carries the line out, or would if the robot could get there.
    bool takes(const QString &line)
    {
        go({line}, "simu");
        pass(20);
        const QString message = state("message").toString();
        run("tl_program.stop");
        const bool wasLeftOut = message.contains("ignored");
        return !wasLeftOut
            && (!message.startsWith("line 1: ") || message.contains("does not get to"));
    }
};

/// A line that is right or nearly right.
QString randomLine(QRandomGenerator &random)
{
    static const QStringList lines =
        QString("ArcOn \"arcondata1\",\"arcdata1\"|ArcOff \"arcoffdata1\"|"
                "WMoveL Offs(p3,0,10,0),v50,fine,torch1,wobj0,\"weavedata1\"|"
                "WMoveC p7,p8,v50,z1,torch1,wobj0|MoveL p3,v200,fine,torch1|"
                "MoveJ p1,v200,z5,torch1|WeaveOn \"weavedata1\"|WeaveOff|FeedOnWire 1.5|"
                "FeedBackWire 0.05|DetectGas 4000|SegOn \"segdata1\"|SegOff|Weaveoff")
            .split('|');
    static const QStringList pieces =
        QString(" |  |,|, |\t|;| // x|//|\"|#|!|(|)|1|0.05|A|p9|,wobj9|RelTool(p1,0,0,5,0,0,0)")
            .split('|');
    QString line = lines.at(random.bounded(lines.size()));
    if (random.bounded(4) == 0)
        line = line.toUpper();
    for (int i = random.bounded(3); i > 0; --i) {
        const int at = random.bounded(line.size() + 1);
        if (random.bounded(2))
            line.insert(at, pieces.at(random.bounded(pieces.size())));
        else
            line.remove(at, 1);
    }
    return line;
}

} // namespace

/// The controller carries out exactly the lines that the program checker finds nothing in.
class tst_Agreement : public QObject
{
    Q_OBJECT
private slots:
    void everyLine()
    {
        Cell cell;
        tl::ProjectNames names = tlcheck::builtInProject();
        names.knowsFiles = true;
        names.files = {"arcondata1", "arcdata1", "arcoffdata1", "weavedata1"};
        const tl::Checker checker(names);
        QStringList lines;
        QDirIterator files(SOURCES "/examples", {"*.tl"});
        QDirIterator corpus(SOURCES "/tests/fuzz/corpus", QDir::Files,
                            QDirIterator::Subdirectories);
        for (QDirIterator *each : {&files, &corpus}) {
            while (each->hasNext()) {
                lines += QString::fromUtf8(testsupport::contentOf(each->next())).split('\n');
            }
        }
        QRandomGenerator random(1313);
        for (int i = 0; i < 600; ++i)
            lines.append(randomLine(random));
        int clean = 0;
        for (const QString &line : qAsConst(lines)) {
            const tl::ParsedLine parsed = tl::parse(line);
            if (parsed.hasCode() && !parsed.instruction)
                continue; // an unknown word, which the checker reports only if it is like an
                          // instruction
            bool isClean = true;
            for (const Finding &finding : checker.checkLine(parsed, 0))
                isClean = isClean
                    && (finding.kind == Finding::Kind::Doubtful
                        && parsed.instruction->standing != tl::Standing::Unregistered);
            clean += isClean;
            QVERIFY2(cell.takes(line) == isClean,
                     qPrintable(line + ": " + cell.state("message").toString()));
        }
        QVERIFY(clean > 200 && clean < lines.size() - 100);
    }
};

QTEST_GUILESS_MAIN(tst_Agreement)
#include "tst_agreement.moc"
