#include "support/logguard.h"

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace testsupport {

namespace {

LogGuard *s_guard = nullptr;

void printAndAbort(const QString &line)
{
    std::fprintf(stderr, "unexpected log line: %s\n", qPrintable(line));
    std::abort();
}

} // namespace

LogGuard::LogGuard(Handler handler)
    : m_handler(handler ? std::move(handler) : printAndAbort)
{
    // The offscreen platform has no window manager, and says so of every window and popup.
    expect(QStringLiteral("^This plugin does not support "));
    s_guard = this;
    m_previous = qInstallMessageHandler(&LogGuard::onMessage);
}

LogGuard::~LogGuard()
{
    qInstallMessageHandler(m_previous);
    s_guard = nullptr;
}

void LogGuard::expect(const QString &pattern)
{
    const QMutexLocker lock(&m_mutex);
    m_expected.append(QRegularExpression(pattern));
}

bool LogGuard::isExpected(const QString &text)
{
    const QMutexLocker lock(&m_mutex);
    for (const QRegularExpression &pattern : qAsConst(m_expected)) {
        if (pattern.match(text).hasMatch())
            return true;
    }
    return false;
}

void LogGuard::onMessage(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    LogGuard *guard = s_guard;
    if (!guard || type == QtDebugMsg || type == QtInfoMsg || type == QtFatalMsg) {
        if (guard && guard->m_previous)
            guard->m_previous(type, context, text);
        return;
    }
    if (!guard->isExpected(text))
        guard->m_handler(text);
}

} // namespace testsupport
