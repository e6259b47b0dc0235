#include "schema/row.h"

#include <QCoreApplication>

namespace welmo::schema {

const char *const noSignalSource = QT_TRANSLATE_NOOP("Inputs", "No signal");

Row::Row(Set &set, const char *key, Stored stored, const QVariant &defaultValue, Range range,
         Unit unit)
    : key(key)
    , stored(stored)
    , range(range)
    , unit(unit)
    , m_default(defaultValue)
{
    set.m_rows.push_back(this);
}

QVariant InputRow::defaultValue() const
{
    return QCoreApplication::translate("Inputs", noSignalSource);
}

} // namespace welmo::schema
