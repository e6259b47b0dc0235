#include <QSignalSpy>
#include <QtTest>
#include <algorithm>
#include <atomic>
#include <thread>

#include "support/rows.h"
#include "tessa/notificationqueue.h"

using tessa::NotificationQueue;
using testsupport::Rows;

namespace {

constexpr int interval = NotificationQueue::intervalMs;
const QString node = QStringLiteral("arc_weld.welder_state");

/// A queue with a clock that stands still until the test turns it.
struct Bench
{
    std::atomic<qint64> now{0};
    NotificationQueue queue{nullptr, [this] { return now.load(); }};
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

/// How often the event loop is called to the queue, its timer aside.
struct WakeCounter : QObject
{
    int count = 0;
    explicit WakeCounter(QObject *queue) { queue->installEventFilter(this); }
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::MetaCall;
        return false;
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
    void numbersAreMergedAndEventsKept()
    {
        using Map = QVariantMap;
        const Rows<QVariantList, QVariantList> rows{
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
            QVariantList seen;
            for (const auto &entry : qAsConst(bench.delivered)) {
                if (entry.first == node)
                    seen.append(entry.second);
            }
            QCOMPARE(seen, expected);
        }
    }
    void clearingForgetsWhatWaits()
    {
        Bench bench;
        bench.queue.push(node, 1);
        bench.queue.clear();
        bench.queue.push(node, 2);
        bench.deliverAll();
        QCOMPARE(bench.delivered.size(), 1);
        QCOMPARE(bench.last(), QVariant(2));
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
        bench.queue.push("other", 5); // does not wait for the first
        QCoreApplication::processEvents();
        QCOMPARE(bench.delivered.size(), 7);
        QCOMPARE(bench.last(), QVariant(5));
        bench.now += interval;
        QTRY_COMPARE(bench.delivered.size(), 8); // the last value arrives, by itself
        QCOMPARE(bench.last(), QVariant(QVariantMap({{"current", 7999}})));
    }
    // Or else a controller that tells hundreds of values a second wakes the screen as often.
    void nothingIsPostedForWhatTheTimerBrings()
    {
        Bench bench;
        WakeCounter wakes(&bench.queue);
        const auto wakesBy = [&](const QString &path) {
            const int before = wakes.count;
            bench.queue.push(path, QVariantMap({{"x", 1}}));
            QCoreApplication::processEvents();
            return wakes.count - before;
        };
        QCOMPARE(wakesBy("early"), 1);
        bench.now = 10;
        QCOMPARE(wakesBy("late"), 1);
        QCOMPARE(wakesBy("late"), 1); // sets the timer
        QCOMPARE(wakesBy("late"), 0);
        QCOMPARE(wakesBy("early"), 1); // due before the timer, which is set anew
        QCOMPARE(wakesBy("early"), 0);
        QCOMPARE(bench.delivered.size(), 2);
        bench.now = interval;
        QCOMPARE(wakesBy("early"), 1); // due: at once, however busy the timer's thread is
        QCOMPARE(bench.delivered.size(), 3);
    }
    void boundMergesTheOldest()
    {
        Bench bench;
        constexpr int count = 3 * NotificationQueue::capacity;
        std::thread([&bench] {
            for (int i = 0; i < count; ++i)
                bench.queue.push(
                    node,
                    QVariantMap({{"mode", QString::number(i)}, {QString("key%1").arg(i), i}}));
        }).join();
        bench.deliverAll();
        QCOMPARE(bench.delivered.size(), NotificationQueue::capacity);
        QCOMPARE(bench.last().toMap().value("mode"), QVariant(QString::number(count - 1)));
        // Older keys are not lost, only their words.
        QCOMPARE(bench.delivered.first().second.toMap().size(),
                 1 + count - NotificationQueue::capacity + 1);
    }
    void floodFromAnotherThread()
    {
        constexpr int count = 100000;
        Bench bench;
        std::thread controller([&bench] {
            for (int i = 1; i <= count; ++i)
                bench.queue.push(node, QVariantMap({{"current", i}}));
        });
        int turns = 0;
        while (bench.last().toMap().value("current") != QVariant(count)) {
            bench.turn();
            QVERIFY(++turns < count);
        }
        controller.join();
    }
};

QTEST_GUILESS_MAIN(tst_NotificationQueue)
#include "tst_notificationqueue.moc"
