#include "data/fieldtable.h"

#include <QCoreApplication>
#include <QSignalBlocker>

#include "data/report.h"

namespace welmo {

namespace {

void reportUnknown(const QObject *owner, const kelp::ModuleObject *file, const QString &key)
{
    const QString text = QCoreApplication::translate(
        "FieldTable", "%1: unknown value \"%2\" of \"%3\" is shown as empty and kept");
    report::warning(owner, text.arg(file->name(), file->r(key)->getString(), key));
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
            reportUnknown(m_owner, file, field->key());
        field->shown();
    }
}

} // namespace welmo
