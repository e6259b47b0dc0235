#include <QSignalSpy>
#include <QtTest>
#include <thread>

#include "tessa/notificationqueue.h"

using tessa::NotificationQueue;

/// tessa: the pace at which a controller's notifications reach the pages.
class tst_NotificationQueue : public QObject
{
    Q_OBJECT

private slots:
    void nothingComesFromInsideAPush();
    void numbersAreMergedAndEventsKept_data();
    void numbersAreMergedAndEventsKept();
    void aFloodIsBoundedAndEndsWithItsLastValue();
    void clearingForgetsWhatWaits();
};

void tst_NotificationQueue::nothingComesFromInsideAPush()
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

void tst_NotificationQueue::numbersAreMergedAndEventsKept_data()
{
    QTest::addColumn<QVariantList>("pushed");
    QTest::addColumn<QVariantList>("delivered");
    const auto map = [](const QVariantMap &values) { return QVariant(values); };
    QTest::newRow("numbers") << QVariantList{map({{"n", 1}}), map({{"n", 2}}), map({{"k", 3}})}
                             << QVariantList{map({{"n", 2}, {"k", 3}})};
    QTest::newRow("words") << QVariantList{map({{"w", "a"}}), map({{"w", "b"}}), map({{"w", "a"}})}
                           << QVariantList{map({{"w", "a"}}), map({{"w", "b"}}), map({{"w", "a"}})};
    QTest::newRow("the same word")
        << QVariantList{map({{"w", "a"}, {"n", 1}}), map({{"w", "a"}, {"n", 2}})}
        << QVariantList{map({{"w", "a"}, {"n", 2}})};
    QTest::newRow("switches") << QVariantList{map({{"s", true}}), map({{"n", 1}}),
                                              map({{"s", false}})}
                              << QVariantList{map({{"s", true}, {"n", 1}}), map({{"s", false}})};
    QTest::newRow("plain values") << QVariantList{1, 2} << QVariantList{1, 2};
}

void tst_NotificationQueue::numbersAreMergedAndEventsKept()
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

void tst_NotificationQueue::aFloodIsBoundedAndEndsWithItsLastValue()
{
    NotificationQueue queue;
    QVariantList seen;
    connect(&queue, &NotificationQueue::delivered, this,
            [&](const QString &, const QVariant &values) { seen.append(values); });
    const int flood = 3 * NotificationQueue::capacity;
    for (int i = 1; i <= flood; ++i)
        queue.push("node", QVariantMap{{"word", QString::number(i)}});
    const QVariant last = QVariantMap{{"word", QString::number(flood)}};
    QTRY_VERIFY_WITH_TIMEOUT(!seen.isEmpty() && seen.last() == last, 60000);
    QCOMPARE(seen.size(), int(NotificationQueue::capacity));
}

void tst_NotificationQueue::clearingForgetsWhatWaits()
{
    NotificationQueue queue;
    QSignalSpy spy(&queue, &NotificationQueue::delivered);
    queue.push("node", 1);
    queue.clear();
    queue.push("node", 2);
    QTRY_COMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(1), QVariant(2));
}

QTEST_GUILESS_MAIN(tst_NotificationQueue)
#include "tst_notificationqueue.moc"
