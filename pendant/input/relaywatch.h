#pragma once

#include <QElapsedTimer>
#include <QFile>
#include <QObject>
#include <QTimer>

namespace welmo::pendant {

/// Checks that the program that shows the pendant to viewers elsewhere is alive: it writes a byte
/// into a pipe every 100 ms. If it hangs, the release of a held key is not passed on either. Does
/// nothing without such a pipe.
class RelayWatch : public QObject
{
    Q_OBJECT
public:
    /// The environment variable with the pipe's number.
    static constexpr const char *variable = "WELMO_VIEWER_PROOFS";

    explicit RelayWatch(QObject *parent = nullptr);

signals:
    /// No byte came; emitted repeatedly while that lasts.
    void missing();

private:
    void look();

    QFile m_pipe;
    QElapsedTimer m_silence;
    QTimer m_looks;
};

} // namespace welmo::pendant
