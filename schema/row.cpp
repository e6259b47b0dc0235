#include "schema/row.h"

#include <QCoreApplication>

namespace welmo::schema {

const char *const noSignalSource = QT_TRANSLATE_NOOP("Inputs", "No signal");

Row::Row(Set &set, const char *rowKey, Stored type, const QVariant &defaultValue, Range limits,
         Unit rowUnit)
    : key(rowKey)
    , stored(type)
    , range(limits)
    , unit(rowUnit)
    , m_default(defaultValue)
{
    set.m_rows.push_back(this);
}

QVariant InputRow::defaultValue() const
{
    return QCoreApplication::translate("Inputs", noSignalSource);
}

} // namespace welmo::schema
