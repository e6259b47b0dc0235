#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>
#include <memory>

#include "kelp/jsonfile.h"
#include "kelp/qflog.h"
#include "kelp/registry.h"
#include "kelp/workspace.h"
#include "support/rows.h"

using kelp::ModuleObject;
using kelp::Workspace;
using testsupport::Rows;

namespace {

const char *const byteOrderMark = "\xEF\xBB\xBF";
const char *const templateText =
    R"({"device": {"enable": false}, "set": {}, "options": {"mode": "test_run"}})";

void write(const QString &path, const QByteArray &text)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(text);
}

QByteArray read(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

/// kelpCore: what one running host keeps: saved trees, registries, translations, the log file.
class tst_Workspace : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        write(path("template.json"), QByteArray(byteOrderMark) + templateText);
        start();
    }
    void cleanup()
    {
        m_host.reset();
        m_problems.clear();
    }
    void theTemplateSeedsATree()
    {
        ModuleObject *tree = bind(false);
        QCOMPARE(m("welmo"), tree);
        QCOMPARE(m("welmo.device.enable")->value(), QVariant(false));
        QCOMPARE(m("welmo.options.mode")->getString(), QString("test_run"));
        QVERIFY(tree->hasCmobj("set") && tree->r("set")->cmobjCount() == 0);
        QCOMPARE(bind(true), tree); // bound again, nothing changes
        tree->set(nullptr, "device.enable", true);
        restart();
        QVERIFY(!QFile::exists(path("data/welmo.json"))); // it was not to be persistent
        QCOMPARE(m_problems, QStringList());
    }
    void aSavedTreeIsRestoredAndCompleted()
    {
        const Rows<QByteArray, QString, QVariant> rows{
            {"the saved value wins", R"({"device": {"enable": true}})", "device.enable", true},
            {"beside it, the template", R"({"device": {"own": 1}})", "device.enable", false},
            {"what the template lacks stays", R"({"own": {"a": [1, "b"]}})", "own.a",
             QVariantList{1, "b"}},
            {"a branch saved without children", R"({"device": null})", "device.enable", false},
            {"a value where the template has a branch", R"({"device": 5})", "device", 5},
            {"a branch where the template has a value", R"({"options": {"mode": {"a": 1}}})",
             "options.mode.a", 1},
            {"with a byte-order mark", "\xEF\xBB\xBF{\"device\": {\"enable\": true}}",
             "device.enable", true},
        };
        for (const auto &[name, saved, key, value] : rows) {
            cleanup();
            init();
            write(path("data/welmo.json"), saved);
            bind()->set(nullptr, "touched", true);
            QVERIFY(kelp::sameValue(m(key, m("welmo"))->toVariant(), value));
            restart();
            bind();
            QVERIFY(kelp::sameValue(m(key, m("welmo"))->toVariant(), value));
        }
    }
    void aChangeIsSavedShortlyAfterItAndAtTheEnd()
    {
        bind()->set(nullptr, "device.enable", true, false);
        QTRY_VERIFY(read(path("data/welmo.json")).contains("\"enable\": true"));
        m("welmo.device")->c("late", true)->set(nullptr, QString(), 12.5);
        restart();
        bind();
        QCOMPARE(m("welmo.device.late")->getDouble(), 12.5);
        m("welmo.device")->removeChild("late");
        restart();
        bind();
        QVERIFY(m("welmo.device.late")->isMissing());
    }
    void aTreeThatNeverRestsIsSavedAllTheSame()
    {
        ModuleObject *tree = bind();
        QTimer restless;
        int count = 0;
        connect(&restless, &QTimer::timeout, this, [&] { tree->set(nullptr, "count", ++count); });
        restless.start(0);
        QTRY_VERIFY(!read(path("data/welmo.json")).isEmpty());
    }
    void anUnreadableFileIsReportedAndLeftAsItIs()
    {
        const Rows<QByteArray, QString> rows{
            {"broken", "{\"device\":\n {\"enable\" true}}", ":2:"},
            {"empty", "", "not valid JSON"},
            {"a list", "[1]", "not a JSON object"},
        };
        for (const auto &[name, saved, reason] : rows) {
            cleanup();
            init();
            write(path("data/welmo.json"), saved);
            bind()->set(nullptr, "device.enable", true);
            QCOMPARE(m("welmo.options.mode")->getString(), QString("test_run"));
            QCOMPARE(m_problems.size(), 1);
            QVERIFY(m_problems.first().contains("data/welmo.json"));
            QVERIFY(m_problems.first().contains(reason));
            restart();
            QCOMPARE(read(path("data/welmo.json")), saved);
        }
    }
    void aSaveThatFailedIsReportedAndTriedAgain()
    {
        bind()->set(nullptr, "device.enable", true);
        QVERIFY(QDir(path("data")).removeRecursively());
        m_host->saveTrees();
        QCOMPARE(m_problems.size(), 1);
        QVERIFY(m_problems.first().contains("data/welmo.json"));
        QVERIFY(QDir().mkpath(path("data")));
        restart();
        bind();
        QCOMPARE(m("welmo.device.enable")->getBool(), true);
    }
    void aNewerRegistrationCounts()
    {
        const QList<QPair<QString, int>> classes{
            {"some.a", 9}, {"some.b", 1}, {"some.a", 7}, {"some", 100}, {"somewhere.a", 100}};
        for (const auto &[key, number] : classes) {
            kelp::versionManager().insert(key, [number = number] { return number; });
            kelp::pluginManager()->regist("some", [number = number] { return number; });
        }
        QCOMPARE(ver("some", true), 8); // the sum of the classes below that name
        QCOMPARE(ver("some", false), 100);
        QCOMPARE(ver("unknown", true) + ver("unknown", false), 0);
        QCOMPARE(mName("1", "2", "3"), QString("1.2.3"));
    }
    void oneTranslationIsActiveByTheHostsLanguage()
    {
        const auto shown = [] { return QCoreApplication::translate("Sample", "Open"); };
        for (const QString language : {"en", "zh_CN"}) {
            m_host.reset();
            start(language);
            QVERIFY(translator()->installQMTranslator(SAMPLE_QM));
            QVERIFY(!translator()->installQMTranslator(path("missing_cn.qm")));
            QCOMPARE(shown(), QString::fromUtf8(language == "en" ? "Open" : "打开"));
            m_host.reset();
            QCOMPARE(shown(), QString("Open"));
        }
    }
    void theLogFileLiesInTheDataFolder()
    {
        for (const char *word : {"first", "second"}) {
            kelp::QFLog log("", "[S]", "./log/sample", "log");
            log << word << "line";
        }
        QCOMPARE(read(path("data/log/sample")),
                 QByteArray("[S] log first line\n[S] log second line\n"));
    }

private:
    void start(const QString &language = "en")
    {
        m_host = std::make_unique<Workspace>(path("data"), language);
        connect(m_host.get(), &Workspace::problem, this,
                [this](const QString &line) { m_problems.append(line); });
    }
    void restart()
    {
        m_host.reset();
        start();
    }
    ModuleObject *bind(bool persistent = true)
    {
        return m_host->bindTree("welmo", path("template.json"), persistent);
    }
    QString path(const QString &name) const { return m_folder->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<Workspace> m_host;
    QStringList m_problems;
};

QTEST_GUILESS_MAIN(tst_Workspace)
#include "tst_workspace.moc"
