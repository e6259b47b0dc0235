#pragma once

#include <QString>
#include <QVariant>
#include <optional>

namespace welmo::controller {

/// Who is behind a request. Of a pendant in the same process, which nobody signs in to, the user is
/// the level that it is set to.
struct Author
{
    QString user = {};
    QString client = {}; ///< the user's pendant
    QString time = {}; ///< of day, as people read it
};

/// One question to the controller, as a plain value.
struct Request
{
    enum class Kind {
        Get, ///< read the node @c path, or its entry @c key
        Set, ///< write @c payload to the node @c path, or to its entry @c key
        Watch, ///< as Get; who carries the request remembers the subscription
        Command ///< run the command @c path; @c key is the name of the payload object
    };

    Kind kind = Kind::Get;
    QString path = {};
    QString key = {};
    QVariant payload = {};
    /// The revision of what a write is to replace; without one, whatever is there.
    std::optional<qint64> revision = std::nullopt;
    Author author = {};
};

/// Result codes. Everything but Ok says that nothing was carried out.
enum Code {
    Ok = 0,
    UnknownNode = 1, ///< there is no node of that path
    UnknownKey = 2, ///< the node has no entry of that name, and never will
    UnknownCommand = 3, ///< there is no command of that name
    BadPayload = 4, ///< a wrong type, a missing child, or a value that contradicts another
    OutOfRange = 5, ///< a number outside what is physically meaningful
    ReadOnly = 6, ///< the node changes by commands or by itself, not by writing
    WrongState = 7, ///< not while the machine is in this state
    StorageFailed = 8, ///< the store could not be read or written
    WireStuck = 9, ///< the wire does not move
    NoGas = 10, ///< there is no gas pressure
    Conflict = 11, ///< somebody else has written it since it was read; the value says who and when
    NotInControl = 12, ///< another pendant holds control
    NotAllowed = 13, ///< the user's role does not reach so far
    TooMuch = 14 ///< larger, or more, than is taken: nothing of it was
};

/// The answer. With Ok an invalid @c value means: there is no such entry. A read that failed has
/// another code, so the two are never mistaken for each other.
struct Reply
{
    int code = Ok;
    QVariant value;
    QString text = {}; ///< the reason of a refusal, in English, for logs
    /// Of the entry that was read or written; of nodes without entries there is none.
    std::optional<qint64> revision = std::nullopt;

    bool ok() const { return code == Ok; }

    static Reply with(const QVariant &value) { return {Ok, value, {}}; }
    static Reply refused(int code, const QString &text) { return {code, {}, text}; }
};

} // namespace welmo::controller
