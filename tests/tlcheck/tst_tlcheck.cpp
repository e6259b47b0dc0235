#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QtTest>
#include <fcntl.h>
#include <unistd.h>

#include "controller/names.h"
#include "controller/projectseed.h"
#include "support/rows.h"

using controller::Store;
using testsupport::Rows;

namespace {

struct Run
{
    int status = -1; // -1 unless it ended by itself
    QByteArray out;
    QByteArray err;
};

Run run(const QString &program, const QStringList &arguments, const QString &terminal = {})
{
    QProcess process;
    if (!terminal.isEmpty())
        process.setStandardErrorFile(terminal);
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit)
        return {};
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

Run tlcheck(const QStringList &arguments)
{
    return run(TLCHECK, arguments);
}

QByteArray contentOf(const QString &name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString example(const QString &name)
{
    return QStringLiteral(EXAMPLES "/") + name;
}

// Names, bytes and times of all that lies in a folder.
QStringList stateOf(const QString &folder)
{
    QStringList state;
    for (const QFileInfo &file : QDir(folder).entryInfoList(QDir::Files | QDir::Hidden))
        state.append(file.fileName() + ' ' + contentOf(file.filePath()).toHex()
                     + file.lastModified().toString(Qt::ISODateWithMs));
    return state;
}

} // namespace

/// The command as it is called: what it prints, how it ends, what it writes and what it must not.
class tst_Tlcheck : public QObject
{
    Q_OBJECT
private slots:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QString problem;
        QVERIFY(Store::open(store(), &problem)->write(controller::projectSeed()));
    }
    // Good, and in their normal form.
    void examples()
    {
        for (const char *name : {"fillet.tl", "vgroove.tl", "pipe.tl", "stitch.tl"}) {
            const QString copy = write(name, contentOf(example(name)));
            const Run checked = tlcheck({"--data", data(), "--fix", copy});
            QCOMPARE(checked.out + checked.err, QByteArray());
            QCOMPARE(checked.status, 0);
            QVERIFY(contentOf(copy).contains("ArcOn"));
        }
    }
    void mistakesAreThoseOfTheReadme()
    {
        QProcess process;
        process.setWorkingDirectory(EXAMPLES);
        process.start(TLCHECK, {"--data", data(), "mistakes.tl"});
        QVERIFY(process.waitForFinished());
        QCOMPARE(process.exitCode(), 1);
        const QByteArray found = process.readAllStandardOutput();
        QVERIFY(found.count('\n') > 30);
        QVERIFY2(contentOf(example("README.md")).contains("\n```\n" + found + "```\n"), found);
    }
    void exitStatus()
    {
        const QString good = example("fillet.tl");
        const QString bad = example("mistakes.tl");
        const QStringList free{"--no-references"};
        const Rows<QStringList, int, QString> rows{
            {"good", free + QStringList{good}, 0, ""},
            {"good and bad", free + QStringList{good, bad}, 1, ""},
            {"missing", free + QStringList{"/no/such.tl", bad}, 2, "/no/such.tl: "},
            {"a folder", free + QStringList{EXAMPLES}, 2, EXAMPLES ": "},
            {"without end", free + QStringList{"/dev/zero"}, 2, "/dev/zero: is too"},
            {"no file", free, 2, "no file to check"},
            {"unknown option", QStringList{"--what", good}, 2, "what"},
            {"no project", QStringList{"--data", EXAMPLES, good}, 2, "no project"},
            {"both ways", free + QStringList{"--data", "x", good}, 2, "exclude"},
            {"help", QStringList{"--help"}, 0, ""},
        };
        for (const auto &[name, arguments, status, says] : rows) {
            const Run checked = tlcheck(arguments);
            QCOMPARE(checked.status, status);
            QVERIFY2(checked.err.contains(says.toUtf8()), checked.err);
            QCOMPARE(checked.err.isEmpty(), says.isEmpty());
            // Whatever else is wrong, files that can be read are checked.
            if (checked.status != 0 && arguments.contains(example("mistakes.tl")))
                QVERIFY(checked.out.contains("mistakes.tl:4:1: arcon tl command format error\n"));
        }
    }
    void fixKeepsWhatItDoesNotRewrite()
    {
        const QByteArray before = "\xEF\xBB\xBF// é \xff,  x\r\n"
                                  "  ArcOn  \"ARCONDATA1\" , \"arcdata1\"\r\n"
                                  "WMoveL Offs(p1,1.23456789,0,0), v10,fine,tool0\n"
                                  "\tWMoveL p1 v10,fine, tool0\n"
                                  "WMoveL p1, v10,fine,tool0,wobj0,\"a\xff\"\n"
                                  "WeaveOff ";
        QByteArray after = before;
        after.replace("  ArcOn  \"ARCONDATA1\" , ", "ArcOn \"arcondata1\",")
            .replace("\tWMoveL p1 v10,fine, tool0", "WMoveL p1,v10,fine,tool0")
            .replace("WeaveOff ", "WeaveOff");
        const QString file = write("a.tl", before);
        QCOMPARE(tlcheck({"--no-references", "--fix", file}).err, (file + ": 3 lines rewritten\n"));
        QCOMPARE(contentOf(file), after);
        const QStringList state = stateOf(m_folder->path());
        QVERIFY(tlcheck({"--no-references", "--fix", file}).err.isEmpty());
        QCOMPARE(stateOf(m_folder->path()), state);
    }
    // No file may grow here, so that the new one cannot be written.
    void fixIsWholeOrNotAtAll()
    {
        const QString file = write("a.tl", "WeaveOff \n");
        const QStringList state = stateOf(m_folder->path());
        const Run checked = run("/bin/sh",
                                {"-c", "trap '' XFSZ; ulimit -f 0; exec \"$@\"", "sh", TLCHECK,
                                 "--no-references", "--fix", file});
        QCOMPARE(checked.status, 2);
        QVERIFY2(checked.err.startsWith(QFile::encodeName("tlcheck: " + file + ": ")), checked.err);
        QVERIFY(checked.out.contains("weaveoff tl command format error")); // as the file still is
        QCOMPARE(stateOf(m_folder->path()), state);
    }
    void json()
    {
        const QString file = write("a \"b\".tl", "WMoveL p1, \"é\",fine,tool0\n");
        const Run checked = tlcheck({"--no-references", "--json", "--fix", file, "/no/such.tl"});
        QCOMPARE(checked.status, 2);
        QVERIFY(checked.err.isEmpty());
        const QJsonObject all = QJsonDocument::fromJson(checked.out).object();
        const QJsonObject finding{{"file", file},
                                  {"line", 1},
                                  {"column", 11},
                                  {"kind", "refused"},
                                  {"message", "speed format error"}};
        QCOMPARE(all.value("findings").toArray(), QJsonArray({finding}));
        QCOMPARE(all.value("rewritten").toArray(),
                 QJsonArray({QJsonObject{{"file", file}, {"lines", 1}}}));
        QCOMPARE(all.value("errors").toArray().at(0).toObject().value("file"),
                 QJsonValue("/no/such.tl"));
    }
    void barOnATerminal()
    {
        const int terminal = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
        QVERIFY(terminal >= 0 && grantpt(terminal) == 0 && unlockpt(terminal) == 0);
        const QString file = write("a.tl", QByteArray("WeaveOff \n").repeated(2000));
        const int other = open(ptsname(terminal), O_RDWR | O_NOCTTY); // keeps what was written
        const Run checked = run(TLCHECK, {"--no-references", file}, ptsname(terminal));
        char shown[8192];
        const QByteArray bar(shown, int(qMax<ssize_t>(0, read(terminal, shown, sizeof shown))));
        close(other);
        close(terminal);
        QCOMPARE(checked.out.count('\n'), 4000); // refused and unpaired
        QVERIFY(!checked.out.contains('\r'));
        QVERIFY2(bar.contains(" 50 % ") && bar.endsWith("\r\033[K"), bar);
    }
    // What the pendant wrote last is seen, however it left the files, and the files stay as they
    // are.
    void leavesTheProjectAlone()
    {
        const QString file = "controller.db";
        const Rows<bool, QStringList> rows{
            {"pendant ended", false, QStringList{file}},
            {"pendant runs", true, QStringList()},
            {"pendant was killed", false, QStringList{file, file + "-wal", file + "-shm"}},
            {"copied by hand", false, QStringList{file, file + "-wal"}},
        };
        for (const auto &[name, running, kept] : rows) {
            init();
            QString problem;
            auto owner = Store::open(store(), &problem);
            QVERIFY(owner->write({{controller::names::project, "point._list",
                                   QVariantList{QVariantMap{{"id", "n"}, {"name", "new"}}}}}));
            QString folder = data();
            if (!running) {
                if (kept.size() == 1)
                    owner.reset(); // the log goes into the file
                folder = m_folder->filePath("left");
                QVERIFY(QDir().mkpath(folder));
                for (const QString &each : kept)
                    QVERIFY(QFile::copy(QDir(data()).filePath(each), QDir(folder).filePath(each)));
            }
            const QString program =
                write("a.tl", "WMoveL new,v10,fine,tool0\nWMoveL p1,v10,fine,tool0\n");
            const QStringList state = stateOf(folder);
            const Run checked = tlcheck({"--data", folder, program});
            QCOMPARE(checked.err, QByteArray());
            QCOMPARE(checked.out, (program + ":2:8: no point p1 in the project\n").toUtf8());
            QCOMPARE(stateOf(folder), state);
        }
    }
    void anyFile()
    {
        const QString empty = write("empty.tl", {});
        const QString zeros = write("zeros.tl", QByteArray(100000, 0));
        const QString wide = write("wide.tl", "WMoveL " + QByteArray("a(").repeated(500000));
        const QString high =
            write("high.tl", QByteArray("FeedOnWire 2\r\n").repeated(100000) + "SegOff;");
        const Run checked = tlcheck({"--no-references", empty, zeros, wide, high});
        QCOMPARE(checked.out,
                 (wide + ":1:1: wmovel tl command format error\n" + high
                  + ":100001:1: segoff tl command format error\n")
                     .toUtf8());
        QCOMPARE(checked.status, 1);
    }

private:
    QString write(const QString &name, const QByteArray &content) const
    {
        QFile file(m_folder->filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("cannot write the test's own file");
        return file.fileName();
    }
    QString data() const { return m_folder->filePath("data"); }
    QString store() const { return m_folder->filePath("data/controller.db"); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

QTEST_GUILESS_MAIN(tst_Tlcheck)
#include "tst_tlcheck.moc"
