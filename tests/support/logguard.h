#pragma once

#include <QMutex>
#include <QRegularExpression>
#include <QStringList>
#include <functional>

namespace testsupport {

/// While it lives, a qWarning or qCritical that was not declared before ends the test. One at a
/// time.
class LogGuard
{
public:
    /// Gets the unexpected line; any thread. The default prints it and aborts.
    using Handler = std::function<void(const QString &line)>;

    explicit LogGuard(Handler handler = {});
    ~LogGuard();
    LogGuard(const LogGuard &) = delete;
    LogGuard &operator=(const LogGuard &) = delete;

    /// From now on lines that match @p pattern are fine.
    void expect(const QString &pattern);

private:
    static void onMessage(QtMsgType type, const QMessageLogContext &context, const QString &text);
    bool isExpected(const QString &text);

    Handler m_handler;
    QtMessageHandler m_previous;
    QMutex m_mutex;
    QList<QRegularExpression> m_expected;
};

} // namespace testsupport
