#pragma once

#include <functional>

#include "data/fieldedits.h"
#include "data/notreadhint.h"
#include "schema/optionsets.h"

namespace welmo {

/// One parameter set that is a single node instead of numbered files, as a page edits it. The
/// module's tree holds its present values beside its defaults.
///
/// What another pendant writes into the set is shown here too, except in fields that are edited
/// here. Until the set was read its controls are disabled.
class OptionsForm
{
public:
    /// @p afterShow brings up to date what depends on the values that were shown.
    OptionsForm(QObject *owner, const schema::OptionSet &set, std::function<void()> afterShow = {});

    FieldTable &fields() { return m_fields; }
    kelp::ModuleObject *data() const { return m_data; }

    /// Adds the hint that the set was not read above @p box, whose layout is vertical.
    void addHint(QWidget *box) { m_hint = addNotReadHint(box); }
    /// See FieldEdits::showOn(); once the fields are bound.
    void showEdits(QWidget *save) { m_edits.showOn(m_owner, save); }
    void useDefaultNode();
    void writeDefaults();
    /// Reads the set; if the controller answers that it has none, the defaults are taken over.
    /// False, with a report and nothing changed, if it could not be read.
    bool get();
    /// Reads the set and shows it; a failed read leaves the form as it is. Unsaved changes are
    /// lost, which is reported; the first time after a lost link they stay.
    void reload();
    /// False until the set was read once: the form shows defaults then, which must not replace the
    /// controller's values.
    bool isKnown() const { return m_known; }
    /// Makes the defaults the present values.
    void useDefault();
    /// What a save sends: the present values, under the set's name.
    std::unique_ptr<kelp::ModuleObject> payload() const;
    void store() { m_fields.store(m_data); }
    void show();
    /// To be called before a save: shows what was written elsewhere. False, with a report, if that
    /// changed a field that is edited here.
    bool maySave();
    /// To be called when the controller took payload().
    void markSaved();

private:
    kelp::ModuleObject *node(const QString &name) const;
    void onChanged(const QVariant &values);
    bool takeOver(const QVariant &theirs);
    bool keepEditsAfterLoss();
    /// Updates what depends on @p values, which the controls show now.
    void followShown(const kelp::ModuleObject *values);

    QObject *m_owner;
    const schema::OptionSet &m_set;
    FieldTable m_fields;
    FieldEdits m_edits;
    std::function<void()> m_afterShow;
    kelp::ModuleObject *m_data = nullptr;
    bool m_known = false;
    bool m_linkWasLost = false; ///< since the set was read
    QLabel *m_hint = nullptr;
    QVariant m_read; ///< the set as last read
    QObject m_guard; ///< ends the connection with the form
};

} // namespace welmo
