#include <QSignalSpy>
#include <QtTest>
#include <algorithm>
#include <thread>

#include "tessa/notificationqueue.h"

using tessa::NotificationQueue;

namespace {

constexpr int interval = NotificationQueue::intervalMs;
const QString node = QStringLiteral("arc_weld.welder_state");

/// A queue with a clock that stands still until the test turns it.
struct Bench
{
    qint64 now = 0;
    NotificationQueue queue{nullptr, [this] { return now; }};
    QVector<QPair<QString, QVariant>> delivered;

    Bench()
    {
        QObject::connect(&queue, &NotificationQueue::delivered,
                         [this](const QString &path, const QVariant &values) {
                             delivered.append({path, values});
                         });
    }
    QVariant last() const { return delivered.isEmpty() ? QVariant() : delivered.last().second; }
    /// Everything that waits, interval by interval.
    void deliverAll()
    {
        int before = -1;
        while (before != delivered.size()) {
            before = delivered.size();
            turn();
        }
    }
    /// The next interval, and what is handed on in it.
    void turn()
    {
        now += interval;
        queue.push(QStringLiteral("wake"), {}); // its timer would do the same, in real time
        QCoreApplication::processEvents();
        delivered.erase(std::remove_if(delivered.begin(), delivered.end(),
                                       [](const auto &entry) { return entry.first == "wake"; }),
                        delivered.end());
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
        NotificationQueue queue;
        QSignalSpy spy(&queue, &NotificationQueue::delivered);
        const QThread *receiver = nullptr;
        connect(&queue, &NotificationQueue::delivered, this,
                [&] { receiver = QThread::currentThread(); });
        std::thread([&] { queue.push("a", 1); }).join();
        queue.push("b", 2);
        QCOMPARE(spy.count(), 0);
        QTRY_COMPARE(spy.count(), 2);
        QCOMPARE(receiver, thread());
    }
    void numbersAreMergedAndEventsKept_data()
    {
        QTest::addColumn<QVariantList>("pushed");
        QTest::addColumn<QVariantList>("delivered");
        const auto map = [](const QVariantMap &values) { return QVariant(values); };
        QTest::newRow("numbers") << QVariantList{map({{"n", 1}}), map({{"n", 2}}), map({{"k", 3}})}
                                 << QVariantList{map({{"n", 2}, {"k", 3}})};
        QTest::newRow("words") << QVariantList{map({{"w", "a"}}), map({{"w", "b"}}),
                                               map({{"w", "a"}})}
                               << QVariantList{map({{"w", "a"}}), map({{"w", "b"}}),
                                               map({{"w", "a"}})};
        QTest::newRow("the same word")
            << QVariantList{map({{"w", "a"}, {"n", 1}}), map({{"w", "a"}, {"n", 2}})}
            << QVariantList{map({{"w", "a"}, {"n", 2}})};
        QTest::newRow("switches") << QVariantList{
            map({{"s", true}}), map({{"n", 1}}),
            map({{"s", false}})} << QVariantList{map({{"s", true}, {"n", 1}}), map({{"s", false}})};
        QTest::newRow("plain values") << QVariantList{1, 2} << QVariantList{1, 2};
    }
    void numbersAreMergedAndEventsKept()
    {
        QFETCH(QVariantList, pushed);
        QFETCH(QVariantList, delivered);
        NotificationQueue queue;
        QVariantList seen;
        connect(&queue, &NotificationQueue::delivered, this,
                [&](const QString &path, const QVariant &values) {
                    if (path == "node")
                        seen.append(values);
                });
        for (const QVariant &values : qAsConst(pushed)) {
            queue.push("node", values);
            queue.push("other", values); // nodes do not mix
        }
        QTRY_COMPARE(seen.size(), delivered.size());
        QCOMPARE(seen, delivered);
    }
    void clearingForgetsWhatWaits()
    {
        NotificationQueue queue;
        QSignalSpy spy(&queue, &NotificationQueue::delivered);
        queue.push("node", 1);
        queue.clear();
        queue.push("node", 2);
        QTRY_COMPARE(spy.count(), 1);
        QCOMPARE(spy.at(0).at(1), QVariant(2));
    }
    void eachNodeHasItsPace()
    {
        Bench bench;
        const auto flood = [&bench](int from) {
            for (int i = 0; i < 1000; ++i) {
                bench.queue.push(node, QVariantMap({{"current", from + i}}));
                if (i % 10 == 0)
                    QCoreApplication::processEvents();
            }
            QCoreApplication::processEvents();
        };
        for (int turn = 0; turn < 5; ++turn) {
            flood(turn * 1000);
            QCOMPARE(bench.delivered.size(), turn + 1);
            bench.now += interval - 1;
            flood(turn * 1000);
            QCOMPARE(bench.delivered.size(), turn + 1);
            bench.now += 1;
        }
        flood(7000);
        QCOMPARE(bench.delivered.size(), 6);
        bench.deliverAll();
        QCOMPARE(bench.last(),
                 QVariant(QVariantMap({{"current", 7999}}))); // the last value arrives
    }
    void nodesDoNotWaitForEachOther()
    {
        Bench bench;
        bench.queue.push("a", QVariantMap({{"x", 1}}));
        bench.queue.push("b", QVariantMap({{"x", 2}}));
        QCoreApplication::processEvents();
        QCOMPARE(bench.delivered.size(), 2);
        bench.queue.push("a", QVariantMap({{"x", 3}}));
        bench.queue.push("c", QVariantMap({{"x", 4}}));
        QCoreApplication::processEvents();
        QCOMPARE(bench.delivered.size(), 3);
        QCOMPARE(bench.delivered.last().first, QString("c"));
    }
    void whatWaitsComesByItself()
    {
        Bench bench;
        bench.queue.push(node, QVariantMap({{"mode", "simu"}}));
        bench.queue.push(node, QVariantMap({{"mode", "real"}}));
        QCoreApplication::processEvents();
        QCOMPARE(bench.delivered.size(), 1);
        bench.now += interval;
        QTRY_COMPARE(bench.delivered.size(), 2);
        QCOMPARE(bench.last(), QVariant(QVariantMap({{"mode", "real"}})));
    }
    void boundMergesTheOldest()
    {
        Bench bench;
        const int count = 3 * NotificationQueue::capacity;
        for (int i = 0; i < count; ++i)
            bench.queue.push(
                node, QVariantMap({{"mode", QString::number(i)}, {QString("key%1").arg(i), i}}));
        bench.deliverAll();
        QCOMPARE(bench.delivered.size(), NotificationQueue::capacity);
        QCOMPARE(bench.last().toMap().value("mode"), QVariant(QString::number(count - 1)));
        QCOMPARE(bench.delivered.first().second.toMap().size(),
                 1 + count - NotificationQueue::capacity
                     + 1); // older keys are not lost, only their words
    }
    void floodFromAnotherThread()
    {
        constexpr int count = 100000;
        Bench bench;
        std::thread controller([&bench] {
            for (int i = 1; i <= count; ++i)
                bench.queue.push(node,
                                 QVariantMap({{"phase", QString::number(i)}, {"current", i}}));
        });
        controller.join();
        bench.deliverAll();
        QCOMPARE(bench.delivered.size(), NotificationQueue::capacity);
        QCOMPARE(bench.last(),
                 QVariant(QVariantMap({{"phase", QString::number(count)}, {"current", count}})));

        std::thread again([&bench] {
            for (int i = 1; i <= count; ++i)
                bench.queue.push(node, QVariantMap({{"current", -i}}));
        });
        int reached = 0; // also while they come in
        while (bench.last().toMap().value("current") != QVariant(-count)) {
            bench.turn();
            QVERIFY(++reached < count);
        }
        again.join();
    }
};

// Nothing is pushed any more: the queue's own timer brings what waits.
QTEST_GUILESS_MAIN(tst_NotificationQueue)
#include "tst_notificationqueue.moc"
