#pragma once

#include "controller/core/auditlog.h"
#include "controller/core/request.h"
#include "controller/core/store.h"

namespace welmo::controller {

/// Who changed what, and when: each record is written in one transaction with its change. Changes
/// without an author are not recorded.
class Audit
{
public:
    /// A larger change, as JSON, is recorded without its values.
    static constexpr int longestChange = 16 * 1024;
    /// The most records of a page, unless a single one is larger.
    static constexpr int pageLength = 200;
    static constexpr int pageBytes = 128 * 1024;

    explicit Audit(Store &store)
        : m_store(store)
        , m_log(store.database())
    { }

    /// Reads the log's position; to be called before everything else. False if that failed.
    bool start() { return m_log.load(); }
    /// What shows that the records were changed by something else; empty if nothing does.
    QString complaint() const;
    /// Sets who is recorded for later writes.
    void setAuthor(const Author &author) { m_author = author; }
    /// Who makes the present request.
    const Author &author() const { return m_author; }
    /// Writes the changes and their records.
    bool write(const QVector<Store::Change> &changes);

    /// The entry's present value by the records; invalid if they do not tell.
    QVariant valueOf(const QString &path, const QString &key) const;

    /// Whether @p request would overwrite a newer revision than it names, written by somebody other
    /// than its author: then a refusal that says who wrote it and when.
    Reply conflict(const Request &request) const;
    /// A page of records, oldest first: maps of number, time, user, client, path, key, revision and
    /// either changes (see difference()) or omitted (their size). Without @p key the newest ones,
    /// with it those before that number. "before" is the key of the previous page; the oldest page
    /// has none.
    Reply page(const QString &key) const;

private:
    bool note(const Store::Change &change, const Store::Entry &before);

    Store &m_store;
    AuditLog m_log;
    Author m_author;
};

} // namespace welmo::controller
