#include "pendant/input/relaywatch.h"

namespace welmo::pendant {

namespace {

constexpr int lookMs = 50;
constexpr int silenceMs = 400;

} // namespace

RelayWatch::RelayWatch(QObject *parent)
    : QObject(parent)
{
    bool given = false;
    const int pipe = qEnvironmentVariableIntValue(variable, &given);
    if (!given || !m_pipe.open(pipe, QIODevice::ReadOnly | QIODevice::Unbuffered))
        return;
    m_silence.start();
    m_looks.setInterval(lookMs);
    connect(&m_looks, &QTimer::timeout, this, &RelayWatch::look);
    m_looks.start();
}

// Reads the pipe here, not when a byte arrives: a user interface that was busy must not take its
// own delay for a missing byte.
void RelayWatch::look()
{
    char bytes[256];
    if (m_pipe.read(bytes, sizeof bytes) > 0)
        m_silence.restart();
    else if (m_silence.hasExpired(silenceMs))
        emit missing();
}

} // namespace welmo::pendant
