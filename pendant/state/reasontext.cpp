#include "pendant/state/reasontext.h"

#include <QCoreApplication>
#include <QVariantMap>

#include "schema/reasons.h"

namespace welmo::pendant {

using schema::reasonText;

QVariantList itemsOf(const QVariant &list)
{
    return list.userType() == QMetaType::QVariantMap ? list.toMap().values() : list.toList();
}

QString reasonText(const QString &code, const QVariantList &arguments, int line)
{
    const QString text = reasonText(code, arguments);
    return line > 0
        ? QCoreApplication::translate("Reasons", "line %1, %2").arg(QString::number(line), text)
        : text;
}

} // namespace welmo::pendant
