#include <QApplication>
#include <cstdio>
#include <cstdlib>

#include "fuzz.h"
#include "support/logguard.h"

void require(bool holds, const char *what, const QString &about)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s: %s\n", what, qPrintable(about));
    std::abort();
}

// NOLINTNEXTLINE(bugprone-reserved-identifier): the sanitizer asks for it by this name
extern "C" const char *__lsan_default_suppressions()
{
    return "leak:libfontconfig\n"; // keeps what it has read
}

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    static char name[] = "fuzz";
    static char *arguments[] = {name, nullptr};
    static int count = 1;
    qSetGlobalQHashSeed(0); // the same input, the same run
    // Never destroyed: what Qt does not take down at its end is still in use then, and no leak.
    static auto *application = new QApplication(count, arguments);
    static auto *guard = new testsupport::LogGuard;
    return !application || !guard;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *bytes, size_t size)
{
    fuzz({reinterpret_cast<const char *>(bytes), static_cast<int>(size)});
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return 0;
}
