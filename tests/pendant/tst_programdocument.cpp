#include <QtTest>
#include <functional>

#include "pendant/program/programdocument.h"
#include "support/datarows.h"
#include "support/files.h"

using namespace testsupport;
using welmo::pendant::ProgramDocument;
using Act = std::function<void(ProgramDocument &)>;

namespace {

// Line ends of both kinds, none at the end, and bytes that are no UTF-8.
const QByteArray program = "\xEF\xBB\xBFMoveJ p1\r\n\xC4 raw\n\r\nArcOff \"arcoffdata1\"";

} // namespace

/// The program behind the editor: lines that are not edited keep their bytes.
class TestProgramDocument : public QObject
{
    Q_OBJECT
private slots:
    void edits_data()
    {
        addRows<Act, QByteArray>(
            {{"replace", [](auto &d) { d.setLine(1, "a\nb"); },
              "\xEF\xBB\xBFMoveJ p1\r\na b\n\r\nArcOff \"arcoffdata1\""},
             {"remove", [](auto &d) { d.removeLine(1); },
              "\xEF\xBB\xBFMoveJ p1\r\n\r\nArcOff \"arcoffdata1\""},
             {"insert", [](auto &d) { d.insertLine(2, "x"); },
              "\xEF\xBB\xBFMoveJ p1\r\n\xC4 raw\nx\r\n\r\nArcOff \"arcoffdata1\""},
             {"insert at the end", [](auto &d) { d.insertLine(4, "x"); },
              "\xEF\xBB\xBFMoveJ p1\r\n\xC4 raw\n\r\nArcOff \"arcoffdata1\"\r\nx"},
             {"remove the last", [](auto &d) { d.removeLine(3); },
              "\xEF\xBB\xBFMoveJ p1\r\n\xC4 raw\n"},
             {"move down", [](auto &d) { d.moveLine(1, 3); },
              "\xEF\xBB\xBFMoveJ p1\r\n\r\nArcOff \"arcoffdata1\"\r\n\xC4 raw"}});
    }
    void edits()
    {
        const auto &[name, act, after] = currentRow<Act, QByteArray>();
        const QTemporaryDir folder;
        const QString file = folder.filePath("a.tl");
        writeFile(file, program);
        ProgramDocument document;
        QString problem;
        QVERIFY2(document.open(file, &problem), qPrintable(problem));
        const QStringList before = document.text().lines();
        act(document);
        QVERIFY(document.isModified());
        QVERIFY(document.save(file, &problem));
        QVERIFY(!document.isModified());
        QCOMPARE(contentOf(file), after);
        document.undoStack()->undo();
        QVERIFY(document.isModified());
        QCOMPARE(document.text().lines(), before);
        QVERIFY(document.save(file, &problem));
        QCOMPARE(contentOf(file), program);
    }
    void whatCannotBeRead()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath("long.tl");
        testsupport::writeFile(file, "WeaveOff\n" + QByteArray(30 * 1024 * 1024, 'x') + "\n");
        ProgramDocument document;
        QString problem;
        document.insertLine(0, "WeaveOff");
        document.setSent();
        QVERIFY(!document.open("/nowhere/missing.tl", &problem));
        QVERIFY(!problem.isEmpty());
        QVERIFY(!document.open(file, &problem));
        QVERIFY2(problem.startsWith("line 2 "), qPrintable(problem));
        QCOMPARE(document.line(0), "WeaveOff");
        QVERIFY(document.isSent());
        document.setLine(0, "WeaveOff ");
        QVERIFY(!document.isSent());
    }
};

QTEST_GUILESS_MAIN(TestProgramDocument)
#include "tst_programdocument.moc"
