#include <QtTest>

#include "controller/files/fileset.h"
#include "data/parameterset.h"
#include "tl/fileline.h"

using namespace welmo::tl;

/// A program's file names are those that the pages offer and the controller keeps.
class tst_FileNames : public QObject
{
    Q_OBJECT
private slots:
    void sameNamesEverywhere()
    {
        const QVector<QStringList> ofLines{
            fileNames(Instruction::ArcOn, 0), fileNames(Instruction::ArcOn, 1),
            fileNames(Instruction::ArcOff, 0), weaveFileNames(), fileNames(Instruction::SegOn, 0)};
        const QVector<const welmo::ParameterSet *> ofPages{
            &welmo::sets::arcon(), &welmo::sets::weld(), &welmo::sets::arcoff(),
            &welmo::sets::weave(), &welmo::sets::seg()};
        for (int i = 0; i < ofLines.size(); ++i) {
            QCOMPARE(ofLines.at(i), ofPages.at(i)->fileNames());
            for (const QString &name : ofLines.at(i))
                QVERIFY(welmo::controller::fileSets().at(size_t(i)).hasFile(name));
        }
    }
};

QTEST_GUILESS_MAIN(tst_FileNames)
#include "tst_filenames.moc"
