#pragma once

#include <QObject>
#include <QTimer>

namespace welmo {

/// What the handle's keys do for welding: feed and retract wire, gas, jog speed, weld mode,
/// monitor. Everything is reported in the message log; no dialog opens.
class HandleKeys : public QObject
{
    Q_OBJECT
public:
    /// The key set's name at the host.
    static const QString setName;

    explicit HandleKeys(QObject *page);

    /// Registers the key table with the host, once.
    void registerArcButton();

public slots:
    /// Raises or lowers the jog override by 1 %, between 1 % and the highest jog speed; at the
    /// limit the key's timer stops.
    void onJogVAddTimeOut();
    void onJogVMinusTimeOut();

private:
    struct WireMove;

    bool checkWelderState() const;
    void moveWire(const WireMove &move, bool down);
    void supplyGas(bool down);
    void jog(QTimer &timer, void (HandleKeys::*step)(), bool down);
    void switchMode(bool down);
    void toggleMonitor(bool down);

    QObject *m_page;
    QTimer m_jogUp;
    QTimer m_jogDown;
};

} // namespace welmo
