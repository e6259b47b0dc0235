
#include "embeddedfixture.h"
#include "link/embedded/embeddedserver.h"

/// The link to a controller in the same process: what other links do not have.
class tst_EmbeddedLink : public QObject
{
    Q_OBJECT
private slots:
    void storeThatCannotBeOpened()
    {
        const QTemporaryDir temporary;
        const QString folder = temporary.filePath("deep/down"); // the store makes these folders
        auto owner = std::make_unique<Up<Fixture>>(folder);
        welmo::controller::Faults faults;
        welmo::controller::Journal journal;
        welmo::links::EmbeddedServer farEnd(folder, faults, journal, [] { return qint64(0); });
        QSignalSpy problems(&farEnd, &welmo::links::EmbeddedServer::problem);
        QSignalSpy greeted(&farEnd, &welmo::links::EmbeddedServer::greeted);
        for (int i = 0; i < 3; ++i)
            farEnd.greet(1); // each attempt fails, only the first is told
        QCOMPARE(problems.count(), 1);
        QVERIFY(problems.first().first().toString().contains("in use"));
        farEnd.leave();
        farEnd.greet(2);
        QCOMPARE(problems.count(), 2); // it is told again when the link is opened again
        owner.reset();
        QCOMPARE(greeted.count(), 0);
        farEnd.greet(2);
        QVERIFY(greeted.count() == 1 && problems.count() == 2);
    }
    void endsCleanly()
    {
        const QTemporaryDir folder;
        for (const QString &moment :
             QStringList{"never opened", "while it is set up", "up", "with an answer on its way",
                         "with requests queued"}) {
            const Fixture fixture(folder.path());
            if (moment == "while it is set up")
                fixture.link->open();
            else if (moment != "never opened")
                QVERIFY(fixture.comeUp()); // the one before has released the store
            if (moment == "with an answer on its way")
                fixture.link->faults()->setDelay(1000);
            if (moment.startsWith("with "))
                fixture.save(1, 1, moment == "with requests queued" ? 0 : impatient);
        }
        QVERIFY(Up<Fixture>(folder.path()).link->isUp());
    }
};

QTEST_GUILESS_MAIN(tst_EmbeddedLink)
#include "tst_embeddedlink.moc"
