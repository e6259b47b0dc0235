#include <QtTest>

#include "controller/core/json.h"
#include "controller/core/store.h"
#include "recordeddisk.h"

using welmo::controller::Store;

namespace {

const QString path = QStringLiteral("a.node");
const QString other = QStringLiteral("b.node");

/// The content of the store as text; empty if it cannot be read.
QByteArray contentOf(const Store &store)
{
    QByteArray content = "store";
    for (const QString &node : {path, other}) {
        const auto entries = store.readAll(node);
        if (!entries)
            return {};
        for (const auto &[key, entry] : *entries)
            content += '\n' + node.toUtf8() + ' ' + key.toUtf8() + ' '
                + QByteArray::number(entry.revision) + ' ' + welmo::controller::toJson(entry.value);
    }
    return content;
}

/// Writes that make, change, rename and remove entries, some larger than a page.
QVector<QVector<Store::Change>> changes()
{
    const auto text = [](char letter, int size) { return QString(size, letter); };
    return {
        {{path, "first", 1}},
        {{path, "large", text('x', 9000)}, {other, "list", QStringList{"large"}}},
        {{path, "first", 2}, {path, "second", text('y', 300)}},
        {{path, "large", {}}, {path, "renamed", text('x', 9000)}, {other, "list", "renamed"}},
        {{path, "first", {}}},
        {{path, "renamed", text('z', 5000)}, {path, "first", 3}},
    };
}

} // namespace

/// Power cuts, kills and refusals of the disk, at every operation on the store's file: what was
/// acknowledged is there, any other write is there whole or not at all.
class tst_StoreCut : public QObject
{
    Q_OBJECT
private slots:
    void cutAnywhere_data() { RecordedDisk::addCuts(); }
    void cutAnywhere()
    {
        RecordedDisk disk;
        const QByteArrayList contents = work(&disk);
        QVERIFY(disk.operations() > 50);
        disk.cutAnywhere([&](const QString &folder, int acknowledged) {
            QString problem;
            const auto store = Store::open(folder + "/controller.db", &problem);
            QVERIFY2(store, qPrintable(problem));
            const QByteArray content = contentOf(*store);
            const QByteArray begun = contents.value(acknowledged, contents.last());
            QVERIFY(content == contents[qMax(0, acknowledged - 1)] || content == begun);
            QVERIFY(store->write({{path, "afterwards", 1}}));
        });
    }
    void refusedAnywhere()
    {
        RecordedDisk disk;
        const QByteArray expected = work(&disk).constLast();
        int failing = 0;
        do {
            const QTemporaryDir folder;
            const QString file = folder.filePath("controller.db");
            QString problem;
            auto store = Store::open(file, &problem);
            disk.start(failing);
            for (const auto &change : changes()) {
                const QByteArray before = contentOf(*store);
                if (store->write(change))
                    continue;
                QVERIFY(!store->errorText().isEmpty());
                QCOMPARE(contentOf(*store), before);
                QVERIFY(store->write(change));
            }
            store.reset();
            const int operations = disk.operations();
            disk.start();
            store = Store::open(file, &problem);
            QVERIFY2(store, qPrintable(problem));
            QCOMPARE(contentOf(*store), expected);
            QVERIFY2(failing > 0 || operations > 30, "nothing is recorded");
            if (failing >= operations)
                return; // nothing was refused in the whole life
        } while (++failing);
    }

private:
    /// Makes all changes, with a new start between; the content after each.
    static QByteArrayList work(RecordedDisk *disk)
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath("controller.db");
        QString problem;
        auto store = Store::open(file, &problem);
        QByteArrayList contents;
        const auto acknowledge = [&] {
            disk->acknowledge();
            contents.append(contentOf(*store));
        };
        acknowledge();
        for (const auto &change : changes()) {
            if (!store->write(change))
                qFatal("the store does not work at all");
            acknowledge();
            if (contents.size() == 4) {
                store.reset();
                store = Store::open(file, &problem);
            }
        }
        return contents;
    }
};

QTEST_GUILESS_MAIN(tst_StoreCut)
#include "tst_storecut.moc"
