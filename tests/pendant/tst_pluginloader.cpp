#include <QTemporaryDir>
#include <QTest>

#include "kelp/registry.h"
#include "pando/bmodule.h"
#include "pendant/pluginloader.h"

using pendant::PluginLoader;

class TestPluginLoader : public QObject
{
    Q_OBJECT
private slots:
    void refused_data();
    void refused();
    void loadsAgainAfterUnloading();
};

void TestPluginLoader::refused_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("reason");
    QTest::newRow("missing") << "/nowhere/lib.so"
                             << "there is no such file";
    QTest::newRow("not a library") << NO_LIBRARY << "invalid ELF header";
    QTest::newRow("not a module") << QString(NO_MODULE) << "is not a module";
}

void TestPluginLoader::refused()
{
    QFETCH(QString, path);
    QFETCH(QString, reason);
    PluginLoader loader(path);
    QVERIFY(!loader.load());
    QVERIFY2(loader.error().contains(path), qPrintable(loader.error()));
    QVERIFY2(loader.error().contains(reason), qPrintable(loader.error()));
    QVERIFY(loader.modules().isEmpty());
}

// Each load registers anew; what an earlier one left behind would be code that is gone.
void TestPluginLoader::loadsAgainAfterUnloading()
{
    for (int round = 0; round < 3; ++round) {
        PluginLoader loader(TOY_MODULE);
        QVERIFY2(loader.load(), qPrintable(loader.error()));
        QCOMPARE(loader.modules(), QStringList{"toy"});
        QCOMPARE(ver("toy", false), 3);
        QCOMPARE(ver("toy", true), 4);
    }
    QVERIFY(!bfactory()->contains("toy"));
    QCOMPARE(ver("toy", false), 0);
    QCOMPARE(ver("toy", true), 0);
}

QTEST_GUILESS_MAIN(TestPluginLoader)
#include "tst_pluginloader.moc"
