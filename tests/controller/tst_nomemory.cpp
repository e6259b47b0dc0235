#include <QTemporaryDir>
#include <QtTest>
#include <sys/wait.h>
#include <unistd.h>

#include "controllerfixture.h"

using welmo::controller::Store;

// Ours replace malloc, calloc and realloc for Qt, SQLite and C++; glibc's do the work.
extern "C" {
void *glibcMalloc(size_t size) __asm__("__libc_malloc");
void *glibcCalloc(size_t count, size_t size) __asm__("__libc_calloc");
void *glibcRealloc(void *block, size_t size) __asm__("__libc_realloc");
void *ourMalloc(size_t size) __asm__("malloc");
void *ourCalloc(size_t count, size_t size) __asm__("calloc");
void *ourRealloc(void *block, size_t size) __asm__("realloc");
}

namespace {

constexpr long nobody = -1;
long s_left = nobody; // so many requests succeed before one is refused

bool isRefused()
{
    return s_left != nobody && s_left-- == 0;
}

} // namespace

void *ourMalloc(size_t size)
{
    return isRefused() ? nullptr : glibcMalloc(size);
}

void *ourCalloc(size_t count, size_t size)
{
    return isRefused() ? nullptr : glibcCalloc(count, size);
}

void *ourRealloc(void *block, size_t size)
{
    return isRefused() ? nullptr : glibcRealloc(block, size);
}

namespace {

enum Outcome { Succeeded, Refused, Ended };

const char node[] = "arc_weld.arcon_param";
const QString name = QStringLiteral("arcondata1");

QVariantMap fileWith(int current)
{
    return {{"name", name}, {"current", current}};
}

/// Opens the store and does what @p phase says; memory request number @p refused fails in it.
Outcome actHere(const QString &file, const QByteArray &phase, int current, long refused)
{
    s_left = phase.contains("start") ? refused : nobody;
    QString problem;
    auto store = Store::open(file, &problem);
    if (!store)
        return Refused;
    ControllerFixture fixture(std::move(store));
    if (!phase.contains("start"))
        s_left = refused;
    bool good = fixture.started;
    if (phase == "save")
        good = fixture.set(node, name, fileWith(current)).ok();
    if (phase == "load") {
        const auto reply = fixture.get(node, name);
        good = reply.ok();
        if (good && reply.value.toMap()["current"] != current - 1)
            ::abort();
    }
    s_left = nobody;
    return good ? Succeeded : Refused;
}

/// actHere() in another process, which may end without memory.
Outcome act(const QString &file, const QByteArray &phase, int current, long refused)
{
    const pid_t child = ::fork();
    if (child == 0) {
        std::set_terminate([] { ::_exit(Ended); });
        [&]() noexcept { ::_exit(actHere(file, phase, current, refused)); }();
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? Outcome(WEXITSTATUS(status)) : Outcome(-WTERMSIG(status));
}

} // namespace

/// One of the first thousand requests for memory fails in a start, a save or a load. The controller
/// works on, refuses, or ends; the store stays whole, with all that was acknowledged. WELMO_SOAK
/// tries every request, otherwise every fifth.
class tst_NoMemory : public QObject
{
    Q_OBJECT
private slots:
    void runsOutOnce_data()
    {
        QTest::addColumn<QByteArray>("phase");
        for (const char *phase : {"first start", "start", "save", "load"})
            QTest::newRow(phase) << QByteArray(phase);
    }
    void runsOutOnce()
    {
        QFETCH(const QByteArray, phase);
        const bool isFirst = phase == "first start";
        const int step = qEnvironmentVariableIsSet("WELMO_SOAK") ? 1 : 5;
        // In memory, because a disk would be slow.
        const QTemporaryDir folder((QDir("/dev/shm").exists() ? "/dev/shm" : QDir::tempPath())
                                   + "/nomemory-XXXXXX");
        const QString file = folder.filePath("controller.db");
        int current = 1;
        int counts[3] = {};
        QVERIFY(isFirst || act(file, "save", current, nobody) == Succeeded);
        for (long refused = 0; refused < 1000; refused += step) {
            const Outcome outcome = act(file, phase, current + 1, refused);
            const QByteArray where = QByteArray::number(int(refused)) + ": ";
            QVERIFY2(outcome >= 0, where + QByteArray::number(outcome));
            ++counts[outcome];
            QString problem;
            auto store = Store::open(file, &problem);
            QVERIFY2(store, qPrintable(where + problem));
            QCOMPARE(store->complaints(), QStringList());
            const int stored = store->read(node, name)->value.toMap()["current"].toInt();
            const bool mayBeNew = phase == "save" && stored == current + 1;
            QVERIFY2(isFirst || mayBeNew || (stored == current && !(phase == "save" && !outcome)),
                     where + QByteArray::number(stored));
            current = isFirst ? current : stored;
            store.reset();
            if (isFirst)
                QVERIFY(QFile::remove(file));
        }
        qInfo("%d refused, %d ended, %d went on", counts[Refused], counts[Ended],
              counts[Succeeded]);
        QVERIFY(counts[Refused] + counts[Ended] > 0);
    }
};

QTEST_GUILESS_MAIN(tst_NoMemory)
#include "tst_nomemory.moc"
