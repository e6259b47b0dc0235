#include <QJsonDocument>
#include <QJsonObject>

#include "pando/frame.h"
#include "pendant/app/preferences.h"
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
        QVERIFY(
            vu::xtheme::current().color("text").isValid()); // the window itself can still be read
        if (file == "pendant.json") { // a later choice does not replace it either
            pendant.changeDisplay("cbxTheme", "dark");
            QVERIFY(pendant.lastMessage().contains(path));
        }
        pendant.app().stop();
        QCOMPARE(contentOf(path), content);
    }
    void whatTheLastReleaseLeftIsOpened()
    {
        const QTemporaryDir folder;
        for (const char *file : {FIXTURES "/welmo.json", FIXTURES "/pendant.json", LAST_STORE}) {
            const QString name = QFileInfo(file).fileName();
            writeFile(folder.filePath(name.endsWith(".db") ? "controller.db" : name),
                      contentOf(file));
        }
        const welmo::pendant::Preferences preferences(folder.path());
        QCOMPARE(preferences.language + ' ' + preferences.theme, "zh_CN dark");
        Setup setup;
        setup.dataFolder = folder.path();
        setup.keepFiles = true;
        TestPendant pendant(setup);
        QVERIFY2(!pendant.find<QLabel>("lblProblems")->isVisible(),
                 qPrintable(pendant.find<QLabel>("lblProblems")->text()));
        const auto reply = pendant.host()->service()->exchange(
            {tessa::LinkRequest::Kind::Get, "arc_weld.arcon_param", "arcondata1", {}}, 5000);
        QCOMPARE(reply->toVariant().toMap()["current"], QVariant(120.5));
        pendant.app().stop();
        const auto treeOf = [](const QString &file) {
            return QJsonDocument::fromJson(contentOf(file)).object();
        };
        const QJsonObject before = treeOf(FIXTURES "/welmo.json");
        const QJsonObject after = treeOf(folder.filePath("welmo.json"));
        QCOMPARE(after["device"].toObject()["welder_sertting"],
                 before["device"].toObject()["welder_sertting"]);
        for (const QString &key : before.keys())
            QVERIFY2(after.contains(key), qPrintable(key));
    }
    // Where a file is in the way, not even the superuser can make the folder.
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
