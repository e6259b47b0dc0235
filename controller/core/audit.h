#pragma once

#include "controller/core/auditlog.h"
#include "controller/core/request.h"
#include "controller/core/store.h"

namespace welmo::controller {

/// Who changed what, and when: kept in the store with each change, all or none of both. Whoever
/// writes without a name is not kept.
class Audit
{
public:
    /// A change that is longer, as JSON, is kept without its values.
    static constexpr int longestChange = 16 * 1024;
    /// What a page holds at most, unless a single record is longer.
    static constexpr int pageLength = 200;
    static constexpr int pageBytes = 128 * 1024;

    explicit Audit(Store &store)
        : m_store(store)
        , m_log(store.database())
    { }

    /// Reads where it stands; comes before everything else. False when that failed.
    bool start() { return m_log.load(); }
    /// What shows that somebody else had a hand in it; empty when nothing does.
    QString complaint() const;
    /// In whose name the store is written to from now on.
    void setAuthor(const Author &author) { m_author = author; }
    /// Writes the changes, and what is kept of them.
    bool write(const QVector<Store::Change> &changes);

    /// What the records say that the entry holds now; invalid when they do not say.
    QVariant valueOf(const QString &path, const QString &key) const;

    /// Whether the author of the request would write over something newer than what the request was
    /// made from, that somebody else wrote: then a refusal that says who and when.
    Reply conflict(const Request &request) const;
    /// A page of records, oldest first: maps of number, time, user, client, path, key, revision and
    /// either changes (as of difference()) or omitted (how long they were). The newest ones, or
    /// with a @p key the ones before that number; "before" is the key for what comes before the
    /// page, unless that is all.
    Reply page(const QString &key) const;

private:
    bool note(const Store::Change &change, const Store::Entry &before);

    Store &m_store;
    AuditLog m_log;
    Author m_author;
};

} // namespace welmo::controller
