#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>
#include <future>
#include <thread>

#include "embeddedbench.h"
#include "link/farend.h"
#include "upbench.h"

using controller::Faults;
using links::EmbeddedLink;

/// What is so of the link to a controller in the same process only.
class tst_EmbeddedLink : public QObject
{
    Q_OBJECT
private slots:
    void storeThatCannotBeOpened()
    {
        const QTemporaryDir folder;
        auto owner = std::make_unique<UpBench>(folder.path());
        Faults faults;
        controller::Journal journal;
        links::FarEnd farEnd(folder.path(), faults, journal, [] { return qint64(0); });
        QSignalSpy problems(&farEnd, &links::FarEnd::problem);
        QSignalSpy greeted(&farEnd, &links::FarEnd::greeted);
        for (int i = 0; i < 3; ++i)
            farEnd.greet(1); // it tries again, and has nothing new to say
        QCOMPARE(problems.count(), 1);
        QVERIFY(problems.at(0).first().toString().contains(folder.filePath("controller.db")));
        farEnd.leave();
        farEnd.greet(2);
        QCOMPARE(problems.count(), 2); // told to who opens the link anew
        QCOMPARE(greeted.count(), 0);
        owner.reset();
        farEnd.greet(2);
        QVERIFY(greeted.count() == 1 && problems.count() == 2);
    }
    void endsCleanly()
    {
        const QStringList moments{"never opened", "while it is set up", "up",
                                  "with an answer on its way", "with requests in the queue"};
        for (int when = 0; when < moments.size(); ++when) {
            const QTemporaryDir folder;
            {
                const Bench bench(folder.path());
                if (when == 1)
                    bench.link->open();
                if (when >= 2)
                    QVERIFY(bench.comeUp());
                if (when == 3) {
                    bench.link->faults()->setDelay(1000);
                    bench.save(1, impatient);
                }
                if (when == 4)
                    bench.save(1, 0);
            }
            const UpBench next(folder.path());
        }
    }
    void endsWhenTheBusyThreadIsDone()
    {
        UpBench bench;
        std::promise<void> stopped;
        std::promise<void> ending;
        std::thread blocker([&stopped, &ending, hands = bench.hands] {
            const std::lock_guard gate(hands->gate);
            stopped.set_value();
            ending.get_future().wait();
        });
        stopped.get_future().wait();
        bench.link->faults()->clear();
        const LinkReply reply = bench.command("real", impatient);
        ending.set_value();
        bench.link.reset();
        blocker.join();
        QCOMPARE(reply.code, LinkReply::TimedOut);
    }
};

QTEST_GUILESS_MAIN(tst_EmbeddedLink)
#include "tst_embeddedlink.moc"
