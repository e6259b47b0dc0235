#include "controller/core/audit.h"

#include <limits>

#include "controller/core/difference.h"
#include "controller/core/json.h"

namespace welmo::controller {

namespace {

const QString timeKey = QStringLiteral("time");
const QString userKey = QStringLiteral("user");
const QString beforeKey = QStringLiteral("before");
const QString changesKey = QStringLiteral("changes");

QByteArray contentOf(const QVariant &before, const QVariant &after)
{
    const QVariantList changes = difference(before, after);
    const QByteArray whole = toJson(QVariantMap{{changesKey, changes}});
    return whole.size() <= Audit::longestChange
        ? whole
        : toJson(QVariantMap{{QStringLiteral("omitted"), whole.size()}});
}

QVariantMap toMap(const AuditLog::Record &record)
{
    QVariantMap map = fromJson(record.content).value_or(QVariant()).toMap();
    map.insert(QStringLiteral("number"), record.number);
    map.insert(timeKey, record.time);
    map.insert(userKey, record.user);
    map.insert(QStringLiteral("client"), record.client);
    map.insert(QStringLiteral("path"), record.path);
    map.insert(QStringLiteral("key"), record.key);
    map.insert(QStringLiteral("revision"), record.revision);
    return map;
}

} // namespace

QString Audit::complaint() const
{
    const qint64 number = m_log.firstBroken();
    return number == 0
        ? QString()
        : QStringLiteral("record %1 of the audit was changed by another hand").arg(number);
}

bool Audit::write(const QVector<Store::Change> &changes)
{
    if (m_author.user.isEmpty())
        return m_store.write(changes);
    const bool good =
        m_store.write(changes, [this](const Store::Change &change, const Store::Entry &before) {
            return note(change, before);
        });
    if (!good)
        m_log.load();
    return good;
}

bool Audit::note(const Store::Change &change, const Store::Entry &before)
{
    return m_log.append({0, m_author.time, m_author.user, m_author.client, change.path, change.key,
                         before.revision + 1, contentOf(before.value, change.value)});
}

QVariant Audit::valueOf(const QString &path, const QString &key) const
{
    QVariant value;
    for (const AuditLog::Record &record : m_log.historyOf(path, key)) {
        const QVariantMap content = fromJson(record.content).value_or(QVariant()).toMap();
        value = applied(value, content.value(changesKey).toList());
    }
    return value;
}

Reply Audit::conflict(const Request &request) const
{
    if (request.kind != Request::Kind::Set || request.key.isEmpty() || !request.revision)
        return {};
    const std::optional<qint64> stored = m_store.revision(request.path, request.key);
    if (!stored || *stored == *request.revision)
        return {}; // other calls report a store that cannot be read
    AuditLog::Record by = m_log.lastOf(request.path, request.key);
    if (by.revision != *stored)
        by = {}; // the last writer gave no name
    if (!by.user.isEmpty() && by.user == request.author.user && by.client == request.author.client)
        return {}; // its own write, whose answer was lost
    Reply reply = Reply::refused(Conflict, QStringLiteral("written by somebody else since"));
    reply.value = QVariantMap{{userKey, by.user}, {timeKey, by.time}};
    return reply;
}

Reply Audit::page(const QString &key) const
{
    bool isNumber = false;
    const qint64 before =
        key.isEmpty() ? std::numeric_limits<qint64>::max() : key.toLongLong(&isNumber);
    if (!key.isEmpty() && (!isNumber || before < 1))
        return Reply::refused(UnknownKey, key + QStringLiteral(": no number of a record"));
    const QVector<AuditLog::Record> records = m_log.page(before, pageLength, pageBytes);
    QVariantList entries;
    for (const AuditLog::Record &record : records)
        entries.prepend(toMap(record));
    QVariantMap page{{QStringLiteral("entries"), entries}, {QStringLiteral("seal"), m_log.seal()}};
    if (!records.isEmpty() && records.last().number > m_log.firstNumber())
        page.insert(beforeKey, records.last().number);
    return Reply::with(page);
}

} // namespace welmo::controller
