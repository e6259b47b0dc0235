#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtTest>

#include "book/records/backupfile.h"
#include "support/files.h"

using namespace welmo::book;

namespace {

BackupFile example()
{
    BackupFile file;
    file.cell = "left";
    file.written = "2026-11-22T04:00:00+01:00";
    file.values = {{"arc_weld.weld_param",
                    QVariantMap{{"arcdata1", QVariantMap{{"current", 180.5}, {"name", "电弧"}}}}}};
    file.limits = {{"arcdata1", QVariantMap{{"mask_start", 500}}}};
    return file;
}

} // namespace

/// A backup is taken whole or not at all.
class tst_Backup : public QObject
{
    Q_OBJECT
private slots:
    void comesBackAsItWas()
    {
        const QTemporaryDir folder;
        const QString name = folder.filePath("new/a.weldbackup");
        QString problem;
        QVERIFY2(example().save(name, &problem), qPrintable(problem));
        const auto file = BackupFile::load(name, &problem);
        QVERIFY2(file, qPrintable(problem));
        QCOMPARE(file->values, example().values);
        QCOMPARE(file->limits.value("arcdata1").toMap().value("mask_start").toInt(), 500);
        QCOMPARE(file->cell + file->written, example().cell + example().written);
        testsupport::writeFile(folder.filePath("plain"), "in the way");
        QVERIFY(!example().save(folder.filePath("plain/a.weldbackup"), &problem));
    }
    void whatIsNoneIsTold_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("line");
        const QByteArray good = example().pack();
        const auto changed = [&](const QByteArray &from, const QByteArray &to) {
            return qCompress(qUncompress(good).replace(from, to));
        };
        QTest::newRow("newer") << changed("\"format\":1", "\"format\":2")
                               << "newer version (format 2";
        QTest::newRow("changed") << changed("180.5", "380.5") << "is damaged";
        QTest::newRow("cut off") << good.left(good.size() / 2) << "is damaged";
        QTest::newRow("empty") << QByteArray() << "is damaged";
        QTest::newRow("a bomb") << QByteArray("\xff\xff\xff\xff") + good.mid(4) << "is damaged";
        QTest::newRow("something else") << QByteArray("ArcOn \"arcondata1\"") << "no backup";
        QTest::newRow("no content") << qCompress("{\"format\":1}") << "is damaged";
    }
    void whatIsNoneIsTold()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, line);
        QString problem;
        QVERIFY(!BackupFile::unpack(bytes, &problem));
        QVERIFY2(problem.contains(line), qPrintable(problem));
    }
};

QTEST_GUILESS_MAIN(tst_Backup)
#include "tst_backup.moc"
