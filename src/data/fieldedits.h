#pragma once

#include <QMap>
#include <memory>

#include "data/editmarks.h"

namespace welmo {

/// What the user changed in a form's controls since its values were shown or saved.
class FieldEdits
{
public:
    using Values = QMap<QString, QVariant>; ///< by key

    /// @p fields must outlive this. Changes of the field whose control is @p skipped do not count.
    explicit FieldEdits(const FieldTable &fields, const QWidget *skipped = nullptr)
        : m_fields(fields)
        , m_skipped(skipped)
        , m_shown(std::make_unique<kelp::ModuleObject>(fields.set().name, nullptr))
    { }

    /// Shows what is edited by the properties of EditMarks; @p save is the button that saves it,
    /// @p page the page of the form.
    void showOn(QObject *page, QWidget *save);
    /// Counts the present values as unchanged: they were shown, saved, or set by the welder.
    void mark();
    Values values() const;
    /// Copies the controller's values @p theirs to @p data, and passes to @p show what the form is
    /// to show: theirs, except in the fields edited here. Returns the keys that both sides changed.
    QStringList take(QObject *owner, kelp::ModuleObject *data, const QVariant &theirs,
                     const std::function<void(const kelp::ModuleObject *)> &show);
    /// Reports the keys that take() returned, by their labels; @p name is the file's.
    void reportOverlap(const QObject *sender, const QString &name, const QStringList &keys,
                       const kelp::ModuleObject *data) const;
    /// Reports that @p field was changed elsewhere to @p value.
    static void reportOverlap(const QObject *sender, const QString &name, const QString &field,
                              const QString &value);

    /// Reports that unsaved changes of the file @p name are lost.
    static void reportLoss(const QObject *sender, const QString &name);

private:
    void collect(kelp::ModuleObject *values) const;

    const FieldTable &m_fields;
    const QWidget *m_skipped;
    std::unique_ptr<kelp::ModuleObject> m_shown;
    bool m_isKnown = false;
    std::unique_ptr<EditMarks> m_marks; ///< null: nobody shows them
};

} // namespace welmo
