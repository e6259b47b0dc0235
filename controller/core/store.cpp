#include "controller/core/store.h"

#include <algorithm>
#include <sqlite3.h>

#include "controller/core/json.h"

namespace welmo::controller {

namespace {

constexpr char readSql[] = "SELECT value, revision FROM entry WHERE path = ?1 AND key = ?2";
constexpr char readRevisionSql[] = "SELECT revision FROM entry WHERE path = ?1 AND key = ?2";
constexpr char readAllSql[] =
    "SELECT key, value, revision FROM entry WHERE path = ?1 AND value IS NOT NULL";
constexpr char writeSql[] = "INSERT INTO entry (path, key, value, revision) VALUES (?1, ?2, ?3, 1)"
                            " ON CONFLICT (path, key) DO UPDATE"
                            " SET value = excluded.value, revision = revision + 1";
constexpr char removeSql[] = "UPDATE entry SET value = NULL, revision = revision + 1"
                             " WHERE path = ?1 AND key = ?2 AND value IS NOT NULL";

} // namespace

std::unique_ptr<Store> Store::open(const QString &file, QString *problem)
{
    auto database = Database::open(file, problem);
    return std::unique_ptr<Store>(database ? new Store(std::move(database)) : nullptr);
}

std::unique_ptr<Store> Store::inMemory()
{
    return std::unique_ptr<Store>(new Store(Database::inMemory()));
}

Store::Store(std::unique_ptr<Database> database)
    : m_database(std::move(database))
    , m_read(*m_database, readSql)
    , m_readRevision(*m_database, readRevisionSql)
    , m_readAll(*m_database, readAllSql)
    , m_write(*m_database, writeSql)
    , m_remove(*m_database, removeSql)
{ }

std::optional<Store::Entry> Store::read(const QString &path, const QString &key) const
{
    std::optional<Entry> entry;
    const int result = m_read.bind(1, path).bind(2, key).step();
    if (result == SQLITE_ROW)
        entry = m_read.isNull(0) ? Entry{{}, m_read.number(1)} : entryFrom(m_read, 0);
    else if (result == SQLITE_DONE)
        entry = Entry{};
    else
        failed();
    m_read.reset();
    return entry;
}

std::optional<qint64> Store::revision(const QString &path, const QString &key) const
{
    std::optional<qint64> revision;
    const int result = m_readRevision.bind(1, path).bind(2, key).step();
    if (result == SQLITE_ROW)
        revision = m_readRevision.number(0);
    else if (result == SQLITE_DONE)
        revision = 0;
    else
        failed();
    m_readRevision.reset();
    return revision;
}

std::optional<std::map<QString, Store::Entry>> Store::readAll(const QString &path) const
{
    std::map<QString, Entry> entries;
    bool good = true;
    int result = m_readAll.bind(1, path).step();
    for (; good && result == SQLITE_ROW; result = m_readAll.step()) {
        const std::optional<Entry> entry = entryFrom(m_readAll, 1);
        good = entry.has_value();
        if (good)
            entries.emplace(QString::fromUtf8(m_readAll.utf8(0)), *entry);
    }
    if (good && result != SQLITE_DONE)
        good = failed();
    m_readAll.reset();
    return good ? std::make_optional(entries) : std::nullopt;
}

bool Store::write(const QVector<Change> &changes)
{
    return inTransaction([&] {
        return std::all_of(changes.begin(), changes.end(), [this](const Change &change) {
            if (!change.value.isValid())
                return m_remove.bind(1, change.path).bind(2, change.key).run();
            const QByteArray json = toJson(change.value);
            return m_write.bind(1, change.path).bind(2, change.key).bind(3, json).run();
        });
    });
}

bool Store::remove(const QString &path, const QStringList &keys)
{
    QVector<Change> changes;
    for (const QString &key : keys)
        changes.append({path, key, {}});
    return write(changes);
}

bool Store::inTransaction(const std::function<bool()> &work)
{
    if (!m_database->execute("BEGIN IMMEDIATE"))
        return failed();
    if (work() && m_database->execute("COMMIT"))
        return true;
    failed();
    m_database->execute("ROLLBACK");
    return false;
}

bool Store::failed(const QString &text) const
{
    m_errorText = text.isEmpty() ? m_database->errorText() : text;
    return false;
}

std::optional<Store::Entry> Store::entryFrom(const Statement &row, int column) const
{
    const QByteArray text = row.utf8(column);
    const qint64 revision = row.number(column + 1);
    if (const QVariant *known = m_values.object(text))
        return Entry{*known, revision};
    if (const std::optional<QVariant> value = fromJson(text)) {
        m_values.insert(text, new QVariant(*value));
        return Entry{*value, revision};
    }
    failed(QStringLiteral("an entry of the store is damaged"));
    return std::nullopt;
}

} // namespace welmo::controller
