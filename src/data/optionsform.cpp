#include "data/optionsform.h"

#include "data/arcweldservice.h"
#include "data/report.h"

namespace welmo {

namespace {

const QString defaultName = QStringLiteral("default");
const QString presentName = QStringLiteral("present");

} // namespace

OptionsForm::OptionsForm(QObject *owner, const schema::OptionSet &set)
    : m_owner(owner)
    , m_set(set)
    , m_fields(owner, set)
{ }

kelp::ModuleObject *OptionsForm::node(const QString &name) const
{
    return m(QStringLiteral("welmo"))->c(m_set.section, true)->c(m_set.name, true)->c(name, true);
}

void OptionsForm::useDefaultNode()
{
    m_data = node(defaultName);
}

void OptionsForm::writeDefaults()
{
    m_fields.writeDefaults(node(defaultName));
}

bool OptionsForm::get()
{
    const auto answer = xservice()->get(m_owner, m_set.node());
    if (arcweld::readFailed(answer)) {
        report::readFailed(m_owner, m_set.name);
        return false;
    }
    m_known = true;
    if (answer->cmobjCount() == 0) {
        useDefault();
        return true;
    }
    m_data = node(presentName);
    m_data->copyFrom(m_owner, answer.get(), true, true);
    return true;
}

std::unique_ptr<kelp::ModuleObject> OptionsForm::payload() const
{
    auto payload = std::make_unique<kelp::ModuleObject>(m_set.name, nullptr);
    payload->copyFrom(m_owner, m_data, true, true);
    return payload;
}

void OptionsForm::useDefault()
{
    useDefaultNode();
    kelp::ModuleObject *present = node(presentName);
    present->copyFrom(m_owner, m_data, true, true);
    m_data = present;
}

} // namespace welmo
