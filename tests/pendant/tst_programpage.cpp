#include <QListView>

#include "support/datarows.h"
#include "support/files.h"
#include "support/programtouch.h"
#include "support/testpendant.h"

using namespace testsupport;

namespace {

const QByteArray mixed =
    "// naht \xC3\xA4\r\nMoveJ p1,v10\n\xFF\xFE bytes\n"
    "WMoveL p1,v10,fine,torch1,wobj0 ! slow\n  ArcOff \"arcoffdata7\" ; // \xC3\xA4";

} // namespace

/// The program page, operated by touches on the whole pendant.
class TestProgramPage : public QObject
{
    Q_OBJECT
private slots:
    void init(const testsupport::Setup &setup = {})
    {
        m_pendant = std::make_unique<TestPendant>(setup);
        m_program = std::make_unique<ProgramTouch>(*m_pendant);
    }
    void cleanup()
    {
        m_program.reset();
        m_pendant.reset();
    }
    void onlyTheEditedLineChanges()
    {
        keep("mixed.tl", mixed);
        m_program->open("mixed.tl");
        m_program->choose(5);
        m_pendant->click("btnEditLine");
        m_pendant->choose("cbx_arcoffParamFileNumber", "arcoffdata8");
        m_pendant->click("btnFormAccept");
        m_pendant->click("btnSaveProgram");
        QCOMPARE(kept("mixed.tl"), QByteArray(mixed).replace("data7", "data8"));
    }
    // The form of a line also shows values of its file, which are saved apart from the line.
    void valuesOfAFileAreNotLost_data()
    {
        addRows<QString, QString, double>({{"replace", "btnFormAccept", "Save", 55},
                                           {"leave", "btnFormCancel", "Save", 55},
                                           {"drop", "btnFormCancel", "Drop the changes", 0}});
    }
    void valuesOfAFileAreNotLost()
    {
        const auto &[name, button, answer, stored] = currentRow<QString, QString, double>();
        keep("mixed.tl", mixed);
        m_program->open("mixed.tl");
        m_program->choose(5);
        m_pendant->click("btnEditLine");
        m_pendant->type("sbxArcoffCurrent", "55");
        m_pendant->click(button);
        m_program->answer("Back to the form");
        m_pendant->click(button);
        m_program->answer(answer);
        QVERIFY(!m_pendant->find("btnFormAccept")->isVisible());
        const auto file = xservice()->get(nullptr, "arc_weld.arcoff_param", "arcoffdata7");
        QCOMPARE(file->r("current")->getDouble(), stored);
    }
    void aRefusedLineIsReplacedOnlyWhenTheOperatorSaysSo()
    {
        keep("mixed.tl", mixed);
        m_program->open("mixed.tl");
        m_program->choose(4); // a replaced line would lose its last word
        const QString old = m_program->line(4);
        m_pendant->click("btnEditLine");
        QVERIFY(m_pendant->find("lblFormWarning")->isVisible());
        m_pendant->click("btnFormAccept");
        QVERIFY(m_program->isAsked());
        m_program->answer("Back to the form");
        QCOMPARE(m_program->line(4), old);
        m_pendant->click("btnFormAccept");
        m_program->answer("Replace");
        QCOMPARE(m_program->line(4), "WMoveL p1,v10,fine,torch1,wobj0");
        m_pendant->click("btnUndo");
        m_program->choose(3); // its bytes are no text
        m_pendant->click("btnEditLine");
        QVERIFY(m_pendant->find("lblFormWarning")->isVisible());
        m_pendant->click("btnFormAccept");
        QVERIFY(!m_program->isAsked());
        m_program->saveAs("again");
        QCOMPARE(kept("again.tl"), mixed);
    }
    void aMoveWithoutAPointIsRefusedInWords()
    {
        m("orbo.project.point._list")->set(nullptr, QString(), QVariantList());
        m_program->insert("WMoveL");
        m_pendant->click("btnFormAccept");
        const QString said = m_pendant->find<QLabel>("lblFormWarning")->text();
        QVERIFY2(said.contains("a name is missing; choose a point"), qPrintable(said));
        QCOMPARE(m_program->lineCount(), 0);
        m_pendant->click("btnFormCancel");
    }
    // The box of a time has two decimals and begins at 0.1.
    void aFormThatShowsAnotherValueSaysSo()
    {
        keep("times.tl", "FeedBackWire 0.05\nDetectGas 1.234\nFeedOnWire 1.25\n");
        m_program->open("times.tl");
        for (int line = 1; line <= 3; ++line) {
            m_program->choose(line);
            m_pendant->click("btnEditLine");
            QCOMPARE(m_pendant->find("lblFormWarning")->isVisible(), line < 3);
            m_pendant->click("btnFormCancel");
        }
    }
    void nothingIsLostWithoutAQuestion()
    {
        m_program->insert("WeaveOff");
        m_pendant->click("btnFormAccept");
        m_pendant->changeDisplay("cbxTheme", "dark"); // makes the page anew
        m_pendant->open("program");
        QCOMPARE(m_program->line(1), QString("WeaveOff"));
        m_pendant->click("btnNewProgram");
        m_program->answer("Back");
        QCOMPARE(m_program->lineCount(), 1);

        m_pendant->open("home");
        m_pendant->window()->close();
        QVERIFY(m_pendant->window()->isVisible());
        m_program->answer("Save");
        QVERIFY(m_pendant->find("ledtFileName")->isVisible());
        m_pendant->click("btnFileAccept"); // and the window closes as it was asked to
        QTRY_VERIFY(!m_pendant->window()->isVisible());
        QCOMPARE(kept("New program.tl"), "WeaveOff\n");
    }
    void whatSomebodyElseWroteIsNotReplacedUnasked()
    {
        keep("mixed.tl", mixed);
        m_program->open("mixed.tl");
        for (const bool replaced : {false, true}) {
            m_program->choose(1);
            m_pendant->click("btnRemoveLine");
            keep("mixed.tl", "WeaveOff\n");
            m_pendant->click("btnSaveProgram");
            QVERIFY(m_program->isAsked());
            m_program->answer(replaced ? "Replace it" : "Back");
            QCOMPARE(kept("mixed.tl") != "WeaveOff\n", replaced);
        }
        m_program->choose(1);
        m_pendant->click("btnRemoveLine");
        m_pendant->click("btnSaveProgram");
        QVERIFY(!m_program->isAsked()); // the file is as this page saved it
    }
    void whatCannotBeSavedStays()
    {
        m_program->insert("WeaveOff");
        m_pendant->click("btnFormAccept");
        QVERIFY(QDir(m_pendant->dataFolder()).mkpath("programs/taken.tl"));
        m_program->saveAs("taken");
        m_program->answer("Replace it");
        const QString said = m_pendant->lastMessage();
        QVERIFY2(said.startsWith("error: ") && said.contains("taken.tl: "), qPrintable(said));
        m_pendant->click("btnFileCancel");
        QVERIFY2(m_program->title().endsWith("(changed)"), qPrintable(m_program->title()));
    }
    // A form starts from the lines above, and the next one from the line that it wrote.
    void insertingGoesOn()
    {
        keep("start.tl", "MoveL p2,v50,z5,torch1,wobj0\nWeaveOff\n");
        m_program->open("start.tl");
        const auto *list = m_pendant->find<QListView>("lstLines");
        QTRY_VERIFY(list->viewport()->height() / list->sizeHintForRow(0) >= 12);
        m_program->choose(2);
        m_program->insert("WMoveL");
        QCOMPARE(m_pendant->find<QComboBox>("cbxSpeed")->currentText(), QString("v50"));
        m_pendant->choose("cbxSpeed", "v10");
        m_pendant->click("btnFormGoOn");
        QCOMPARE(m_pendant->find<QComboBox>("cbxSpeed")->currentText(), QString("v10"));
        m_pendant->click("btnFormAccept");
        QCOMPARE(m_program->line(3), QString("WMoveL p2,v10,z5,torch1,wobj0"));
        QCOMPARE(m_program->line(4), m_program->line(3));
    }
    void aSeamIsWrittenWhole()
    {
        m_program->insert("Whole seam");
        m_pendant->choose("cbxSeamFrom", "p3");
        m_pendant->choose("cbxSeamTo", "p4");
        m_pendant->click("btnFormAccept");
        QCOMPARE(m_program->lineCount(), 6);
        QCOMPARE(m_program->line(4), QString("WMoveL p4,v10,fine,torch1,wobj0"));
        for (int line = 1; line <= 6; ++line) { // only the files are missing yet
            m_program->choose(line);
            const QString finding = m_pendant->find<QLabel>("lblFinding")->text();
            QVERIFY2(finding.isEmpty() || finding.contains("data1"), qPrintable(finding));
        }
        m_pendant->click("btnUndo");
        QCOMPARE(m_program->lineCount(), 0);
    }
    // Starting within a seam, or going on there after a step, asks first.
    void aStartThatWouldLoseTheArcIsAsked()
    {
        cleanup();
        init(withExample());
        keep("seam.tl",
             "MoveL p3,v200,fine,torch1,wobj0\nArcOn \"arcondata1\",\"arcdata1\"\n"
             "WMoveL p4,v1000,fine,torch1,wobj0\nArcOff \"arcoffdata1\"\n");
        const QVariantMap real{{"mode", "real"}};
        xservice()->execCommand(nullptr, "arc_weld.set_weld_mode", real);
        m_program->open("seam.tl");
        const auto *state = xservice()->watchNode("tl_program.state");
        const auto isAt = [state](const QString &word, int line) {
            return state->r("state")->getString() == word && state->r("line")->getInt() == line;
        };
        m_program->choose(3);
        m_pendant->click("btnRunFromHere");
        m_pendant->click("btnRunCheckBack");
        QVERIFY(!isAt("running", 3));
        m_pendant->click("btnStep");
        QTRY_VERIFY(isAt("paused", 4));
        m_pendant->click("btnStepBack");
        QTRY_VERIFY(isAt("paused", 3));
        m_pendant->click("btnProgramRun");
        m_pendant->click("btnRunFromApproach");
        QTRY_VERIFY(isAt("running", 1));
        m_pendant->click("btnProgramStop");
    }
    // The findings follow every change of the program.
    void findings()
    {
        keep("wrong.tl", "MoveL p9,v10,fine,torch1,wobj0\nWait 9\nWeaveOff\n");
        m_program->open("wrong.tl");
        auto *count = m_pendant->find<QPushButton>("btnNextFinding");
        QTRY_COMPARE(count->text(), QString("2 findings"));
        const auto *detail = m_pendant->find<QLabel>("lblFinding");
        QCOMPARE(detail->text(), QString("no point p9 in the project"));
        m_pendant->click("btnNextFinding");
        QCOMPARE(detail->text(), QString("WeaveOff without WeaveOn"));
        m_pendant->click("btnRemoveLine");
        QTRY_COMPARE(count->text(), QString("1 finding"));
        m_pendant->click("btnUndo");
        QTRY_COMPARE(count->text(), QString("2 findings"));
    }
    void findingsFollowTheFiles()
    {
        keep("files.tl", "ArcOff \"arcoffdata9\"\n");
        m_program->open("files.tl");
        auto *count = m_pendant->find<QPushButton>("btnNextFinding");
        QTRY_COMPARE(count->text(), QString("2 findings"));
        kelp::ModuleObject file("arcoffdata9");
        file.set(nullptr, "name", "arcoffdata9");
        QCOMPARE(xservice()->set(nullptr, "arc_weld.arcoff_param", "arcoffdata9", &file)->getInt(),
                 0);
        QTRY_COMPARE(count->text(), QString("1 finding"));
        xservice()->execCommand(nullptr, "arc_weld.remove.arcoff_param",
                                QStringList("arcoffdata9"));
        QTRY_COMPARE(count->text(), QString("2 findings"));
    }
    void aLongProgram()
    {
        const int lines = 100000;
        keep("long.tl", QByteArray("MoveL p9,v10,fine,torch1,wobj0\n").repeated(lines));
        m_program->open("long.tl");
        QCOMPARE(m_program->lineCount(), lines);
        m_program->choose(lines);
        m_pendant->click("btnRemoveLine");
        QTRY_COMPARE_WITH_TIMEOUT(m_pendant->find<QPushButton>("btnNextFinding")->text(),
                                  QString("%1 findings").arg(lines - 1), 60000);
    }

private:
    void keep(const QString &name, const QByteArray &bytes)
    {
        QVERIFY(QDir(m_pendant->dataFolder()).mkpath("programs"));
        writeFile(m_pendant->dataFolder() + "/programs/" + name, bytes);
    }
    QByteArray kept(const QString &name)
    {
        return contentOf(m_pendant->dataFolder() + "/programs/" + name);
    }

    std::unique_ptr<TestPendant> m_pendant;
    std::unique_ptr<ProgramTouch> m_program;
};

QTEST_MAIN(TestProgramPage)
#include "tst_programpage.moc"
