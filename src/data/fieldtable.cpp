#include "data/fieldtable.h"

#include <QCoreApplication>
#include <QSignalBlocker>

#include "data/report.h"

namespace welmo {

namespace {

void writeDefault(QObject *sender, kelp::ModuleObject *file, const char *key, const QVariant &value)
{
    const QString path = QString::fromLatin1(key);
    if (value.userType() == QMetaType::QVariantList)
        file->setList(sender, path, value.toList(), true);
    else
        file->set(sender, path, value, true);
}

} // namespace

void FieldTable::reportUnknown(const kelp::ModuleObject *file, const Field &field) const
{
    const QString text = QCoreApplication::translate(
        "FieldTable", "%1: the value \"%2\" of \"%3\" is not offered here and is kept");
    const bool isFile = dynamic_cast<const schema::FileSet *>(&m_set);
    const QString value = file->r(field.key())->getString(QString());
    report::warning(m_owner, text.arg(isFile ? file->name() : m_set.name, value, field.key()));
}

void FieldTable::writeDefaults(kelp::ModuleObject *file) const
{
    for (const schema::Row *row : m_set.rows()) {
        writeDefault(m_owner, file, row->key, row->defaultValue());
        if (row->twinKey())
            writeDefault(m_owner, file, row->twinKey(), row->defaultValue());
    }
}

void FieldTable::prepare()
{
    for (const auto &field : m_fields)
        field->prepare();
}

void FieldTable::store(kelp::ModuleObject *file) const
{
    for (const auto &field : m_fields)
        field->store(m_owner, file);
}

void FieldTable::show(const kelp::ModuleObject *file)
{
    for (const auto &field : m_fields) {
        const QSignalBlocker blocker(field->editor());
        if (!field->show(file))
            reportUnknown(file, *field);
        field->shown();
    }
}

} // namespace welmo
