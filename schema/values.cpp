#include "schema/values.h"

namespace welmo::schema {

QVariant childAt(const QVariant &map, const QString &path)
{
    QVariant value = map;
    for (const QString &part : path.split(QLatin1Char('.')))
        value = value.toMap().value(part);
    return value;
}

} // namespace welmo::schema
