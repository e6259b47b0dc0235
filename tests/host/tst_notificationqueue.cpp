#include <QtTest>
#include <thread>

#include "support/datarows.h"
#include "tessa/notificationqueue.h"

using namespace testsupport;
using tessa::NotificationQueue;
using Map = QVariantMap;

namespace {

const QString node = QStringLiteral("arc_weld.welder_state");

/// A queue on a clock that the test sets.
struct Fixture
{
    qint64 now = 0;
    NotificationQueue queue{nullptr, [this] { return now; }};
    QVariantList delivered; ///< values of the node

    Fixture()
    {
        QObject::connect(&queue, &NotificationQueue::delivered, &queue,
                         [this](const QString &path, const QVariant &values) {
                             if (path == node)
                                 delivered.append(values);
                         });
    }
    /// Lets intervals pass until nothing is waiting.
    void deliverAll()
    {
        for (int before = -1; before != delivered.size();) {
            before = delivered.size();
            now += NotificationQueue::intervalMs;
            queue.push("other", {}); // like its timer, which runs in real time
            QCoreApplication::processEvents();
        }
    }
};

} // namespace

/// tessa: at what pace notifications reach the pages.
class tst_NotificationQueue : public QObject
{
    Q_OBJECT

private slots:
    void nothingComesFromInsideAPush()
    {
        Fixture fixture;
        const QThread *receiver = nullptr;
        connect(
            &fixture.queue, &NotificationQueue::delivered, this,
            [&] { receiver = QThread::currentThread(); }, Qt::DirectConnection);
        fixture.queue.push(node, 1);
        fixture.queue.clear(); // drops what is waiting
        std::thread([&] { fixture.queue.push(node, 2); }).join();
        QVERIFY(!receiver);
        fixture.deliverAll();
        QCOMPARE(fixture.delivered, QVariantList{2});
        QCOMPARE(receiver, thread());
    }
    void numbersAreMergedAndEventsKept_data()
    {
        addRows<QVariantList, QVariantList>(
            {{"numbers", QVariantList{Map{{"n", 1}}, Map{{"n", 2}}, Map{{"k", 3}}},
              QVariantList{Map{{"n", 2}, {"k", 3}}}},
             {"words", QVariantList{Map{{"w", "a"}}, Map{{"w", "b"}}, Map{{"w", "a"}}},
              QVariantList{Map{{"w", "a"}}, Map{{"w", "b"}}, Map{{"w", "a"}}}},
             {"the same word", QVariantList{Map{{"w", "a"}, {"n", 1}}, Map{{"w", "a"}, {"n", 2}}},
              QVariantList{Map{{"w", "a"}, {"n", 2}}}},
             {"switches", QVariantList{Map{{"s", true}}, Map{{"n", 1}}, Map{{"s", false}}},
              QVariantList{Map{{"s", true}, {"n", 1}}, Map{{"s", false}}}},
             {"plain values", QVariantList{1, 2}, QVariantList{1, 2}}});
    }
    void numbersAreMergedAndEventsKept()
    {
        const auto &[name, pushed, expected] = currentRow<QVariantList, QVariantList>();
        Fixture fixture;
        for (const QVariant &values : pushed) {
            fixture.queue.push(node, values);
            fixture.queue.push("other", values); // values of other nodes stay apart
        }
        fixture.deliverAll();
        QCOMPARE(fixture.delivered, expected);
    }
    void eachNodeHasItsPace()
    {
        Fixture fixture;
        QSignalSpy all(&fixture.queue, &NotificationQueue::delivered);
        const auto flood = [&fixture](const QString &path) {
            for (int i = 0; i < 100; ++i) {
                fixture.queue.push(path, Map{{"current", i}});
                QCoreApplication::processEvents();
            }
        };
        for (int turn = 1; turn <= 5; ++turn) {
            flood(node);
            fixture.now += NotificationQueue::intervalMs - 1;
            flood(node);
            QCOMPARE(fixture.delivered.size(), turn);
            fixture.now += 1;
        }
        flood(node);
        flood("other"); // is told at once
        QCOMPARE(all.size(), 7);
        fixture.now += NotificationQueue::intervalMs;
        QTRY_COMPARE(fixture.delivered.size(), 7); // without another push, the last value is told
        QCOMPARE(fixture.delivered.last(), QVariant(Map{{"current", 99}}));
    }
    void boundMergesTheOldest()
    {
        Fixture fixture;
        constexpr int count = 3 * NotificationQueue::capacity;
        for (int i = 0; i < count; ++i)
            fixture.queue.push(node,
                               Map{{"mode", QString::number(i)}, {QString("key%1").arg(i), i}});
        fixture.deliverAll();
        QCOMPARE(fixture.delivered.size(), NotificationQueue::capacity);
        QCOMPARE(fixture.delivered.last().toMap().value("mode"),
                 QVariant(QString::number(count - 1)));
        // Merging loses old words, but no keys.
        QCOMPARE(fixture.delivered.first().toMap().size(),
                 1 + count - NotificationQueue::capacity + 1);
    }
};

QTEST_GUILESS_MAIN(tst_NotificationQueue)
#include "tst_notificationqueue.moc"
