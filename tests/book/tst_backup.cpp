#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtTest>

#include "book/records/backupfile.h"
#include "support/datarows.h"
#include "support/files.h"

using namespace welmo::book;
using namespace testsupport;

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
        const QByteArray good = example().pack();
        const auto changed = [&](const QByteArray &from, const QByteArray &to) {
            return qCompress(qUncompress(good).replace(from, to));
        };
        addRows<QByteArray, QString>(
            {{"newer", changed("\"format\":1", "\"format\":2"), "newer version (format 2"},
             {"changed", changed("180.5", "380.5"), "is damaged"},
             {"cut off", good.left(good.size() / 2), "is damaged"},
             {"empty", QByteArray(), "is damaged"},
             {"a bomb", QByteArray("\xff\xff\xff\xff") + good.mid(4), "is damaged"},
             {"something else", "ArcOn \"arcondata1\"", "no backup"},
             {"no content", qCompress("{\"format\":1}"), "is damaged"}});
    }
    void whatIsNoneIsTold()
    {
        const auto &[name, bytes, line] = currentRow<QByteArray, QString>();
        QString problem;
        QVERIFY(!BackupFile::unpack(bytes, &problem));
        QVERIFY2(problem.contains(line), qPrintable(problem));
    }
};

QTEST_GUILESS_MAIN(tst_Backup)
#include "tst_backup.moc"
