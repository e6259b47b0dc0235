#pragma once

#include <QString>
#include <QVariant>
#include <optional>

namespace welmo::controller {

/// Who sent a request. A pendant in the same process needs no sign-in: its user is the access level
/// that it is set to.
struct Author
{
    QString user = {};
    QString client = {}; ///< identifies the user's pendant
    QString time = {}; ///< date and time, as text for people
    bool isBound = false; ///< may change released files only as far as operators may
};

/// One request to the controller, as a plain value.
struct Request
{
    enum class Kind {
        Get, ///< read the node @c path, or its entry @c key
        Set, ///< write @c payload to the node @c path, or to its entry @c key
        Watch, ///< as Get; the link keeps the subscription
        Command ///< run the command @c path; @c key is the name of the payload object
    };

    Kind kind = Kind::Get;
    QString path = {};
    QString key = {};
    QVariant payload = {};
    /// The revision that a write is to replace; without one it replaces any.
    std::optional<qint64> revision = std::nullopt;
    Author author = {};
};

/// Result codes. Every code but Ok means that nothing was carried out.
enum Code {
    Ok = 0,
    UnknownNode = 1, ///< there is no node of that path
    UnknownKey = 2, ///< the node cannot have an entry of that name
    UnknownCommand = 3, ///< there is no command of that name
    BadPayload = 4, ///< a wrong type, a missing child, or a value that contradicts another
    OutOfRange = 5, ///< a number that is physically meaningless
    ReadOnly = 6, ///< the node changes by commands or by itself, not by writes
    WrongState = 7, ///< not possible in the machine's present state
    StorageFailed = 8, ///< the store could not be read or written
    WireStuck = 9, ///< the wire does not move
    NoGas = 10, ///< there is no gas pressure
    Conflict = 11, ///< written by somebody else since it was read; the value says who and when
    NotInControl = 12, ///< another pendant holds control
    NotAllowed = 13, ///< the user's role does not allow it
    TooMuch = 14 ///< larger, or more, than is accepted
};

/// The answer. With Ok an invalid @c value means that there is no such entry. A failed read has
/// another code, so that the two cannot be confused.
struct Reply
{
    int code = Ok;
    QVariant value;
    QString text = {}; ///< why a request was refused, in English, for logs
    /// The revision of the entry that was read or written; nodes without entries have none.
    std::optional<qint64> revision = std::nullopt;

    bool ok() const { return code == Ok; }

    static Reply with(const QVariant &value) { return {Ok, value, {}}; }
    static Reply refused(int code, const QString &text) { return {code, {}, text}; }
};

} // namespace welmo::controller
