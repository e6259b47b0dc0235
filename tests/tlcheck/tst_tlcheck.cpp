#include <QtTest>

#include "controller/robot/projectseed.h"
#include "schema/names.h"
#include "support/datarows.h"
#include "support/files.h"

using namespace testsupport;
using welmo::controller::Store;

namespace {

struct Run
{
    int status = -1; // -1 unless it ended by itself
    QByteArray out;
    QByteArray err;
};

Run tlcheck(const QStringList &arguments, const QString &shell = "exec \"$@\"")
{
    QProcess process;
    process.setWorkingDirectory(EXAMPLES);
    process.start("/bin/sh", QStringList{"-c", shell, "sh", TLCHECK} + arguments);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit)
        return {};
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

// Names, bytes and times of all files in a folder.
QStringList stateOf(const QString &folder)
{
    QStringList state;
    for (const QFileInfo &file : QDir(folder).entryInfoList(QDir::Files | QDir::Hidden))
        state.append(file.fileName() + ' ' + contentOf(file.filePath()).toHex()
                     + file.lastModified().toString(Qt::ISODateWithMs));
    return state;
}

} // namespace

/// The command tlcheck: what it prints, its exit status, and which files it changes.
class tst_Tlcheck : public QObject
{
    Q_OBJECT
private slots:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QString problem;
        auto changes = welmo::controller::projectSeed();
        for (const char *set : {"arcon_param/arcondata1", "weld_param/arcdata1",
                                "arcoff_param/arcoffdata1", "weave_param/weavedata1"}) {
            const QStringList parts = QString(set).split('/');
            changes.append({"arc_weld." + parts.first(), parts.last(), QVariantMap()});
        }
        QVERIFY(Store::open(store(), &problem)->write(changes));
    }
    void mistakesAreThoseOfTheReadme()
    {
        const QStringList state = stateOf(data());
        const Run checked = tlcheck({"--data", data(), "mistakes.tl"});
        QCOMPARE(stateOf(data()), state);
        QCOMPARE(checked.status, 1);
        QVERIFY(checked.out.count('\n') > 30);
        QVERIFY2(contentOf(EXAMPLES "/README.md").contains("\n```\n" + checked.out + "```\n"),
                 checked.out);
    }
    void exitStatus_data()
    {
        addRows<QString, int, QString>(
            {{"good", "--no-references fillet.tl vgroove.tl pipe.tl stitch.tl", 0, ""},
             {"good and bad", "--no-references fillet.tl mistakes.tl", 1, ""},
             {"missing", "--no-references /no/such.tl mistakes.tl", 2, "/no/such.tl: "},
             {"a folder", "--no-references /tmp", 2, "/tmp: "},
             {"without end", "--no-references /dev/zero", 2, "/dev/zero: is too"},
             {"no file", "--no-references", 2, "no file to check"},
             {"unknown option", "--what fillet.tl", 2, "what"},
             {"no project", "--data . fillet.tl", 2, "no project"},
             {"nobody's folder", "fillet.tl", 0, "checking against the built-in one"},
             {"both ways", "--no-references --data x fillet.tl", 2, "exclude"}});
    }
    void exitStatus()
    {
        const auto &[name, arguments, status, says] = currentRow<QString, int, QString>();
        const Run checked = tlcheck(arguments.split(' '));
        QCOMPARE(checked.status, status);
        QVERIFY2(checked.err.contains(says.toUtf8()), checked.err);
        QCOMPARE(checked.err.isEmpty(), says.isEmpty());
        // It checks the files that it can read, whatever else is wrong.
        QCOMPARE(checked.out.contains("mistakes.tl:4:1: arcon tl command format error: "),
                 arguments.contains("mistakes"));
    }
    void fixKeepsWhatItDoesNotRewrite()
    {
        const QByteArray before = "\xEF\xBB\xBF// é \xff,  x\r\n"
                                  "  ArcOn  \"ARCONDATA1\" , \"arcdata1\" ; // 1,  2\r\n"
                                  "WMoveL Offs(p1,1.23456789,0,0), v10,fine,tool0\n"
                                  "\tWMoveL p1 v10,fine, tool0\n"
                                  "WMoveL p1, v10,fine,tool0,wobj0,\"a\xff\"\n"
                                  "WeaveOff ";
        QByteArray after = before;
        after.replace("ArcOn  \"ARCONDATA1\" , ", "ArcOn \"arcondata1\",")
            .replace("WMoveL p1 v10,fine, tool0", "WMoveL p1,v10,fine,tool0")
            .replace("WeaveOff ", "WeaveOff");
        const QString file = write("a.tl", before);
        QCOMPARE(tlcheck({"--no-references", "--fix", file}).err, (file + ": 3 lines rewritten\n"));
        QCOMPARE(contentOf(file), after);
        const QStringList state = stateOf(m_folder->path());
        QVERIFY(tlcheck({"--no-references", "--fix", file}).err.isEmpty());
        QCOMPARE(stateOf(m_folder->path()), state);
    }
    // The shell forbids files to grow, so that the new one cannot be written.
    void fixIsWholeOrNotAtAll()
    {
        const QString file = write("a.tl", "ArcOff  \"arcoffdata9\"\n");
        const QStringList state = stateOf(m_folder->path());
        const Run checked =
            tlcheck({"--no-references", "--fix", file}, "trap '' XFSZ; ulimit -f 0; exec \"$@\"");
        QCOMPARE(checked.status, 2);
        QVERIFY2(checked.err.startsWith(QFile::encodeName("tlcheck: " + file + ": ")), checked.err);
        QCOMPARE(checked.out, (file + ":1:1: ArcOff without ArcOn\n").toUtf8());
        QCOMPARE(stateOf(m_folder->path()), state);
    }
    void json()
    {
        const QString file = write("é.tl", "MoveL p1,  a(é),fine,tool0\nFeedOnWire  1\n");
        const Run checked = tlcheck({"--no-references", "--json", "--fix", file, "/no/such.tl"});
        const QString expected = R"json({"findings": [{"file": "a.tl", "line": 1, "column": 12,
                "kind": "refused",
                "message": "speed format error: nothing can have the name a(é)"}],
            "rewritten": [{"file": "a.tl", "lines": 1}],
            "errors": [{"file": "/no/such.tl", "message": "No such file or directory"}]})json";
        QCOMPARE(checked.status, 2);
        QCOMPARE(QJsonDocument::fromJson(checked.out),
                 QJsonDocument::fromJson(QString(expected).replace("a.tl", file).toUtf8()));
    }
    void leavesTheProjectAlone_data()
    {
        addRows<QStringList>(
            {{"pendant runs", QStringList()},
             {"pendant was killed",
              QStringList{"controller.db", "controller.db-wal", "controller.db-shm"}},
             {"copied by hand", QStringList{"controller.db", "controller.db-wal"}}});
    }
    // It sees what the pendant wrote last, in whatever state the files are, and does not change
    // them.
    void leavesTheProjectAlone()
    {
        const auto &[name, kept] = currentRow<QStringList>();
        init();
        QString problem;
        const auto owner = Store::open(store(), &problem);
        QVERIFY(owner->write({{welmo::names::project, "point._list",
                               QVariantList{QVariantMap{{"id", "n"}, {"name", "new"}}}}}));
        const QString folder = kept.isEmpty() ? data() : m_folder->path();
        for (const QString &each : kept)
            QVERIFY(QFile::copy(data() + '/' + each, folder + '/' + each));
        const QString program =
            write("a.tl", "MoveL new,v10,fine,tool0\nMoveL p1,v10,fine,tool0\n");
        const QStringList state = stateOf(folder);
        const Run checked = tlcheck({"--data", folder, program});
        QCOMPARE(checked.err, QByteArray());
        QCOMPARE(checked.out, (program + ":2:7: no point p1 in the project\n").toUtf8());
        QCOMPARE(stateOf(folder), state);
    }

private:
    QString write(const QString &name, const QByteArray &content) const
    {
        writeFile(m_folder->filePath(name), content);
        return m_folder->filePath(name);
    }
    QString data() const { return m_folder->filePath("data"); }
    QString store() const { return m_folder->filePath("data/controller.db"); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

QTEST_GUILESS_MAIN(tst_Tlcheck)
#include "tst_tlcheck.moc"
