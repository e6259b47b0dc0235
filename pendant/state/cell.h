#pragma once

#include <QDateTime>
#include <QObject>
#include <QVariantMap>

namespace tessa {
class Host;
}

namespace welmo::pendant {

/// The cell's state from its controller: what it does, its switches, and the weld mode. The host's
/// status follows it.
class Cell : public QObject
{
    Q_OBJECT
public:
    enum class State { Unknown, Idle, Running, Paused, Welding, Fault };

    explicit Cell(tessa::Host *host, QObject *parent = nullptr);

    State state() const { return m_state; }
    /// "unknown", "idle", "running", "paused", "welding" or "fault", for style rules.
    QString word() const;
    /// The state in words for the operator.
    QString text() const;
    /// "test_run", "simu" or "real"; empty while it is unknown.
    const QString &mode() const { return m_mode; }
    QString modeText() const;
    QString gasText() const;
    QString wireText() const;
    /// The node "cell.state" as last read.
    const QVariantMap &switches() const { return m_switches; }
    /// When the link was lost while a program ran; invalid otherwise.
    const QDateTime &lostAt() const { return m_lostAt; }
    /// Switches "power", "automatic" or "fault" at the cell.
    void turn(const QString &what, bool on);

signals:
    void changed();

private:
    void reload();
    void take(const QVariantMap &map);
    void takeMode(const QString &mode);
    void onConnectedChanged(bool connected);

    tessa::Host *m_host;
    State m_state = State::Unknown;
    QVariantMap m_switches;
    QString m_mode;
    QDateTime m_lostAt;
};

} // namespace welmo::pendant
