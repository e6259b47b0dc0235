#include <QSignalSpy>
#include <QtTest>
#include <thread>

#include "support/rows.h"
#include "tessa/notificationqueue.h"

using tessa::NotificationQueue;
using Map = QVariantMap;

namespace {

const QString node = QStringLiteral("arc_weld.welder_state");

/// A queue with a clock that stands still until the test turns it.
struct Bench
{
    qint64 now = 0;
    NotificationQueue queue{nullptr, [this] { return now; }};
    QVariantList delivered; ///< of the node

    Bench()
    {
        QObject::connect(&queue, &NotificationQueue::delivered,
                         [this](const QString &path, const QVariant &values) {
                             if (path == node)
                                 delivered.append(values);
                         });
    }
    /// Everything that waits, interval by interval.
    void deliverAll()
    {
        for (int before = -1; before != delivered.size();) {
            before = delivered.size();
            now += NotificationQueue::intervalMs;
            queue.push("other", {}); // its timer would do the same, in real time
            QCoreApplication::processEvents();
        }
    }
};

} // namespace

/// tessa: the pace at which a controller's notifications reach the pages.
class tst_NotificationQueue : public QObject
{
    Q_OBJECT

private slots:
    void nothingComesFromInsideAPush()
    {
        Bench bench;
        const QThread *receiver = nullptr;
        connect(&bench.queue, &NotificationQueue::delivered, this,
                [&] { receiver = QThread::currentThread(); });
        bench.queue.push(node, 1);
        bench.queue.clear(); // forgets what waits
        std::thread([&] { bench.queue.push(node, 2); }).join();
        QVERIFY(!receiver);
        bench.deliverAll();
        QCOMPARE(bench.delivered, QVariantList{2});
        QCOMPARE(receiver, thread());
    }
    void numbersAreMergedAndEventsKept()
    {
        const testsupport::Rows<QVariantList, QVariantList> rows{
            {"numbers", QVariantList{Map{{"n", 1}}, Map{{"n", 2}}, Map{{"k", 3}}},
             QVariantList{Map{{"n", 2}, {"k", 3}}}},
            {"words", QVariantList{Map{{"w", "a"}}, Map{{"w", "b"}}, Map{{"w", "a"}}},
             QVariantList{Map{{"w", "a"}}, Map{{"w", "b"}}, Map{{"w", "a"}}}},
            {"the same word", QVariantList{Map{{"w", "a"}, {"n", 1}}, Map{{"w", "a"}, {"n", 2}}},
             QVariantList{Map{{"w", "a"}, {"n", 2}}}},
            {"switches", QVariantList{Map{{"s", true}}, Map{{"n", 1}}, Map{{"s", false}}},
             QVariantList{Map{{"s", true}, {"n", 1}}, Map{{"s", false}}}},
            {"plain values", QVariantList{1, 2}, QVariantList{1, 2}},
        };
        for (const auto &[name, pushed, expected] : rows) {
            Bench bench;
            for (const QVariant &values : pushed) {
                bench.queue.push(node, values);
                bench.queue.push("other", values); // nodes do not mix
            }
            bench.deliverAll();
            QCOMPARE(bench.delivered, expected);
        }
    }
    void eachNodeHasItsPace()
    {
        Bench bench;
        QSignalSpy all(&bench.queue, &NotificationQueue::delivered);
        const auto flood = [&bench](const QString &path) {
            for (int i = 0; i < 100; ++i) {
                bench.queue.push(path, Map{{"current", i}});
                QCoreApplication::processEvents();
            }
        };
        for (int turn = 1; turn <= 5; ++turn) {
            flood(node);
            bench.now += NotificationQueue::intervalMs - 1;
            flood(node);
            QCOMPARE(bench.delivered.size(), turn);
            bench.now += 1;
        }
        flood(node);
        flood("other"); // does not wait for the first
        QCOMPARE(all.size(), 7);
        bench.now += NotificationQueue::intervalMs;
        QTRY_COMPARE(bench.delivered.size(), 7); // the last value arrives, by itself
        QCOMPARE(bench.delivered.last(), QVariant(Map{{"current", 99}}));
    }
    void boundMergesTheOldest()
    {
        Bench bench;
        constexpr int count = 3 * NotificationQueue::capacity;
        for (int i = 0; i < count; ++i)
            bench.queue.push(node, Map{{"mode", QString::number(i)}, {QString("key%1").arg(i), i}});
        bench.deliverAll();
        QCOMPARE(bench.delivered.size(), NotificationQueue::capacity);
        QCOMPARE(bench.delivered.last().toMap().value("mode"),
                 QVariant(QString::number(count - 1)));
        // Older keys are not lost, only their words.
        QCOMPARE(bench.delivered.first().toMap().size(),
                 1 + count - NotificationQueue::capacity + 1);
    }
};

QTEST_GUILESS_MAIN(tst_NotificationQueue)
#include "tst_notificationqueue.moc"
