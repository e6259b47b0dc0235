#include "pendant/state/reasontext.h"

#include <QCoreApplication>
#include <QVariantMap>

#include "kelp/moduleobject.h"

#include "schema/reasons.h"

namespace welmo::pendant {

using schema::reasonText;

QVariantList itemsOf(const QVariant &list)
{
    return list.userType() == QMetaType::QVariantMap ? list.toMap().values() : list.toList();
}

QString codeText(int code)
{
    if (code < 0)
        return QCoreApplication::translate("Reasons", "the controller was not reached");
    switch (code) {
    case 7:
        return QCoreApplication::translate("Reasons", "not in its present state (7)");
    case 12:
        return QCoreApplication::translate("Reasons", "another pendant holds control (12)");
    case 13:
        return QCoreApplication::translate("Reasons", "the user may not do that (13)");
    default:
        return QCoreApplication::translate("Reasons", "code %1").arg(code);
    }
}

QString answerText(const kelp::ModuleObject &answer)
{
    const QVariantMap map = answer.toVariant().toMap();
    const QString reason = map.value(QStringLiteral("reason")).toString();
    return reason.isEmpty() ? codeText(answer.getInt(0))
                            : reasonText(reason, itemsOf(map.value(QStringLiteral("arguments"))));
}

QString reasonText(const QString &code, const QVariantList &arguments, int line)
{
    const QString text = reasonText(code, arguments);
    return line > 0
        ? QCoreApplication::translate("Reasons", "line %1, %2").arg(QString::number(line), text)
        : text;
}

} // namespace welmo::pendant
