#pragma once

#include <QString>
#include <cstdio>
#include <cstdlib>

namespace testsupport {

/// While a guard exists, qWarning and qCritical end the test program. The first guard that is
/// destroyed switches all off.
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
        // The offscreen platform complains of every window that it has no window manager.
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
