#include "data/fieldtable.h"

#include <QCoreApplication>
#include <QSignalBlocker>

#include "adapter/hostadapter.h"
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

QString FieldTable::nameOf(const kelp::ModuleObject *file) const
{
    return dynamic_cast<const schema::FileSet *>(&m_set) ? file->name() : m_set.name;
}

void FieldTable::tellOnce(QHash<const Field *, QString> &told, const Field &field,
                          const QString &text)
{
    if (told.value(&field) == text)
        return;
    told.insert(&field, text);
    report::warning(m_owner, text);
}

void FieldTable::reportUnknown(const kelp::ModuleObject *file, const Field &field)
{
    const bool isReplaced = dynamic_cast<const NameField *>(&field);
    const QString text = isReplaced
        ? QCoreApplication::translate("FieldTable",
                                      "%1: the value \"%2\" of \"%3\" is not offered here; a save "
                                      "stores what is shown")
        : QCoreApplication::translate(
            "FieldTable", "%1: the value \"%2\" of \"%3\" is not offered here and is kept");
    const QString value = file->r(field.key())->getString(QString());
    tellOnce(m_unknown, field, text.arg(nameOf(file), value, field.label()));
}

void FieldTable::reportCuts(const kelp::ModuleObject *file)
{
    const QString text =
        QCoreApplication::translate("FieldTable", "%1: of \"%2\", %3 is stored and %4 is shown");
    for (const auto &field : m_fields) {
        const QVariantList cut = field->cut(file);
        // A default that its box cannot show is not reported: the user did not choose it.
        if (cut.isEmpty() || cut[0] == field->row().defaultValue())
            m_cuts.remove(field.get());
        else
            tellOnce(m_cuts, *field,
                     text.arg(nameOf(file), field->label(), cut[0].toString(), cut[1].toString()));
    }
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
    applyRanges();
}

void FieldTable::applyRanges()
{
    for (const auto &field : m_fields)
        field->applyRange();
}

void FieldTable::store(kelp::ModuleObject *file) const
{
    for (const auto &field : m_fields) {
        field->store(m_owner, file);
        if (host::isMissing(file->r(field->key()))) // nothing was stored, and nothing is chosen
            writeDefault(m_owner, file, field->row().key, field->row().defaultValue());
    }
}

void FieldTable::show(const kelp::ModuleObject *file)
{
    for (const auto &field : m_fields)
        show(*field, file);
}

void FieldTable::showNews(const kelp::ModuleObject *file)
{
    for (const auto &field : m_fields) {
        if (!field->isBeingTyped())
            show(*field, file);
    }
}

void FieldTable::show(Field &field, const kelp::ModuleObject *file)
{
    const QSignalBlocker blocker(field.editor());
    if (field.show(file))
        m_unknown.remove(&field);
    else
        reportUnknown(file, field);
    field.shown();
}

} // namespace welmo
