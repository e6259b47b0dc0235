#include "controller/core/repair.h"

#include <QDateTime>

#include "controller/core/audit.h"

namespace welmo::controller {

namespace {

Author us()
{
    return {QStringLiteral("controllerd"), QStringLiteral("repair"),
            QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd hh:mm:ss"))};
}

/// Repairs entries of a store from its audit, or from a backup.
class Mender
{
public:
    Mender(Store &store, const Store *backup)
        : m_store(store)
        , m_backup(backup)
        , m_audit(store)
    { }

    bool start() { return m_audit.start(); }
    /// How the entry was repaired, in words; empty if it could not be.
    QString mend(const Store::Place &place)
    {
        Store::Change entry{place.path, place.key, m_audit.valueOf(place.path, place.key)};
        const bool known = entry.value.isValid() && m_store.wasStored(entry);
        if (!known)
            entry.value = inBackup(place);
        m_audit.setAuthor(us());
        if (!entry.value.isValid() || !m_audit.write({entry}))
            return {};
        return known ? QStringLiteral("is as it was, by the audit")
                     : QStringLiteral("is as the backup has it");
    }

private:
    QVariant inBackup(const Store::Place &place) const
    {
        const auto entry = m_backup ? m_backup->read(place.path, place.key) : std::nullopt;
        return entry ? entry->value : QVariant();
    }

    Store &m_store;
    const Store *m_backup;
    Audit m_audit;
};

} // namespace

bool repair(const QString &file, const QString &backup, QStringList *lines)
{
    QString problem;
    std::unique_ptr<Store> spare;
    if (!backup.isEmpty())
        spare = Store::openToRead(backup, &problem);
    const auto store = problem.isEmpty() ? Store::open(file, &problem) : nullptr;
    if (!store) {
        lines->append(problem);
        return false;
    }
    Mender mender(*store, spare.get());
    bool good = mender.start();
    for (const Store::Place &place : store->damaged()) {
        const QString outcome = mender.mend(place);
        good = good && !outcome.isEmpty();
        lines->append(
            QStringLiteral("%1 of %2 %3")
                .arg(place.key, place.path,
                     outcome.isEmpty() ? QStringLiteral("stays damaged: write it anew") : outcome));
    }
    if (store->damaged().isEmpty())
        lines->append(QStringLiteral("%1: no entry is damaged").arg(file));
    return good;
}

} // namespace welmo::controller
