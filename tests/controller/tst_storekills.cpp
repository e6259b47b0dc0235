#include <QtTest>
#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

#include "controller/core/store.h"

using welmo::controller::Store;

namespace {

const QString path = QStringLiteral("a.node");
const QString key = QStringLiteral("entry");

/// Stores one number after the other, and tells each that was acknowledged, until it is killed.
[[noreturn]] void countUp(const QString &file, int toParent)
{
    QString problem;
    const auto store = Store::open(file, &problem);
    if (!store)
        _exit(2);
    for (int number = store->read(path, key)->value.toInt() + 1;; ++number) {
        // Different lengths make SQLite fill, split and free pages.
        const QString filling(number * 37 % 9000, 'x');
        if (!store->write({{path, key, number}, {path, QString::number(number % 50), filling}})
            || ::write(toParent, &number, sizeof number) != sizeof number)
            _exit(3);
    }
}

} // namespace

/// A process is killed while it writes, at least 20 times or WELMO_KILLS times. Every acknowledged
/// write is there, and the next process can open the store.
class tst_StoreKills : public QObject
{
    Q_OBJECT
private slots:
    void nothingAcknowledgedIsLost()
    {
        const int kills = qMax(20, qEnvironmentVariableIntValue("WELMO_KILLS"));
        const QTemporaryDir folder;
        const QString file = folder.filePath("controller.db");
        int acknowledged = 0;
        for (int kill = 0; kill < kills; ++kill) {
            const int before = acknowledged;
            killOne(file, QRandomGenerator::global()->bounded(1, 30), &acknowledged);
            QVERIFY(acknowledged > before);
            QString problem;
            const auto store = Store::open(file, &problem);
            QVERIFY2(store, qPrintable(problem));
            QCOMPARE(store->complaints(), QStringList());
            const int stored = store->read(path, key)->value.toInt();
            QVERIFY(stored == acknowledged || stored == acknowledged + 1);
            acknowledged = stored;
        }
        qInfo("%d kills, %d acknowledged writes, none lost", kills, acknowledged);
    }

private:
    /// Kills a process after so many writes, and reads what it told until its end.
    static void killOne(const QString &file, int writes, int *acknowledged)
    {
        int ends[2];
        if (::pipe(ends) != 0)
            qFatal("no pipe");
        const pid_t child = ::fork();
        if (child == 0)
            countUp(file, ends[1]);
        ::close(ends[1]);
        for (int told = 0; ::read(ends[0], acknowledged, sizeof *acknowledged) > 0; ++told) {
            if (told + 1 == writes)
                ::kill(child, SIGKILL);
        }
        ::waitpid(child, nullptr, 0);
        ::close(ends[0]);
    }
};

QTEST_GUILESS_MAIN(tst_StoreKills)
#include "tst_storekills.moc"
