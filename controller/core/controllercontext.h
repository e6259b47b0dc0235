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

/// What the subsystems of a controller share: the store, the clock, the journal, the faults, and
/// the way to notify watchers. Store failures become replies only here.
class ControllerContext : public Reader
{
public:
    using Notify = std::function<void(const QString &path, const QVariant &values)>;
    using Listener = std::function<void(const QVariant &values)>;

    /// The context keeps references to all of these; they must outlive it.
    ControllerContext(Store &store, Faults &faults, Journal &journal, Clock clock);

    void setNotify(Notify notify) { m_notify = std::move(notify); }
    /// Notifies the watchers of @p path; @p values holds what changed, under the node's keys.
    void notify(const QString &path, const QVariant &values) const;
    /// For the controller's subsystems: @p listener is called with each notification of @p path,
    /// before the watchers.
    void listen(const QString &path, const Listener &listener);

    /// The stored value, or @p fallback if there is none.
    Reply load(const QString &path, const QString &key = {},
               const QVariant &fallback = {}) const override;
    /// A map of all entries of @p path, by key, except damaged ones.
    Reply loadAll(const QString &path) const;
    Reply save(const QString &path, const QString &key, const QVariant &value);
    /// Writes all of the changes or none.
    Reply save(const QVector<Store::Change> &changes);
    Reply remove(const QString &path, const QStringList &keys);

    Audit &audit() { return m_audit; }
    /// What is damaged in the store, a line each; valid once audit() has started.
    QStringList complaints() const;
    /// The revision of a stored entry; empty if it is not stored.
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
