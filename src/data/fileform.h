#pragma once

#include <QComboBox>
#include <QLabel>
#include <QPointer>
#include <functional>

#include "data/fieldedits.h"
#include "data/notreadhint.h"
#include "data/parameterfile.h"

namespace welmo {

/// One parameter set as one form edits it: the file combo box, the field table, and the current
/// data object between them. FieldTable moves the values, parameterfile reads and writes them.
///
/// What another form or pendant writes into the chosen file is shown here too, except in fields
/// that are edited here: a save must not undo what was saved elsewhere. A file that could not be
/// read is read when the link is up again; until then the controls are disabled.
class FileForm
{
public:
    /// @p afterShow brings up to date what depends on the values that were shown.
    FileForm(QObject *owner, const schema::FileSet &set, QComboBox *combo,
             std::function<void()> afterShow);
    /// Unsaved changes are lost, which is reported.
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

    /// Offers the set's file names and gives every control its range and items.
    void prepare();
    /// Adds the hint that the file was not read above @p form, whose layout is vertical.
    void addHint(QWidget *form) { m_hint = addNotReadHint(form); }
    void useDefaultNode();
    void writeDefaults();
    /// Reads the chosen file; false if the controller could not be read.
    bool get();
    void store();
    void show();
    /// Stores and writes what the form holds, without maySave(). Returns the controller's code, 0
    /// for success.
    int save();
    /// For a save button: false, with the reason reported, if the form shows another file's values,
    /// or if the controller has new values for fields that are edited here. All other new values
    /// are shown.
    bool maySave();
    /// See FieldEdits::showOn(); once the fields are bound.
    void showEdits(QWidget *save) { m_edits.showOn(m_owner, save); }
    /// Whether the form holds changes that were not saved.
    bool isEdited() const { return !m_edits.values().isEmpty(); }
    /// See FieldEdits::mark().
    void markUnedited() { m_edits.mark(); }
    /// Reads the chosen file and shows it; a failed read leaves the form as it is. Unsaved
    /// changes are lost, which is reported; the first time after a lost link they stay.
    void select();
    /// Shows the file again, except in edited fields; needed when a control offers other items.
    void refresh();
    /// Selects the file @p name without the combo box's signals. False, with nothing changed, if
    /// the set has no such file; upper and lower case differ.
    bool choose(const QString &name);
    /// Writes the defaults, then shows the chosen file, or the defaults while not connected.
    void start();

private:
    void useFreshDefaults();
    QString editedFile() const; ///< empty if no change would be lost
    void watchFile();
    void onFilesChanged(const QVariant &files);
    void onConnected();
    bool keepEditsAfterLoss();
    /// Shows the controller's values @p theirs, except in fields that are edited here. Returns the
    /// keys that both sides changed.
    QStringList reloadKeepingEdits(const QVariant &theirs);
    void reportOverlap(const QStringList &keys);
    void showWhetherHeld();
    void setGrey(bool grey);

    QObject *m_owner;
    const schema::FileSet &m_set;
    QComboBox *m_combo;
    /// Null once the widgets are deleted, which may be before the form.
    QPointer<QComboBox> m_controls;
    FieldTable m_fields;
    FieldEdits m_edits;
    std::function<void()> m_afterShow;
    kelp::ModuleObject *m_data = nullptr;
    QVariant m_read; ///< the file as the controller had it last
    bool m_linkWasLost = false; ///< since the file was read
    QLabel *m_hint = nullptr;
    /// The controls that are disabled now, and whether they were enabled.
    QHash<QWidget *, bool> m_enabled;
    QObject m_guard; ///< ends the connections with the form
};

} // namespace welmo
