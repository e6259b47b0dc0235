#pragma once

#include <QObject>
#include <QTimer>

namespace welmo {

/// What the handle's keys do for welding: feed and pull back wire, gas, jog speed, weld mode,
/// monitor. Everything is reported through the message log; nothing here opens a dialog.
class HandleKeys : public QObject
{
    Q_OBJECT
public:
    /// The name of the key set at the host.
    static const QString setName;

    explicit HandleKeys(QObject *page);

    /// Hands the key table to the host, once.
    void registerArcButton();

public slots:
    /// One percent more or less of the jog override, within 1 % and the highest jog speed; at the
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
