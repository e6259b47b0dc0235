#include "data/editmarks.h"

#include <QMetaProperty>

namespace welmo {

const char *const editedProperty = "edited";
const char *const editedFormsProperty = "editedForms";

EditMarks::EditMarks(QObject *page, const FieldTable &fields, QWidget *save,
                     std::function<QSet<QString>()> edited)
    : m_page(page)
    , m_fields(fields)
    , m_save(save)
    , m_edited(std::move(edited))
{
    const QMetaMethod slot = staticMetaObject.method(staticMetaObject.indexOfSlot("refresh()"));
    for (const auto &field : fields.fields()) {
        for (QWidget *editor : field->editors())
            connect(editor, editor->metaObject()->userProperty().notifySignal(), this, slot);
    }
}

void EditMarks::refresh()
{
    show(m_edited());
}

void EditMarks::show(const QSet<QString> &keys)
{
    const bool wasEdited = !m_shown.isEmpty();
    const bool isEdited = !keys.isEmpty();
    if (keys == m_shown)
        return;
    m_shown = keys;
    for (const auto &field : m_fields.fields()) {
        for (QWidget *editor : field->editors())
            mark(editor, keys.contains(field->key()));
    }
    if (m_save)
        mark(m_save, isEdited);
    if (m_page && isEdited != wasEdited)
        m_page->setProperty(editedFormsProperty,
                            m_page->property(editedFormsProperty).toInt() + (isEdited ? 1 : -1));
}

void EditMarks::mark(QWidget *widget, bool edited)
{
    if (widget->property(editedProperty).toBool() != edited)
        widget->setProperty(editedProperty, edited);
}

} // namespace welmo
