#pragma once

#include <QComboBox>
#include <QMap>
#include <QPointer>
#include <QTimer>
#include <functional>

#include "data/fieldtable.h"
#include "data/parameterfile.h"

namespace welmo {

/// One parameter set as one form edits it: the file combo box, the field table, and the current
/// data object between them. Thin: the moving is FieldTable's, the fetching parameterfile's.
///
/// The local copy of a file is one for all forms. When another form, or the monitor, changes it,
/// this one reads the file and shows it, except in fields that were edited here: a save must not
/// undo what was saved elsewhere.
class FileForm
{
public:
    /// @p afterShow brings up to date what depends on the values that were shown.
    FileForm(QObject *owner, const schema::FileSet &set, QComboBox *combo,
             std::function<void()> afterShow);
    /// Changes that nobody saved go with the form, which is reported.
    ~FileForm();

    FieldTable &fields() { return m_fields; }
    const schema::FileSet &set() const { return m_set; }
    QComboBox *combo() const { return m_combo; }
    /// The current data object: the default node or the chosen file's local copy. Never null once
    /// useDefaultNode() or get() ran.
    kelp::ModuleObject *data() const { return m_data; }

    /// False while the file combo box names a file that could not be read: the values shown are
    /// another file's, or the defaults.
    bool holdsChosenFile() const;

    /// Offers the set's file names and gives every control its range, items and unit.
    void prepare();
    void useDefaultNode();
    void writeDefaults();
    /// Reads the chosen file; false when the controller could not be read.
    bool get();
    void store();
    void show();
    /// The controller's code, 0 for success.
    int save();
    /// Whether the form holds changes that were not saved.
    bool isEdited() const { return !edits().isEmpty(); }
    /// What the controls hold counts as unchanged: it was shown, saved, or set by the welder.
    void markUnedited();
    /// Reads the chosen file and shows it; a failed read leaves the form as it is. Changes of the
    /// file shown before that nobody saved are lost, which is reported.
    void select();
    /// Puts the combo box on the file @p name without its signals; false, and nothing changed, when
    /// the set has no such file (the case counts).
    bool choose(const QString &name);
    /// Writes the defaults, then shows the chosen file, or the defaults while not connected.
    void start();

private:
    void useFreshDefaults();
    static void reportLoss(const QObject *sender, const QString &file);
    QMap<QString, QVariant> edits() const; ///< by key
    /// What the controls hold, except the file's name.
    void collect(kelp::ModuleObject *values) const;
    void watchFile();
    void reloadKeepingEdits();

    QObject *m_owner;
    const schema::FileSet &m_set;
    QComboBox *m_combo;
    QPointer<QComboBox> m_controls; ///< null once the widgets are gone, which may be before this
    FieldTable m_fields;
    std::function<void()> m_afterShow;
    kelp::ModuleObject *m_data = nullptr;
    kelp::ModuleObject m_shown; ///< what the controls held when a file was shown or saved
    bool m_isKnown = false;
    kelp::ModuleObject *m_watched = nullptr; ///< the data object whose changes are heard
    QMetaObject::Connection m_watching;
    QTimer m_overtaken; ///< runs once for all that somebody else changes at a time
};

} // namespace welmo
