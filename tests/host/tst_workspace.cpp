#include <QtTest>
#include <memory>

#include "kelp/jsonfile.h"
#include "kelp/qflog.h"
#include "kelp/registry.h"
#include "kelp/workspace.h"
#include "support/datarows.h"
#include "support/files.h"

using kelp::ModuleObject;
using kelp::Workspace;
using namespace testsupport;

namespace {

const QByteArray byteOrderMark = "\xEF\xBB\xBF";
const char *const templateText =
    R"({"device": {"enable": false}, "set": {}, "options": {"mode": "test_run"}})";

} // namespace

/// kelpCore: saved trees and translations of a running host.
class tst_Workspace : public QObject
{
    Q_OBJECT

private slots:
    void init() { begin({}); }
    void theTemplateSeedsATree()
    {
        ModuleObject *tree = m_host->bindTree("welmo", path("template.json"), false);
        QCOMPARE(m("welmo"), tree);
        QCOMPARE(m("welmo.device.enable")->value(), QVariant(false));
        QVERIFY(tree->hasCmobj("set") && tree->r("set")->cmobjCount() == 0);
        tree->set(nullptr, "device.enable", true);
        QCOMPARE(bind(), tree); // binding again changes nothing
        m_host.reset();
        QVERIFY(!QFile::exists(m_saved)); // the tree was not to be saved
        QCOMPARE(m_problems, QStringList());
    }
    void aSavedTreeIsRestoredAndCompleted_data()
    {
        addRows<QByteArray, QString, QVariant>(
            {{"the saved value wins", byteOrderMark + R"({"device": {"enable": true}})",
              "device.enable", true},
             {"beside it, the template", R"({"device": {"own": 1}})", "device.enable", false},
             {"what the template lacks stays", R"({"device": null, "own": {"a": [1, "b"]}})",
              "own.a", QVariantList{1, "b"}},
             {"a value where the template has a branch", R"({"device": 5})", "device", 5},
             {"a branch where the template has a value", R"({"options": {"mode": {"a": 1}}})",
              "options.mode.a", 1}});
    }
    void aSavedTreeIsRestoredAndCompleted()
    {
        const auto &[name, saved, key, value] = currentRow<QByteArray, QString, QVariant>();
        begin(saved);
        bind()->set(nullptr, "touched", true);
        QVERIFY(kelp::sameValue(m(key, m("welmo"))->toVariant(), value));
        start();
        bind();
        QVERIFY(kelp::sameValue(m(key, m("welmo"))->toVariant(), value));
    }
    void aChangeIsSavedShortlyAfterItAndAtTheEnd()
    {
        ModuleObject *tree = bind();
        QTimer restless; // a tree that always changes is saved as well
        connect(&restless, &QTimer::timeout, tree,
                [tree] { tree->set(nullptr, "count", tree->r("count")->getInt() + 1); });
        restless.start(0);
        tree->set(nullptr, "device.enable", true, false);
        QTRY_VERIFY(contentOf(m_saved).contains("\"enable\": true"));
        restless.stop();
        tree->r("device")->c("late", true)->set(nullptr, QString(), 12.5);
        start();
        QCOMPARE(bind()->r("device.late")->getDouble(), 12.5);
        m("welmo.device")->removeChild("late");
        start();
        QVERIFY(bind()->r("device.late")->isMissing());
    }
    void aSaveThatFailedIsReportedAndTriedAgain()
    {
        bind()->set(nullptr, "device.enable", true);
        QVERIFY(QDir(path("data")).removeRecursively());
        m_host->saveTrees();
        QCOMPARE(m_problems.size(), 1);
        QVERIFY(m_problems.first().contains("data/welmo.json"));
        QVERIFY(QDir().mkpath(path("data")));
        start();
        QCOMPARE(bind()->r("device.enable")->getBool(), true);
    }
    void oneTranslationIsActiveByTheHostsLanguage()
    {
        for (const QString &language : QStringList{"en", "zh_CN", ""}) {
            start(language);
            QVERIFY(translator()->installQMTranslator(SAMPLE_QM));
            QVERIFY(!translator()->installQMTranslator(path("missing_cn.qm")));
            QCOMPARE(QCoreApplication::translate("Sample", "Open"),
                     QString::fromUtf8(language == "zh_CN" ? "打开" : "Open"));
        }
    }
    // A text that was put together is recognised by its last translations.
    void textsAreShownInAnotherLanguage_data()
    {
        addRows<QString, QString>({{"plain", "打开", "Open"},
                                   {"argument", "第 7 行：p1", "line 7: p1"},
                                   {"translated argument", "第 7 行：打开", "line 7: Open"},
                                   {"within another", "第 1 行：第 2 行：p1", "line 1: line 2: p1"},
                                   {"two parts", "打开第 1 行：p1", "Openline 1: p1"},
                                   {"with another's part", "打开 success", ""},
                                   {"of nobody", "7 行", ""}});
    }
    void textsAreShownInAnotherLanguage()
    {
        const auto &[name, told, english] = currentRow<QString, QString>();
        start("zh_CN");
        translator()->installQMTranslator(SAMPLE_QM);
        for (const char *source : {"Open", "line %1: %2", "%1: %2"})
            QCoreApplication::translate("Sample", source);
        const QVariant source = translator()->sources().sourceOf(told);
        const QVariant kept = QJsonDocument::fromVariant(source).toVariant();
        QCOMPARE(kelp::TextSources::shown(kept), english.isEmpty() ? QString() : told);
        start("en");
        QCOMPARE(kelp::TextSources::shown(kept), english);
    }

private:
    /// Starts a host on a folder that has only the template and the saved tree.
    void begin(const QByteArray &saved)
    {
        m_host.reset();
        m_folder = std::make_unique<QTemporaryDir>();
        m_saved = path("data/welmo.json");
        QDir().mkpath(path("data"));
        writeFile(path("template.json"), byteOrderMark + templateText);
        if (!saved.isEmpty())
            writeFile(m_saved, saved);
        start();
    }
    void start(const QString &language = "en")
    {
        m_problems.clear();
        m_host.reset();
        m_host = std::make_unique<Workspace>(path("data"), language);
        connect(m_host.get(), &Workspace::problem, this,
                [this](const QString &line) { m_problems.append(line); });
    }
    ModuleObject *bind() { return m_host->bindTree("welmo", path("template.json"), true); }
    QString path(const QString &name) const { return m_folder->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<Workspace> m_host;
    QStringList m_problems;
    QString m_saved;
};

QTEST_GUILESS_MAIN(tst_Workspace)
#include "tst_workspace.moc"
