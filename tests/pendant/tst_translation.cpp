#include <QtTest>

#include "support/datarows.h"
#include "support/files.h"

using namespace testsupport;

class TestTranslation : public QObject
{
    Q_OBJECT
private slots:
    void everyTextIsTranslated_data()
    {
        addRows<QStringList>(
            {{"pendant/language/pendant_cn.ts",
              QStringList{"pendant", "host", "controller", "link", "tools/tlcheck"}},
             {"resources/language/welmo_cn.ts", QStringList{"src"}},
             {"tl/language/tl_cn.ts", QStringList{"tl"}},
             {"schema/language/schema_cn.ts", QStringList{"schema"}},
             {"book/language/book_cn.ts", QStringList{"book"}}});
    }
    // What the tools find in the sources today is added to a copy of the shipped file, unfinished.
    void everyTextIsTranslated()
    {
        const auto &[shipped, folders] = currentRow<QStringList>();
        const QTemporaryDir folder;
        const QString copy = folder.filePath("copy.ts");
        QVERIFY(QFile::copy(QString(SOURCE_FOLDER "/") + shipped, copy));
        QProcess lupdate;
        lupdate.setWorkingDirectory(SOURCE_FOLDER);
        lupdate.start(LUPDATE,
                      QStringList{"-silent", "-locations", "none", "-I", "."} + folders
                          + QStringList{"-ts", copy});
        QVERIFY(lupdate.waitForFinished());
        QCOMPARE(lupdate.exitCode(), 0);
        const QList<QByteArray> lines = contentOf(copy).split('\n');
        QVERIFY(lines.size() > 100);
        for (int i = 1; i < lines.size(); ++i)
            QVERIFY2(!lines[i].contains("type=\"unfinished\""), lines[i - 1]);
    }
};

QTEST_GUILESS_MAIN(TestTranslation)
#include "tst_translation.moc"
