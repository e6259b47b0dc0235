#include "data/fieldtable.h"

#include <QCoreApplication>
#include <QSignalBlocker>

#include "data/report.h"

namespace welmo {

namespace {

void reportUnknown(const QObject *owner, const QString &set, const QString &value,
                   const QString &key)
{
    const QString text = QCoreApplication::translate(
        "FieldTable", "%1: the value \"%2\" of \"%3\" is not offered here and is kept");
    report::warning(owner, text.arg(set, value, key));
}

} // namespace

void FieldTable::writeDefaults(kelp::ModuleObject *file) const
{
    for (const auto &field : m_rows)
        field->writeDefault(m_owner, file);
}

void FieldTable::prepare()
{
    for (const auto &field : m_rows)
        field->prepare();
}

void FieldTable::store(kelp::ModuleObject *file) const
{
    for (const auto &field : m_rows)
        field->store(m_owner, file);
}

void FieldTable::show(const kelp::ModuleObject *file)
{
    for (const auto &field : m_rows) {
        const QSignalBlocker blocker(field->editor());
        if (!field->show(file))
            reportUnknown(m_owner, m_set.isEmpty() ? file->name() : m_set,
                          file->r(field->key())->getString(QString()), field->key());
        field->shown();
    }
}

} // namespace welmo
