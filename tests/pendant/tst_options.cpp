#include <QTemporaryFile>
#include <QTest>

#include "pendant/options.h"

class TestOptions : public QObject
{
    Q_OBJECT
private slots:
    void unusable_data();
    void unusable();
    void defaults();
    void given();
    void help();
};

void TestOptions::unusable_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("named");
    QTest::newRow("language") << QStringList{"--language", "de"} << "'de'";
    QTest::newRow("theme") << QStringList{"--theme", "pink"} << "'pink'";
    QTest::newRow("theme file") << QStringList{"--theme", "/nowhere/t.json"} << "'/nowhere/t.json'";
    QTest::newRow("theme folder") << QStringList{"--theme", "/"} << "'/'";
    QTest::newRow("unknown option") << QStringList{"--colour", "red"} << "'colour'";
    QTest::newRow("value missing") << QStringList{"--data"} << "'--data'";
    QTest::newRow("empty folder") << QStringList{"--data", ""} << "--data";
    QTest::newRow("too many") << QStringList{"arcweld"} << "'arcweld'";
}

void TestOptions::unusable()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, named);
    const auto parsed = pendant::parseOptions(QStringList{"pendant"} + arguments);
    QVERIFY2(parsed.error.contains(named), qPrintable(parsed.error));
    QVERIFY(!parsed.error.contains('\n'));
}

void TestOptions::defaults()
{
    const auto parsed = pendant::parseOptions({"pendant"});
    QCOMPARE(parsed.error, QString());
    QCOMPARE(parsed.options.language, QString());
    QCOMPARE(parsed.options.theme, QString());
    QVERIFY(parsed.options.dataFolder.endsWith("/welmo"));
    QVERIFY(parsed.options.modulePath.endsWith("libwelmo.so"));
}

void TestOptions::given()
{
    QTemporaryFile theme;
    QVERIFY(theme.open());
    const auto parsed =
        pendant::parseOptions({"pendant", "--language", "zh_CN", "--theme", theme.fileName(),
                               "--data", "/d", "--module", "/m.so"});
    QCOMPARE(parsed.error, QString());
    QCOMPARE(parsed.options.language, "zh_CN");
    QCOMPARE(parsed.options.theme, theme.fileName());
    QCOMPARE(parsed.options.dataFolder, "/d");
    QCOMPARE(parsed.options.modulePath, "/m.so");
}

void TestOptions::help()
{
    const QString help = pendant::parseOptions({"pendant", "--help"}).help;
    for (const char *option : {"--language", "--theme", "--data", "--module"})
        QVERIFY2(help.contains(option), option);
}

QTEST_GUILESS_MAIN(TestOptions)
#include "tst_options.moc"
