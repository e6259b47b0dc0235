#include "controller/core/audit.h"

#include <algorithm>

#include "schema/names.h"

namespace welmo::controller {

namespace {

const QString numberKey = QStringLiteral("number");
const QString timeKey = QStringLiteral("time");
const QString userKey = QStringLiteral("user");
const QString clientKey = QStringLiteral("client");
const QString pathKey = QStringLiteral("path");
const QString keyKey = QStringLiteral("key");
const QString revisionKey = QStringLiteral("revision");

QString placeOf(const QString &path, const QString &key)
{
    return path + QLatin1Char('/') + key;
}

qint64 numberOf(const QVariantMap &entry)
{
    return entry.value(numberKey).toLongLong();
}

std::vector<QVariantMap> inOrder(const std::map<QString, Store::Entry> &stored)
{
    std::vector<QVariantMap> entries;
    entries.reserve(stored.size());
    for (const auto &[key, entry] : stored)
        entries.push_back(entry.value.toMap());
    std::sort(entries.begin(), entries.end(),
              [](const QVariantMap &a, const QVariantMap &b) { return numberOf(a) < numberOf(b); });
    return entries;
}

} // namespace

bool Audit::start()
{
    const auto stored = m_store.readAll(names::audit);
    if (!stored)
        return false;
    for (const QVariantMap &entry : inOrder(*stored))
        note(entry);
    return true;
}

QVector<Store::Change> Audit::with(const QVector<Store::Change> &changes)
{
    m_unsettled.clear();
    if (m_author.user.isEmpty())
        return changes;
    QVector<Store::Change> all = changes;
    qint64 number = m_next;
    for (const Store::Change &change : changes) {
        const Store::Entry before = m_store.read(change.path, change.key).value_or(Store::Entry{});
        const QVariantMap entry{{numberKey, number},
                                {timeKey, m_author.time},
                                {userKey, m_author.user},
                                {clientKey, m_author.client},
                                {pathKey, change.path},
                                {keyKey, change.key},
                                {QStringLiteral("old"), before.value},
                                {QStringLiteral("new"), change.value},
                                {revisionKey, before.revision + 1}};
        all.append({names::audit, QString::number(number % capacity), entry});
        m_unsettled.append(entry);
        ++number;
    }
    return all;
}

void Audit::settle(bool good)
{
    for (const QVariantMap &entry : qAsConst(m_unsettled)) {
        if (good)
            note(entry);
    }
    m_unsettled.clear();
}

void Audit::note(const QVariantMap &entry)
{
    m_next = numberOf(entry) + 1;
    m_last.insert(placeOf(entry.value(pathKey).toString(), entry.value(keyKey).toString()),
                  {entry.value(revisionKey).toLongLong(),
                   {entry.value(userKey).toString(), entry.value(clientKey).toString(),
                    entry.value(timeKey).toString()}});
}

Reply Audit::conflict(const Request &request) const
{
    if (request.kind != Request::Kind::Set || request.key.isEmpty() || !request.revision)
        return {};
    const std::optional<Store::Entry> stored = m_store.read(request.path, request.key);
    if (!stored || stored->revision == *request.revision)
        return {}; // a store that cannot be read will say so itself
    const Last last = m_last.value(placeOf(request.path, request.key));
    const Author by = last.revision == stored->revision ? last.author : Author{};
    if (!by.user.isEmpty() && by.user == request.author.user && by.client == request.author.client)
        return {}; // its own, whose answer got lost
    Reply reply = Reply::refused(Conflict, QStringLiteral("written by somebody else since"));
    reply.value = QVariantMap{{userKey, by.user}, {timeKey, by.time}};
    return reply;
}

Reply Audit::recent(int count) const
{
    const auto stored = m_store.readAll(names::audit);
    if (!stored)
        return Reply::refused(StorageFailed, m_store.errorText());
    const std::vector<QVariantMap> entries = inOrder(*stored);
    QVariantList list;
    for (size_t i = entries.size() - std::min(entries.size(), size_t(count)); i < entries.size();
         ++i)
        list.append(entries[i]);
    return Reply::with(QVariantMap{{QStringLiteral("entries"), list}});
}

} // namespace welmo::controller
