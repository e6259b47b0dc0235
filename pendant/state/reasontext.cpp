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

QString answerText(const kelp::ModuleObject &answer)
{
    const QVariantMap map = answer.toVariant().toMap();
    const QString reason = map.value(QStringLiteral("reason")).toString();
    return reason.isEmpty() ? schema::codeText(answer.getInt(0))
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
