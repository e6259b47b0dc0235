#include <QProcess>
#include <QTest>

#include "support/rows.h"

using testsupport::Rows;

class TestProgram : public QObject
{
    Q_OBJECT
private slots:
    void answersWithoutDisplay()
    {
        const Rows<QStringList, int, int> rows{
            {"help", QStringList{"--help"}, 0, 0},
            {"bad language", QStringList{"--language", "de"}, 2, 1},
        };
        for (const auto &[name, arguments, status, errorLines] : rows) {
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
    }
};

QTEST_GUILESS_MAIN(TestProgram)
#include "tst_program.moc"
