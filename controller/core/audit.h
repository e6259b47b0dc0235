#pragma once

#include <QHash>

#include "controller/core/request.h"
#include "controller/core/store.h"

namespace welmo::controller {

/// Who wrote what, when, in place of what: kept in the store with each change, all or none of both.
/// The oldest entries give way. Whoever writes without a name is not kept.
class Audit
{
public:
    static constexpr int capacity = 5000;

    explicit Audit(Store &store)
        : m_store(store)
    { }

    /// Reads what was kept; comes before everything else. False when that failed.
    bool start();
    /// In whose name the store is written to from now on.
    void setAuthor(const Author &author) { m_author = author; }
    /// The changes, and what is kept of them.
    QVector<Store::Change> with(const QVector<Store::Change> &changes);
    /// They are in the store now, or are not.
    void settle(bool good);

    /// Whether the author of the request would write over something newer than what the request was
    /// made from, that somebody else wrote: then a refusal that says who and when.
    Reply conflict(const Request &request) const;
    /// The newest entries, oldest first: maps of time, user, client, path, key, old, new, revision.
    Reply recent(int count) const;

private:
    struct Last
    {
        qint64 revision;
        Author author;
    };

    void note(const QVariantMap &entry);

    Store &m_store;
    Author m_author;
    qint64 m_next = 1;
    QHash<QString, Last> m_last; // by path and key
    QVector<QVariantMap> m_unsettled;
};

} // namespace welmo::controller
