#include <QtTest>

#include "pando/frame.h"
#include "pendant/window/messageline.h"
#include "support/datarows.h"
#include "support/files.h"
#include "support/testpendant.h"
#include "vu/xtheme.h"

using namespace testsupport;

class TestStartProblems : public QObject
{
    Q_OBJECT
private slots:
    void badFileIsToldAndKept_data()
    {
        const QByteArray garbage = "{ this is neither a store nor JSON";
        addRows<QString, QByteArray, bool>(
            {{"preferences", "pendant.json", garbage, true},
             {"module's tree", "welmo.json", garbage, true},
             {"theme", "theme.json", garbage, true},
             {"theme without colours", "theme.json", QByteArray(R"({"name": "x"})"), true},
             {"controller's store", "controller.db", garbage, false}});
    }
    void badFileIsToldAndKept()
    {
        const auto &[name, file, content, connects] = currentRow<QString, QByteArray, bool>();
        const QTemporaryDir folder;
        const QString path = folder.filePath(file);
        writeFile(path, content);

        Setup setup;
        setup.dataFolder = folder.path();
        setup.keepFiles = true;
        setup.connects = connects;
        if (file == "theme.json")
            setup.theme = path;
        TestPendant pendant(setup);
        const auto *line = pendant.window()->findChild<welmo::pendant::MessageLine *>();
        QTRY_VERIFY2(line->text().startsWith(path), qPrintable(line->text()));
        const auto *problems = pendant.find<QLabel>("lblProblems");
        QVERIFY(problems->isVisible());
        QVERIFY2(problems->text().contains(path), qPrintable(problems->text()));
        QVERIFY(vu::xtheme::current().color("text").isValid()); // it can be read as well
        if (file == "pendant.json") { // nor does a later choice replace it
            pendant.changeDisplay("cbxTheme", "dark");
            QVERIFY(pendant.lastMessage().contains(path));
        }
        pendant.app().stop();
        QCOMPARE(contentOf(path), content);
    }
    // A file where the folder should be: not even the superuser can make a folder there.
    void folderCannotBeWritten()
    {
        const QTemporaryDir folder;
        writeFile(folder.filePath("data"), "a file");
        Setup setup;
        setup.dataFolder = folder.filePath("data/below");
        setup.keepFiles = true;
        setup.connects = false;
        TestPendant pendant(setup);
        QTRY_VERIFY(pendant.lastMessage().contains(setup.dataFolder));
        QVERIFY(pendant.find<QLabel>("lblProblems")->text().contains(setup.dataFolder));
        QCOMPARE(contentOf(folder.filePath("data")), QByteArray("a file"));
    }
    void packageCannotBeUsed_data()
    {
        addRows<QString, QString>({{"missing", "/nowhere/lib.so", "there is no such file"},
                                   {"not a library", NO_LIBRARY, "invalid ELF header"},
                                   {"not a module", QString(NO_MODULE), "is not a module"}});
    }
    void packageCannotBeUsed()
    {
        const auto &[name, path, reason] = currentRow<QString, QString>();
        Setup setup;
        setup.modulePath = path;
        TestPendant pendant(setup);
        QCOMPARE(pando::frame().center->currentKey(), "pendant.plugin_error");
        QVERIFY(pendant.find<QLabel>("lblProblems")->text().contains(reason));
        QCOMPARE(pendant.find<QLabel>("lblPluginPath")->text(), path);
        QVERIFY(pendant.find<QLabel>("lblPluginReason")->text().contains(reason));
    }
};

QTEST_MAIN(TestStartProblems)
#include "tst_startproblems.moc"
