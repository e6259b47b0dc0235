#pragma once

#include <QDateTime>
#include <QObject>
#include <QVariantList>
#include <QVector>

namespace tessa {
class ManagerHelper;
}
class XService;

namespace welmo::pendant {

/// One alarm of the controller, as the operator reads it.
struct Alarm
{
    int id = 0;
    QString code;
    QVariantList arguments;
    QDateTime time; ///< in local time
    QString program;
    int line = 0; ///< from 1; 0 for none
    QString file;
    bool open = false;

    /// What happened and where, without the time.
    QString text() const;
};

/// The controller's alarms, kept up to date; each new one goes to the message log as well. While
/// the link is down, the last known ones.
class AlarmList : public QObject
{
    Q_OBJECT
public:
    AlarmList(XService *service, tessa::ManagerHelper *helper, QObject *parent = nullptr);

    /// Oldest first.
    const QVector<Alarm> &all() const { return m_all; }
    /// Those that were not acknowledged yet.
    QVector<Alarm> open() const;
    void acknowledgeAll();

signals:
    void changed();

private:
    void reload();
    void take(const QVariantList &entries);
    void log(const Alarm &alarm);

    XService *m_service;
    tessa::ManagerHelper *m_helper;
    QVector<Alarm> m_all;
    int m_logged = -1; // number of the newest one in the log; -1 before the first reading
};

} // namespace welmo::pendant
