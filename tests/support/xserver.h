#pragma once

#include <QProcess>
#include <QTemporaryDir>

namespace testsupport {

/// An X server of its own on a free display, with a keyboard that xdotool presses. To be made
/// before the application, which then shows itself there. It ends with the test, however that ends.
class XServer
{
public:
    XServer();
    ~XServer();

    /// False when it could not be started.
    bool isUp() const { return m_up; }
    /// Lets xdotool do that, and waits until it is through; false when it fails.
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
