#include <QtTest>

#include "pendant/app/options.h"
#include "support/datarows.h"

using namespace testsupport;

class TestOptions : public QObject
{
    Q_OBJECT
private slots:
    void unusable_data()
    {
        addRows<QStringList, QString>(
            {{"language", QStringList{"--language", "de"}, "'de'"},
             {"theme file", QStringList{"--theme", "/nowhere/t.json"}, "'/nowhere/t.json'"},
             {"unknown option", QStringList{"--colour", "red"}, "'colour'"},
             {"value missing", QStringList{"--data"}, "'--data'"},
             {"no address", QStringList{"--controller", "cell1"}, "'cell1'"},
             {"odd cell", QStringList{"--controller", "mqtt://localhost/a/+"}, "a/+"},
             {"in the clear", QStringList{"--controller", "mqtt://10.0.0.7/c"}, "mqtts"},
             {"one in the clear", QStringList{"--controller", "mqtt://localhost,10.0.0.7:1/c"},
              "10.0"},
             {"no second", QStringList{"--controller", "mqtt://localhost,/c"}, "mqtt:///c"},
             {"not here", QStringList{"--controller", "mqtt://127.a.org/c"}, "mqtts"},
             {"too many", QStringList{"arcweld"}, "'arcweld'"}});
    }
    void unusable()
    {
        const auto &[name, arguments, named] = currentRow<QStringList, QString>();
        const auto parsed = welmo::pendant::parseOptions(QStringList{"pendant"} + arguments);
        QVERIFY2(parsed.error.contains(named), qPrintable(parsed.error));
        QVERIFY(!parsed.error.contains('\n'));
    }
    void answersWithoutDisplay_data()
    {
        addRows<QStringList, int, int>({{"help", QStringList{"--help"}, 0, 0},
                                        {"bad language", QStringList{"--language", "de"}, 2, 1}});
    }
    void answersWithoutDisplay()
    {
        const auto &[name, arguments, status, errorLines] = currentRow<QStringList, int, int>();
        QProcess program;
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert("QT_QPA_PLATFORM", "xcb");
        environment.remove("DISPLAY");
        program.setProcessEnvironment(environment);
        program.start(WELMO_PENDANT, arguments);
        QVERIFY(program.waitForFinished());
        QCOMPARE(program.exitStatus(), QProcess::NormalExit);
        QCOMPARE(program.exitCode(), status);
        QCOMPARE(program.readAllStandardError().count('\n'), errorLines);
    }
};

QTEST_GUILESS_MAIN(TestOptions)
#include "tst_options.moc"
