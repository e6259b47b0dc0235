#pragma once

#include <QPointer>
#include <QSet>
#include <QWidget>
#include <functional>

#include "data/fieldtable.h"

namespace welmo {

/// Names the property that says of a control, and of the button that saves it, that there is a
/// change which was not saved. A host may draw it.
extern const char *const editedProperty;
/// Counts, on a page, its forms with such changes.
extern const char *const editedFormsProperty;

/// Keeps these properties of one form. @p edited answers which keys are changed; it is asked when
/// the user moves a control of @p fields, which must outlive this.
class EditMarks : public QObject
{
    Q_OBJECT
public:
    EditMarks(QObject *page, const FieldTable &fields, QWidget *save,
              std::function<QSet<QString>()> edited);

public slots:
    void refresh();

private:
    void mark(QWidget *widget, bool edited);

    QPointer<QObject> m_page;
    const FieldTable &m_fields;
    QPointer<QWidget> m_save;
    std::function<QSet<QString>()> m_edited;
    bool m_isEdited = false;
};

} // namespace welmo
