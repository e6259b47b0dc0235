#include <QtTest>

#include "tl/instruction.h"

using namespace welmo::tl;

/// The files that a line can name: the contract's prefixes, written down once more on purpose.
class tst_FileNames : public QObject
{
    Q_OBJECT
private slots:
    void ofEachArgument_data()
    {
        QTest::addColumn<QStringList>("names");
        QTest::addColumn<QString>("prefix");
        QTest::newRow("ArcOn, first") << fileNames(Word::ArcOn, 0) << "arcondata";
        QTest::newRow("ArcOn, second") << fileNames(Word::ArcOn, 1) << "arcdata";
        QTest::newRow("ArcOff") << fileNames(Word::ArcOff, 0) << "arcoffdata";
        QTest::newRow("WeaveOn, WMoveL") << weaveFileNames() << "weavedata";
        QTest::newRow("SegOn") << fileNames(Word::SegOn, 0) << "segdata";
    }
    void ofEachArgument()
    {
        QFETCH(QStringList, names);
        QFETCH(QString, prefix);
        QCOMPARE(names.size(), 40);
        QCOMPARE(names.first(), prefix + "1");
        QCOMPARE(names.at(9), prefix + "10");
        QCOMPARE(names.last(), prefix + "40");
    }
};

QTEST_GUILESS_MAIN(tst_FileNames)
#include "tst_filenames.moc"
