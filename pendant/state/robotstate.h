#pragma once

#include <QObject>
#include <QVariantMap>
#include <array>

namespace tessa {
class Host;
}

namespace welmo::pendant {

/// The robot as its controller tells it: what moves it, where it is, and how the last move by hand
/// ended, which goes to the message log as well.
class RobotState : public QObject
{
    Q_OBJECT
public:
    explicit RobotState(tessa::Host *host, QObject *parent = nullptr);

    /// "still", "moves", "jogs" or "program"; empty while nobody knows.
    QString word() const;
    /// What it does, in words for the operator.
    QString text() const;
    /// A part of the node "motion.state", such as "pose.x"; 0 while nobody knows.
    double value(const char *path) const;
    /// Degrees, from the base to the flange.
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
    int m_logged = -1; // ends, before the first look none
    bool m_moved = false; // that it moves was told
};

} // namespace welmo::pendant
