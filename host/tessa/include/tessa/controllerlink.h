#pragma once

#include <QObject>
#include <QString>
#include <QVariant>
#include <QVector>

namespace tessa {

/// One question to the controller, as a plain value.
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

/// The answer: 0 is success, anything else says that nothing was carried out. Codes above zero are
/// the controller's, codes below zero are the link's own.
struct LinkReply
{
    static constexpr int NotConnected = -1; ///< the link is down; nothing was sent
    static constexpr int TimedOut = -2; ///< no answer in time; the link went down with it
    static constexpr int Lost = -3; ///< the link broke before the answer came

    int code = 0;
    QVariant value; ///< a map, a plain value, or nothing: a node or entry that is not there

    bool fromController() const { return code >= 0; }
};

/// The one door from a host to a controller. An implementation does its I/O on a thread of its own.
class ControllerLink : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    /// Carries out one request and waits for the answer, at most @p timeoutMs; never runs an event
    /// loop meanwhile. A call that gets no answer takes the link down. GUI thread.
    virtual LinkReply call(const LinkRequest &request, int timeoutMs) = 0;
    /// Starts to connect and keeps trying until close(); returns at once.
    virtual void open() = 0;
    /// Takes the link down and leaves it down.
    virtual void close() = 0;
    virtual bool isUp() const = 0;
    /// Proves to the controller that the pendant is alive. @p presses are those that hold a key
    /// now, oldest first; each press has a number of its own. Given by the GUI thread every 25 ms
    /// while connected, and when a key goes down, before its command; returns at once, and is lost
    /// while the link is down. What a key moves stops at most 100 ms after the last beat, and when
    /// a beat lacks its press. A link to what moves nothing by keys may do without.
    virtual void beat(const QVector<int> &presses) { Q_UNUSED(presses) }

signals:
    /// The session with the controller was set up, or is gone. Delivered on the GUI thread, never
    /// from inside call().
    void upChanged(bool up);
    /// A watched node changed; @p values holds the keys that the controller told.
    void notified(const QString &path, const QVariant &values);
    /// One line for the operator, such as why the controller cannot be reached.
    void problem(const QString &line);
};

} // namespace tessa
