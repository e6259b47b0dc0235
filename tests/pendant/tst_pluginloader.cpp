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
    // Each load registers anew; what an earlier one left behind would be code that is gone.
    void loadsAgainAfterUnloading()
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
};

QTEST_GUILESS_MAIN(TestPluginLoader)
#include "tst_pluginloader.moc"
