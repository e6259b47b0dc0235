#pragma once

#include <QComboBox>
#include <functional>

#include "data/fieldtable.h"
#include "data/parameterfile.h"

namespace welmo {

/// One parameter set as one form edits it: the file combo box, the field table, and the current
/// data object between them. Thin: the moving is FieldTable's, the fetching parameterfile's.
class FileForm
{
public:
    /// @p afterShow brings up to date what depends on the values that were shown.
    FileForm(QObject *owner, const ParameterSet &set, QComboBox *combo,
             std::function<void()> afterShow);

    FieldTable &fields() { return m_fields; }
    const ParameterSet &set() const { return m_set; }
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
    /// Reads the chosen file and shows it; a failed read leaves the form as it is.
    void select();
    /// Puts the combo box on the file @p name without its signals; false, and nothing changed, when
    /// the set has no such file (the case counts).
    bool choose(const QString &name);
    /// Writes the defaults, then shows the chosen file, or the defaults while not connected.
    void start();

private:
    void useFreshDefaults();

    QObject *m_owner;
    const ParameterSet &m_set;
    QComboBox *m_combo;
    FieldTable m_fields;
    std::function<void()> m_afterShow;
    kelp::ModuleObject *m_data = nullptr;
};

} // namespace welmo
