#include "data/optionsform.h"

#include <utility>

#include "data/arcweldservice.h"
#include "data/report.h"

namespace welmo {

namespace {

const QString defaultName = QStringLiteral("default");
const QString presentName = QStringLiteral("present");

} // namespace

OptionsForm::OptionsForm(QObject *owner, const schema::OptionSet &set,
                         std::function<void()> afterShow)
    : m_owner(owner)
    , m_set(set)
    , m_fields(owner, set)
    , m_edits(m_fields)
    , m_afterShow(std::move(afterShow))
{
    QObject::connect(xservice()->watchNode(set.node()), &kelp::ModuleObject::changed, &m_guard,
                     [this](const QVariant &values) { onChanged(values); });
    arcweld::onDisconnected(&m_guard, [this] { m_linkWasLost = true; });
}

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
    xservice()->watch(m_owner, m_set.node(), true);
    const auto answer = xservice()->get(m_owner, m_set.node());
    if (arcweld::readFailed(answer)) {
        report::readFailed(m_owner, m_set.name);
        return false;
    }
    m_known = true;
    m_read = host::toVariant(answer.get());
    if (answer->cmobjCount() == 0) {
        useDefault();
        return true;
    }
    m_data = node(presentName);
    m_data->copyFrom(m_owner, answer.get(), true, true);
    return true;
}

void OptionsForm::followShown(const kelp::ModuleObject *values)
{
    for (const auto &field : m_fields.fields())
        field->editor()->setEnabled(m_known);
    showWhetherRead(m_hint, m_known);
    if (!m_known)
        return;
    if (m_afterShow)
        m_afterShow();
    m_fields.reportCuts(values);
}

// A lost link must not cost an edit.
bool OptionsForm::keepEditsAfterLoss()
{
    if (!std::exchange(m_linkWasLost, false) || !m_known)
        return false;
    xservice()->watch(m_owner, m_set.node(), true);
    const auto theirs = xservice()->get(m_owner, m_set.node());
    if (arcweld::readFailed(theirs))
        return false;
    if (theirs->cmobjCount() > 0) // else nobody has stored any
        takeOver(host::toVariant(theirs.get()));
    return true;
}

void OptionsForm::reload()
{
    const bool isEdited = !m_edits.values().isEmpty();
    if (isEdited && keepEditsAfterLoss())
        return;
    if (!get())
        return;
    if (isEdited)
        FieldEdits::reportLoss(m_owner, m_set.name);
    show();
}

void OptionsForm::show()
{
    m_fields.show(m_data);
    followShown(m_data);
    m_edits.mark();
}

void OptionsForm::markSaved()
{
    m_read = host::toVariant(m_data);
    m_edits.mark();
}

bool OptionsForm::takeOver(const QVariant &theirs)
{
    m_read = theirs;
    const auto show = [this](const kelp::ModuleObject *merged) {
        m_fields.showNews(merged);
        followShown(merged);
    };
    const QStringList overlap = m_edits.take(m_owner, m_data, theirs, show);
    m_edits.reportOverlap(m_owner, m_set.name, overlap, m_data);
    return overlap.isEmpty();
}

void OptionsForm::onChanged(const QVariant &values)
{
    QVariantMap theirs = m_read.toMap(); // a notification holds only what changed
    theirs.insert(values.toMap());
    if (m_known && !values.toMap().isEmpty() && theirs != m_read)
        takeOver(theirs);
}

bool OptionsForm::maySave()
{
    if (!m_known)
        return true; // the save itself reports that the set was not read
    const auto theirs = xservice()->get(m_owner, m_set.node());
    const bool isRead = !arcweld::readFailed(theirs) && theirs->cmobjCount() > 0;
    const bool isNews = isRead && host::toVariant(theirs.get()) != m_read;
    // Otherwise the save reports what is wrong.
    return !isNews || takeOver(host::toVariant(theirs.get()));
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
