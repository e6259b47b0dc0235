#include <QProcess>
#include <QTest>

class TestProgram : public QObject
{
    Q_OBJECT
private slots:
    void answersWithoutDisplay_data();
    void answersWithoutDisplay();
};

void TestProgram::answersWithoutDisplay_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("status");
    QTest::addColumn<int>("errorLines");
    QTest::newRow("help") << QStringList{"--help"} << 0 << 0;
    QTest::newRow("bad language") << QStringList{"--language", "de"} << 2 << 1;
}

void TestProgram::answersWithoutDisplay()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, status);
    QFETCH(int, errorLines);
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

QTEST_GUILESS_MAIN(TestProgram)
#include "tst_program.moc"
