#pragma once

#include <functional>
#include <map>

#include "controller/core/audit.h"
#include "controller/core/clock.h"
#include "controller/core/faults.h"
#include "controller/core/journal.h"
#include "controller/core/reader.h"
#include "controller/core/store.h"

namespace welmo::controller {

/// What the units of a controller share: the store, the clock, the journal, the faults, and the way
/// to tell watchers. Store failures become replies here, and nowhere else.
class ControllerContext : public Reader
{
public:
    using Notify = std::function<void(const QString &path, const QVariant &values)>;
    using Listener = std::function<void(const QVariant &values)>;

    /// Everything is borrowed and must outlive the context.
    ControllerContext(Store &store, Faults &faults, Journal &journal, Clock clock);

    void setNotify(Notify notify) { m_notify = std::move(notify); }
    /// Tells whoever watches @p path; @p values holds what changed, under the node's keys.
    void notify(const QString &path, const QVariant &values) const;
    /// For the controller's own units: hears what is told of @p path, before anybody outside.
    void listen(const QString &path, const Listener &listener);

    /// The stored value, or @p fallback when there is none.
    Reply load(const QString &path, const QString &key = {},
               const QVariant &fallback = {}) const override;
    /// A map of everything stored under @p path, by key, without what is damaged.
    Reply loadAll(const QString &path) const;
    Reply save(const QString &path, const QString &key, const QVariant &value);
    /// All or none.
    Reply save(const QVector<Store::Change> &changes);
    Reply remove(const QString &path, const QStringList &keys);

    Audit &audit() { return m_audit; }
    /// What is damaged in the store, a line each; once audit() has started.
    QStringList complaints() const;
    /// Of the entry as it is stored now; nothing for what is not stored.
    std::optional<qint64> revision(const QString &path, const QString &key) const;

    qint64 now() const { return m_clock(); }
    void record(Journal::Event event, const QString &cause);
    bool suffers(Faults::Fault fault) const { return m_faults.isOn(fault); }
    Faults &faults() { return m_faults; }

private:
    Reply outcome(bool good) const;

    Store &m_store;
    Audit m_audit;
    Faults &m_faults;
    Journal &m_journal;
    Clock m_clock;
    Notify m_notify;
    std::multimap<QString, Listener> m_listeners;
};

} // namespace welmo::controller
