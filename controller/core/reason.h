#pragma once

#include <QVariant>

#include "controller/core/request.h"

namespace welmo::controller {

/// Why something failed: a code and its arguments, so that each pendant can show it in its
/// operator's language.
struct Reason
{
    QString code;
    QVariantList arguments = {};

    bool isEmpty() const { return code.isEmpty(); }
};

/// A refusal that carries its reason to the pendant; @p text is English, for logs.
inline Reply refusedFor(int code, const Reason &reason, const QString &text)
{
    Reply reply = Reply::refused(code, text);
    reply.value = QVariantMap{{QStringLiteral("reason"), reason.code},
                              {QStringLiteral("arguments"), reason.arguments}};
    return reply;
}

/// A refusal's reason; without one, a reason made from its code and text.
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
