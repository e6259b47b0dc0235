#pragma once

#include <QMap>
#include <memory>

#include "data/editmarks.h"

namespace welmo {

/// What somebody changed in the controls of a form since its values were shown or saved.
class FieldEdits
{
public:
    using Values = QMap<QString, QVariant>; ///< by key

    /// @p fields must outlive this; @p skipped, the control of one of them, is no matter of edits.
    explicit FieldEdits(const FieldTable &fields, const QWidget *skipped = nullptr)
        : m_fields(fields)
        , m_skipped(skipped)
        , m_shown(fields.set().name, nullptr)
    { }

    /// From now on the properties of EditMarks say what is edited; @p save is the button that saves
    /// it, @p page where the form stands.
    void showOn(QObject *page, QWidget *save);
    /// What the controls hold counts as unchanged: it was shown, saved, or set by the welder.
    void mark();
    Values values() const;
    /// Takes @p theirs, what the controller has now, over into @p data, and hands @p show what the
    /// form is to show: theirs, with what is edited here. The keys of what both changed.
    QStringList take(QObject *owner, kelp::ModuleObject *data, const QVariant &theirs,
                     const std::function<void(const kelp::ModuleObject *)> &show);
    /// Tells of the keys that take() gave: @p name is the file's.
    static void reportOverlap(const QObject *sender, const QString &name, const QStringList &keys,
                              const kelp::ModuleObject *data);

    /// Tells that changes of the file @p name are gone.
    static void reportLoss(const QObject *sender, const QString &name);

private:
    void showMarks();
    void collect(kelp::ModuleObject *values) const;

    const FieldTable &m_fields;
    const QWidget *m_skipped;
    kelp::ModuleObject m_shown;
    bool m_isKnown = false;
    std::unique_ptr<EditMarks> m_marks; ///< null: nobody shows them
};

} // namespace welmo
