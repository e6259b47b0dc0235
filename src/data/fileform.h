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
/// What anybody writes into the chosen file is shown here too, except in fields that are being
/// edited: a save must not undo what was saved elsewhere. A file that could not be read is read
/// when the link has come up; until then the controls are grey.
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

    /// Offers the set's file names and gives every control its range and items.
    void prepare();
    /// Puts the line that says "not read" on top of @p form, whose layout goes from top to bottom.
    void addHint(QWidget *form) { m_hint = addNotReadHint(form); }
    void useDefaultNode();
    void writeDefaults();
    /// Reads the chosen file; false when the controller could not be read.
    bool get();
    void store();
    void show();
    /// Stores and writes what the form holds, whatever that is. The controller's code, 0 for
    /// success.
    int save();
    /// For a button: false, and the reason told, when the values shown are not the chosen file's,
    /// or when another wrote into a field that is edited here. Other news of the file is taken
    /// over.
    bool maySave();
    /// See FieldEdits::showOn(); once the fields are bound.
    void showEdits(QWidget *save) { m_edits.showOn(m_owner, save); }
    /// Whether the form holds changes that were not saved.
    bool isEdited() const { return !m_edits.values().isEmpty(); }
    /// See FieldEdits::mark().
    void markUnedited() { m_edits.mark(); }
    /// Reads the chosen file and shows it; a failed read leaves the form as it is. Changes that
    /// nobody saved are lost, which is reported.
    void select();
    /// Shows the file again, except in fields that are edited: a control offers other items now.
    void refresh();
    /// Puts the combo box on the file @p name without its signals; false, and nothing changed, when
    /// the set has no such file (the case counts).
    bool choose(const QString &name);
    /// Writes the defaults, then shows the chosen file, or the defaults while not connected.
    void start();

private:
    void useFreshDefaults();
    QString editedFile() const; ///< empty when nothing would be lost
    void watchFile();
    void onFilesChanged(const QVariant &files);
    void onConnected();
    /// Shows @p theirs, what the controller has, except in fields that are edited here. The keys of
    /// those that were changed there as well.
    QStringList reloadKeepingEdits(const QVariant &theirs);
    void reportOverlap(const QStringList &keys);
    void showWhetherHeld();
    void setGrey(bool grey);

    QObject *m_owner;
    const schema::FileSet &m_set;
    QComboBox *m_combo;
    QPointer<QComboBox> m_controls; ///< null once the widgets are gone, which may be before this
    FieldTable m_fields;
    FieldEdits m_edits;
    std::function<void()> m_afterShow;
    kelp::ModuleObject *m_data = nullptr;
    QVariant m_read; ///< the file as the controller had it last
    QLabel *m_hint = nullptr;
    QHash<QWidget *, bool> m_enabled; ///< of the controls that are grey now, whether they were
    QObject m_guard; ///< the connections go with the form
};

} // namespace welmo
