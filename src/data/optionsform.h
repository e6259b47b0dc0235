#pragma once

#include <functional>

#include "data/fieldedits.h"
#include "data/notreadhint.h"
#include "schema/optionsets.h"

namespace welmo {

/// One parameter set that is a single node, not a row of numbered files, as a page edits it. Its
/// present values stand in the module's tree beside its factory defaults.
///
/// What anybody writes into the set is shown here too, except in fields that are being edited.
/// Until the set was read the controls are grey.
class OptionsForm
{
public:
    /// @p afterShow brings up to date what depends on the values that were shown.
    OptionsForm(QObject *owner, const schema::OptionSet &set, std::function<void()> afterShow = {});

    FieldTable &fields() { return m_fields; }
    kelp::ModuleObject *data() const { return m_data; }

    /// Puts the line that says "not read" on top of @p box, whose layout goes from top to bottom.
    void addHint(QWidget *box) { m_hint = addNotReadHint(box); }
    /// See FieldEdits::showOn(); once the fields are bound.
    void showEdits(QWidget *save) { m_edits.showOn(m_owner, save); }
    void useDefaultNode();
    void writeDefaults();
    /// Reads the set; where the controller answers that it has none, the defaults are taken over.
    /// False when it could not be read, which is reported, and nothing changed.
    bool get();
    /// Reads the set and shows it; when it cannot be read the form stays as it is. Changes that
    /// nobody saved are lost, which is reported.
    void reload();
    /// False until the set was read once: what is shown are defaults that nobody chose, and the
    /// controller's own values must not be replaced with them.
    bool isKnown() const { return m_known; }
    /// Takes the defaults over as the present values.
    void useDefault();
    /// What is sent: the present values, under the set's name.
    std::unique_ptr<kelp::ModuleObject> payload() const;
    void store() { m_fields.store(m_data); }
    void show();
    /// Before a save: takes over what another wrote meanwhile. False, and told, where that is a
    /// field that is edited here too.
    bool maySave();
    /// The controller took payload().
    void markSaved();

private:
    kelp::ModuleObject *node(const QString &name) const;
    void onChanged(const QVariant &values);
    bool takeOver(const QVariant &theirs);
    /// What depends on @p values, which the controls show now.
    void followShown(const kelp::ModuleObject *values);

    QObject *m_owner;
    const schema::OptionSet &m_set;
    FieldTable m_fields;
    FieldEdits m_edits;
    std::function<void()> m_afterShow;
    kelp::ModuleObject *m_data = nullptr;
    bool m_known = false;
    QLabel *m_hint = nullptr;
    QVariant m_read; ///< the set as the controller had it last
    QObject m_guard; ///< the connection goes with the form
};

} // namespace welmo
