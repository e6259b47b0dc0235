#pragma once

#include <QHash>
#include <QMutex>
#include <QObject>
#include <QSet>

namespace welmo::controller {

/// The faults that can be simulated, by name. A page of the pendant, a test or a service switches
/// them, from any thread.
class Faults : public QObject
{
    Q_OBJECT
public:
    enum class Fault {
        LinkDown, ///< the link is down
        WelderError, ///< the welder reports an error
        WireStuck, ///< the wire does not move
        WireSticks, ///< at the end of a weld the wire freezes in the pool
        NoGas, ///< there is no gas pressure
        NoArc, ///< the arc cannot be struck
        ArcBreaks, ///< a burning arc goes out
        DiskFull ///< the store refuses writes
    };
    Q_ENUM(Fault)

    static constexpr int untilCleared = -1;

    using QObject::QObject;

    void set(Fault fault, bool on);
    bool isOn(Fault fault) const;

    /// The next @p times requests for the node or command @p path are not carried out but answered
    /// with @p code; 0 ends it.
    void setCode(const QString &path, int code, int times = untilCleared);
    /// The code to answer a request for @p path with, or 0; counts as one use of it.
    int takeCode(const QString &path);

    /// Delays every answer by this many milliseconds; the request is carried out at once.
    void setDelay(int milliseconds);
    int delay() const;

    /// The next @p count requests are carried out, but not answered.
    void loseAnswers(int count);
    /// True if the present answer is to be lost; counts as one of them.
    bool takeLoss();

    /// Ends all faults.
    void clear();

signals:
    /// A fault was switched; emitted in the thread that switched it.
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
