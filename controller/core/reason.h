#pragma once

#include <QVariant>

#include "controller/core/request.h"

namespace welmo::controller {

/// Why something did not go as it should: a code with what belongs to it, so that each pendant can
/// say it in its operator's language.
struct Reason
{
    QString code;
    QVariantList arguments = {};

    bool isEmpty() const { return code.isEmpty(); }
};

/// A refusal that carries its reason to the pendant; @p text is for logs, in English.
inline Reply refusedFor(int code, const Reason &reason, const QString &text)
{
    Reply reply = Reply::refused(code, text);
    reply.value = QVariantMap{{QStringLiteral("reason"), reason.code},
                              {QStringLiteral("arguments"), reason.arguments}};
    return reply;
}

/// The reason of a refusal; for one that names none, what its code and text say.
inline Reason reasonOf(const Reply &reply)
{
    const QVariantMap map = reply.value.toMap();
    if (map.contains(QStringLiteral("reason")))
        return {map.value(QStringLiteral("reason")).toString(),
                map.value(QStringLiteral("arguments")).toList()};
    switch (reply.code) {
    case WireStuck:
        return {QStringLiteral("wire_stuck")};
    case NoGas:
        return {QStringLiteral("no_gas")};
    case StorageFailed:
        return {QStringLiteral("storage_failed"), {reply.text}};
    default:
        return {QStringLiteral("refused"), {reply.text}};
    }
}

} // namespace welmo::controller
