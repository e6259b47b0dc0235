#include "tessa/physicalbutton.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "tessa/host.h"

namespace tessa {

PhysicalKeys::~PhysicalKeys()
{
    releaseAll();
}

void PhysicalKeys::regist(QObject *owner, const Set &set)
{
    // Held keys are first released with the actions that they were pressed with.
    releaseSet(set.name);
    const size_t keys = size_t(set.firstGroup.size()) + size_t(set.secondGroup.size());
    Entry entry{set, owner, std::vector<int>(keys, 0)};
    if (Entry *same = find(set.name))
        *same = std::move(entry);
    else
        m_entries.push_back(std::move(entry));
    connect(owner, &QObject::destroyed, this, &PhysicalKeys::remove, Qt::UniqueConnection);
    emit setsChanged();
}

void PhysicalKeys::remove(QObject *owner)
{
    Q_UNUSED(owner) // a QPointer to it is null by now
    m_entries.erase(std::remove_if(m_entries.begin(), m_entries.end(),
                                   [](const Entry &entry) { return entry.owner.isNull(); }),
                    m_entries.end());
    emit setsChanged();
}

void PhysicalKeys::setEnabled(const QString &name, bool enabled)
{
    Entry *entry = find(name);
    if (!entry || entry->set.enabled == enabled)
        return;
    entry->set.enabled = enabled;
    if (!enabled)
        releaseSet(name);
    emit enabledChanged();
}

PhysicalKeys::Entry *PhysicalKeys::find(const QString &name)
{
    const auto entry = std::find_if(m_entries.begin(), m_entries.end(),
                                    [&](const Entry &e) { return e.set.name == name; });
    return entry == m_entries.end() ? nullptr : &*entry;
}

std::pair<const PhysicalKeys::Entry *, int> PhysicalKeys::find(int key) const
{
    for (const Entry &entry : m_entries) {
        const int count = int(entry.presses.size());
        if (key >= 0 && key < count)
            return {&entry, key};
        key -= count;
    }
    return {nullptr, -1};
}

std::pair<PhysicalKeys::Entry *, int> PhysicalKeys::find(int key)
{
    const auto [entry, index] = std::as_const(*this).find(key);
    return {const_cast<Entry *>(entry), index};
}

int PhysicalKeys::count() const
{
    int sum = 0;
    for (const Entry &entry : m_entries)
        sum += int(entry.presses.size());
    return sum;
}

const PhysicalButton &PhysicalKeys::button(int key) const
{
    const auto [entry, index] = find(key);
    const int first = entry->set.firstGroup.size();
    return index < first ? entry->set.firstGroup.at(index)
                         : entry->set.secondGroup.at(index - first);
}

bool PhysicalKeys::startsGroup(int key) const
{
    const auto [entry, index] = find(key);
    return entry && (index == 0 || index == entry->set.firstGroup.size());
}

bool PhysicalKeys::isEnabled(int key) const
{
    const auto [entry, index] = find(key);
    return entry && entry->set.enabled;
}

bool PhysicalKeys::isOnHandle(int key) const
{
    const auto [entry, index] = find(key);
    return entry && !entry->set.onPage;
}

int PhysicalKeys::firstOf(const QString &set) const
{
    int first = 0;
    for (const Entry &entry : m_entries) {
        if (entry.set.name == set)
            return first;
        first += int(entry.presses.size());
    }
    return -1;
}

bool PhysicalKeys::isHeld(int key) const
{
    const auto [entry, index] = find(key);
    return entry && entry->presses[size_t(index)] > 0;
}

QVector<int> PhysicalKeys::heldPresses() const
{
    QVector<int> presses;
    for (const Entry &entry : m_entries) {
        std::copy_if(entry.presses.begin(), entry.presses.end(), std::back_inserter(presses),
                     [](int press) { return press > 0; });
    }
    std::sort(presses.begin(), presses.end());
    return presses;
}

void PhysicalKeys::press(int key)
{
    const auto [entry, index] = find(key);
    if (entry && entry->set.enabled && entry->presses[size_t(index)] == 0)
        act(key, true);
}

void PhysicalKeys::release(int key)
{
    if (isHeld(key))
        act(key, false);
}

void PhysicalKeys::act(int key, bool down)
{
    const auto [entry, index] = find(key);
    entry->presses[size_t(index)] = down ? ++m_presses : 0;
    const auto action = button(key).action; // a copy, since receivers may change the sets
    emit heldChanged(key, down);
    if (action)
        action(down);
}

void PhysicalKeys::releaseSet(const QString &name)
{
    const int first = firstOf(name);
    const Entry *entry = find(name);
    const int end = first + (entry ? int(entry->presses.size()) : 0);
    for (int key = first; key < end; ++key)
        release(key);
}

void PhysicalKeys::releaseAll()
{
    for (int key = 0; key < count(); ++key)
        release(key);
}

} // namespace tessa

void registerPhysicalButtons(QObject *owner, const QString &set,
                             const QList<tessa::PhysicalButton> &firstGroup,
                             const QList<tessa::PhysicalButton> &secondGroup, const QStringList &)
{
    tessa::Host::current()->keys()->regist(owner, {set, firstGroup, secondGroup, false});
}

void enableRegisterPhysicalButtons(QObject *, const QString &set, bool enabled)
{
    tessa::Host::current()->keys()->setEnabled(set, enabled);
}
