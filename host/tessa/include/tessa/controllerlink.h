#pragma once

#include <QObject>
#include <QString>
#include <QVariant>
#include <QVector>

namespace tessa {

/// One request to the controller, as a plain value.
struct LinkRequest
{
    enum class Kind {
        Get, ///< read the node @c path, or its entry @c key
        Set, ///< write @c payload to the node @c path, or to its entry @c key
        Watch, ///< subscribe to the node @c path; the answer carries its present value
        Command ///< run the command @c path; @c key is the name of the payload object
    };

    Kind kind = Kind::Get;
    QString path;
    QString key;
    QVariant payload;
};

/// The answer. 0 is success; any other code means that nothing was carried out. Codes above zero
/// are the controller's, codes below zero the link's.
struct LinkReply
{
    static constexpr int NotConnected = -1; ///< the link is down; nothing was sent
    static constexpr int TimedOut = -2; ///< no answer in time; the link went down as well
    static constexpr int Lost = -3; ///< the link broke before the answer came

    int code = 0;
    QVariant value; ///< a map, a plain value, or nothing if there is no such node or entry

    bool fromController() const { return code >= 0; }
};

/// The one connection between host and controller. Implementations do their I/O on a thread of
/// their own.
class ControllerLink : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    /// Sends one request and waits for the answer, at most @p timeoutMs, without running an event
    /// loop. A call without an answer takes the link down. GUI thread.
    virtual LinkReply call(const LinkRequest &request, int timeoutMs) = 0;
    /// Starts to connect and keeps trying until close(); returns at once.
    virtual void open() = 0;
    /// Takes the link down until open().
    virtual void close() = 0;
    virtual bool isUp() const = 0;
    /// Proves to the controller that the pendant is alive. @p presses are the numbers of the
    /// presses whose keys are held, oldest first. Called by the GUI thread while connected: every
    /// 25 ms while a key is held, else less often, and before the command of each press; returns at
    /// once, and does nothing while the link is down. What a key moves stops at most 100 ms after
    /// the last beat, or when a beat lacks its press. Links that move nothing by keys need not
    /// implement it.
    virtual void beat(const QVector<int> &presses) { Q_UNUSED(presses) }

signals:
    /// The session with the controller was set up, or has ended. Emitted on the GUI thread, never
    /// from inside call().
    void upChanged(bool up);
    /// A watched node changed; @p values holds the keys that the controller sent.
    void notified(const QString &path, const QVariant &values);
    /// One line for the operator, such as why the controller cannot be reached.
    void problem(const QString &line);
};

} // namespace tessa
