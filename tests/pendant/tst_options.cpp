#include <QTest>

#include "pendant/options.h"
#include "support/rows.h"

using testsupport::Rows;

class TestOptions : public QObject
{
    Q_OBJECT
private slots:
    void unusable()
    {
        const Rows<QStringList, QString> rows{
            {"language", QStringList{"--language", "de"}, "'de'"},
            {"theme", QStringList{"--theme", "pink"}, "'pink'"},
            {"theme file", QStringList{"--theme", "/nowhere/t.json"}, "'/nowhere/t.json'"},
            {"unknown option", QStringList{"--colour", "red"}, "'colour'"},
            {"value missing", QStringList{"--data"}, "'--data'"},
            {"empty folder", QStringList{"--data", ""}, "--data"},
            {"no address", QStringList{"--controller", "cell1"}, "'cell1'"},
            {"no cell", QStringList{"--controller", "mqtt://localhost"}, "cell"},
            {"odd cell", QStringList{"--controller", "mqtt://localhost/a/+"}, "a/+"},
            {"in the clear", QStringList{"--controller", "mqtt://10.0.0.7/c"}, "mqtts"},
            {"not here", QStringList{"--controller", "mqtt://127.a.org/c"}, "mqtts"},
            {"too many", QStringList{"arcweld"}, "'arcweld'"},
        };
        for (const auto &[name, arguments, named] : rows) {
            const auto parsed = pendant::parseOptions(QStringList{"pendant"} + arguments);
            QVERIFY2(parsed.error.contains(named), qPrintable(parsed.error));
            QVERIFY(!parsed.error.contains('\n'));
        }
    }
    void usable()
    {
        const auto defaults = pendant::parseOptions({"pendant"});
        QVERIFY(defaults.error.isEmpty() && defaults.options.language.isEmpty());
        QVERIFY(defaults.options.theme.isEmpty());
        QVERIFY(defaults.options.dataFolder.endsWith("/welmo"));
        QVERIFY(defaults.options.modulePath.endsWith("libwelmo.so"));
        const auto given = pendant::parseOptions({"pendant", "--language", "zh_CN", "--theme",
                                                  QCoreApplication::applicationFilePath(), "--data",
                                                  "/d", "--module", "/m.so"});
        QCOMPARE(given.error, QString());
        QCOMPARE(given.options.language, "zh_CN");
        QCOMPARE(given.options.theme, QCoreApplication::applicationFilePath());
        QCOMPARE(given.options.dataFolder, "/d");
        QCOMPARE(given.options.modulePath, "/m.so");
    }
};

QTEST_GUILESS_MAIN(TestOptions)
#include "tst_options.moc"
