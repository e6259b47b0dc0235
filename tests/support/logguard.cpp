#include "support/logguard.h"

#include <QString>
#include <cstdio>
#include <cstdlib>

namespace testsupport {

namespace {

QtMessageHandler s_previous = nullptr;

void onMessage(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    // The offscreen platform has no window manager, and says so of every window and popup.
    if (text.startsWith("This plugin does not support "))
        return;
    if (type == QtDebugMsg || type == QtInfoMsg || type == QtFatalMsg)
        return s_previous(type, context, text);
    std::fprintf(stderr, "unexpected log line: %s\n", qPrintable(text));
    std::abort();
}

} // namespace

LogGuard::LogGuard()
{
    const QtMessageHandler previous = qInstallMessageHandler(onMessage);
    if (previous != onMessage)
        s_previous = previous;
}

LogGuard::~LogGuard()
{
    qInstallMessageHandler(s_previous);
}

} // namespace testsupport
