#pragma once

#include <QObject>
#include <QVariantMap>
#include <array>

namespace tessa {
class Host;
}

namespace welmo::pendant {

/// The robot's state from its controller: what moves it, where it is, and how the last move by hand
/// ended, which is reported in the message log as well.
class RobotState : public QObject
{
    Q_OBJECT
public:
    explicit RobotState(tessa::Host *host, QObject *parent = nullptr);

    /// "still", "moves", "jogs" or "program"; empty while it is unknown.
    QString word() const;
    /// What it does, in words for the operator.
    QString text() const;
    /// A part of the node "motion.state", such as "pose.x"; 0 while it is unknown.
    double value(const char *path) const;
    /// In degrees, from the base to the flange.
    std::array<double, 6> joints() const;
    bool isKnown() const { return !m_values.isEmpty(); }

signals:
    void changed();

private:
    void reload();
    void take(const QVariantMap &values);
    void log();

    tessa::Host *m_host;
    QVariantMap m_values;
    int m_logged = -1; // the number of ends that were reported; -1 before the first reading
    bool m_moved = false; // the start of the move was reported
};

} // namespace welmo::pendant
