#include <QtTest>
#include <thread>

#include "link/exchange.h"

using links::Exchange;
using tessa::LinkReply;

/// Who comes first settles an exchange: the answer or the end of the caller's patience.
class tst_Exchange : public QObject
{
    Q_OBJECT
private slots:
    void answerWakesTheCaller()
    {
        Exchange exchange({});
        std::thread farEnd([&exchange] { exchange.settle({0, 42}); });
        const LinkReply reply = exchange.wait(60000);
        farEnd.join();
        QCOMPARE(reply.code, 0);
        QCOMPARE(reply.value.toInt(), 42);
    }
    void answerThatWasThereBefore()
    {
        Exchange exchange({});
        exchange.settle({7, {}});
        exchange.settle({8, {}});
        QCOMPARE(exchange.wait(0).code, 7);
    }
    void lateAnswerGoesNowhere()
    {
        Exchange exchange({});
        QVERIFY(!exchange.isSettled());
        QCOMPARE(exchange.wait(0).code, LinkReply::TimedOut);
        QVERIFY(exchange.isSettled());
        exchange.settle({0, 42});
        QCOMPARE(exchange.wait(0).code, LinkReply::TimedOut);
    }
};

QTEST_GUILESS_MAIN(tst_Exchange)
#include "tst_exchange.moc"
