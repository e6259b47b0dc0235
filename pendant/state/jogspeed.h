#pragma once

#include <QObject>

namespace kelp {
class ModuleObject;
}

namespace welmo::pendant {

/// The jog speed in percent of full speed: the host's value, which the handle's keys change as
/// well.
class JogSpeed : public QObject
{
    Q_OBJECT
public:
    explicit JogSpeed(QObject *parent = nullptr);

    int percent() const;
    /// Limits @p percent to 1 and the highest that the host allows.
    void set(int percent);

signals:
    void changed();

private:
    kelp::ModuleObject *m_override; // a fraction of 1
};

} // namespace welmo::pendant
