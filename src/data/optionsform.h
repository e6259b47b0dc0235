#pragma once

#include "data/fieldtable.h"
#include "schema/optionsets.h"

namespace welmo {

/// One parameter set that is a single node, not a row of numbered files, as a page edits it. Its
/// present values stand in the module's tree beside its factory defaults.
class OptionsForm
{
public:
    OptionsForm(QObject *owner, const schema::OptionSet &set);

    FieldTable &fields() { return m_fields; }
    kelp::ModuleObject *data() const { return m_data; }

    void useDefaultNode();
    void writeDefaults();
    /// Reads the set; where the controller answers that it has none, the defaults are taken over.
    /// False when it could not be read, which is reported, and nothing changed.
    bool get();
    /// False until the set was read once: what is shown are defaults that nobody chose, and the
    /// controller's own values must not be replaced with them.
    bool isKnown() const { return m_known; }
    /// Takes the defaults over as the present values.
    void useDefault();
    /// What is sent: the present values, under the set's name.
    std::unique_ptr<kelp::ModuleObject> payload() const;
    void store() { m_fields.store(m_data); }
    void show() { m_fields.show(m_data); }

private:
    kelp::ModuleObject *node(const QString &name) const;

    QObject *m_owner;
    const schema::OptionSet &m_set;
    FieldTable m_fields;
    kelp::ModuleObject *m_data = nullptr;
    bool m_known = false;
};

} // namespace welmo
