#pragma once

#include <QString>
#include <cstdio>
#include <cstdlib>

namespace testsupport {

/// While it lives, a qWarning or qCritical ends the test. The first that goes ends it for all.
class LogGuard
{
public:
    LogGuard()
    {
        const QtMessageHandler previous = qInstallMessageHandler(onMessage);
        if (previous != onMessage)
            s_previous = previous;
    }
    ~LogGuard() { qInstallMessageHandler(s_previous); }
    Q_DISABLE_COPY(LogGuard)

private:
    static void onMessage(QtMsgType type, const QMessageLogContext &context, const QString &text)
    {
        // The offscreen platform has no window manager, and says so of every window and popup.
        if (text.startsWith("This plugin does not support "))
            return;
        if (type == QtDebugMsg || type == QtInfoMsg || type == QtFatalMsg)
            return s_previous(type, context, text);
        std::fprintf(stderr, "unexpected log line: %s\n", qPrintable(text));
        std::abort();
    }

    static inline QtMessageHandler s_previous = nullptr;
};

} // namespace testsupport
