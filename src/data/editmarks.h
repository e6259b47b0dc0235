#pragma once

#include <QPointer>
#include <QSet>
#include <QWidget>
#include <functional>

#include "data/fieldtable.h"

namespace welmo {

/// The property of a control, and of the button that saves it, that is true while there is an
/// unsaved change. A host may draw it.
extern const char *const editedProperty;
/// The property of a page with the number of its forms that have unsaved changes.
extern const char *const editedFormsProperty;

/// Keeps these properties up to date for one form. @p edited returns the changed keys; it is called
/// when the user changes a control of @p fields, which must outlive this.
class EditMarks : public QObject
{
    Q_OBJECT
public:
    EditMarks(QObject *page, const FieldTable &fields, QWidget *save,
              std::function<QSet<QString>()> edited);

    /// Marks these keys and no others.
    void show(const QSet<QString> &keys);

public slots:
    void refresh();

private:
    void mark(QWidget *widget, bool edited);

    QPointer<QObject> m_page;
    const FieldTable &m_fields;
    QPointer<QWidget> m_save;
    std::function<QSet<QString>()> m_edited;
    QSet<QString> m_shown;
};

} // namespace welmo
