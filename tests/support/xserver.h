#pragma once

#include <QProcess>
#include <QTemporaryDir>

namespace testsupport {

/// An X server on a free display; xdotool presses its keyboard. It must exist before the
/// application, which then uses it, and it ends with the test program in any case.
class XServer
{
public:
    XServer();
    ~XServer();

    /// False when it could not be started.
    bool isUp() const { return m_up; }
    /// Runs xdotool, or another program, to its end; false if it fails.
    static bool tool(const QStringList &arguments) { return run("xdotool", arguments); }
    static bool run(const QString &program, const QStringList &arguments);

private:
    class Process : public QProcess
    {
        void setupChildProcess() override;
    };

    QTemporaryDir m_runtime;
    Process m_process;
    bool m_up = false;
};

} // namespace testsupport
