#include "data/fieldedits.h"

#include <QCoreApplication>

#include "adapter/hostadapter.h"
#include "data/report.h"

namespace welmo {

void FieldEdits::collect(kelp::ModuleObject *values) const
{
    for (const auto &field : m_fields.fields()) {
        if (field->editor() != m_skipped)
            field->store(nullptr, values);
    }
}

void FieldEdits::showOn(QObject *page, QWidget *save)
{
    m_marks = std::make_unique<EditMarks>(page, m_fields, save, [this] {
        const QList<QString> keys = values().keys();
        return QSet<QString>(keys.begin(), keys.end());
    });
}

void FieldEdits::mark()
{
    auto now = std::make_unique<kelp::ModuleObject>(m_shown->name(), nullptr);
    collect(now.get());
    m_shown = std::move(now);
    m_isKnown = true;
    if (m_marks)
        m_marks->show({});
}

FieldEdits::Values FieldEdits::values() const
{
    if (!m_isKnown)
        return {};
    Values edits;
    kelp::ModuleObject now(m_shown->name(), nullptr);
    collect(&now);
    for (const auto &field : m_fields.fields()) {
        const kelp::ModuleObject *node = now.r(field->key()); // a missing node: nothing is chosen
        if (!host::isMissing(node)
            && host::toVariant(node) != host::toVariant(m_shown->r(field->key())))
            edits.insert(field->key(), host::toVariant(node));
    }
    return edits;
}

QStringList FieldEdits::take(QObject *owner, kelp::ModuleObject *data, const QVariant &theirs,
                             const std::function<void(const kelp::ModuleObject *)> &show)
{
    const Values edited = values();
    Values before;
    QStringList overlap;
    kelp::ModuleObject answer(data->name(), nullptr);
    answer.importFromVariant(nullptr, theirs, true, true, false);
    data->copyFrom(owner, &answer, true, true);
    kelp::ModuleObject merged(data->name(), nullptr);
    merged.copyFrom(nullptr, data, true, true);
    for (auto edit = edited.begin(); edit != edited.end(); ++edit) {
        const QVariant present = host::toVariant(data->r(edit.key()));
        const bool isChanged = present != host::toVariant(m_shown->r(edit.key()));
        if (isChanged && present != edit.value())
            overlap.append(edit.key());
        before.insert(edit.key(), present);
        merged.set(nullptr, edit.key(), edit.value(), true);
    }
    show(&merged);
    mark();
    for (auto value = before.begin(); value != before.end(); ++value)
        m_shown->set(nullptr, value.key(), value.value(), true); // remains an edit
    if (m_marks)
        m_marks->refresh();
    return overlap;
}

void FieldEdits::reportOverlap(const QObject *sender, const QString &name, const QStringList &keys,
                               const kelp::ModuleObject *data) const
{
    for (const auto &field : m_fields.fields()) {
        if (keys.contains(field->key()))
            reportOverlap(sender, name, field->label(),
                          data->r(field->key())->getString(QString()));
    }
}

void FieldEdits::reportOverlap(const QObject *sender, const QString &name, const QString &field,
                               const QString &value)
{
    const QString text = QCoreApplication::translate(
        "FileForm",
        "%1: \"%2\" was changed elsewhere to %3 and is being edited here; another save replaces "
        "it");
    report::warning(sender, text.arg(name, field, value));
}

void FieldEdits::reportLoss(const QObject *sender, const QString &name)
{
    report::warning(
        sender, QCoreApplication::translate("FileForm", "%1: changes were not saved").arg(name));
}

} // namespace welmo
