#pragma once

#include <QElapsedTimer>
#include <QFile>
#include <QObject>
#include <QTimer>

namespace welmo::pendant {

/// Whether somebody looks after the viewers of a pendant that is shown elsewhere. The program that
/// carries a viewer's hand to the pendant writes a byte into a pipe every 100 ms; when it hangs,
/// the release of what is held hangs with it. Silent when there is no such pipe.
class ViewerProofs : public QObject
{
    Q_OBJECT
public:
    /// The number of the pipe, as the environment tells it.
    static constexpr const char *variable = "WELMO_VIEWER_PROOFS";

    explicit ViewerProofs(QObject *parent = nullptr);

signals:
    /// Nobody does; told again and again while that lasts.
    void missing();

private:
    void look();

    QFile m_pipe;
    QElapsedTimer m_silence;
    QTimer m_looks;
};

} // namespace welmo::pendant
