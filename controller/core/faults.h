#pragma once

#include <QHash>
#include <QMutex>
#include <QObject>
#include <QSet>

namespace welmo::controller {

/// What can go wrong, by name, and switched on and off at will: from a page of the pendant, from a
/// test, from a service. Any thread may call.
class Faults : public QObject
{
    Q_OBJECT
public:
    enum class Fault {
        LinkDown, ///< the controller cannot be reached
        WelderError, ///< the welder reports an error
        WireStuck, ///< the wire does not move
        WireSticks, ///< at the end of a weld the wire freezes in the pool
        NoGas, ///< there is no gas pressure
        NoArc, ///< an arc cannot be struck
        ArcBreaks, ///< a burning arc goes out
        DiskFull ///< the store refuses writes
    };
    Q_ENUM(Fault)

    static constexpr int untilCleared = -1;

    using QObject::QObject;

    void set(Fault fault, bool on);
    bool isOn(Fault fault) const;

    /// The next @p times requests for the node or command @p path are answered with @p code and
    /// not carried out. A code of 0 ends it.
    void setCode(const QString &path, int code, int times = untilCleared);
    /// The code that the request for @p path is to be answered with, or 0; counts it as used.
    int takeCode(const QString &path);

    /// Every answer comes this many milliseconds late; the request is carried out at once.
    void setDelay(int milliseconds);
    int delay() const;

    /// The next @p count requests are carried out, and their answers get lost.
    void loseAnswers(int count);
    /// True when the present answer is to get lost; counts it as used.
    bool takeLoss();

    /// Everything works again.
    void clear();

signals:
    /// Something was switched; comes from the thread that switched it.
    void changed();

private:
    struct Forced
    {
        int code;
        int left;
    };

    mutable QMutex m_mutex;
    QSet<int> m_on;
    QHash<QString, Forced> m_codes;
    int m_delay = 0;
    int m_losses = 0;
};

} // namespace welmo::controller
