#include "controller/core/store.h"

#include <QDir>
#include <algorithm>
#include <sqlite3.h>

#include "controller/core/checksum.h"
#include "controller/core/json.h"
#include "controller/core/storeformat.h"

namespace welmo::controller {

namespace {

#define COLUMNS "path, key, value, revision, sum"
constexpr char readSql[] = "SELECT " COLUMNS " FROM entry WHERE path = ?1 AND key = ?2";
constexpr char readAllSql[] = "SELECT " COLUMNS " FROM entry WHERE path = ?1 AND value IS NOT NULL";
constexpr char everythingSql[] = "SELECT " COLUMNS " FROM entry";
constexpr char readRowSql[] = "SELECT value IS NOT NULL, revision, sum FROM entry"
                              " WHERE path = ?1 AND key = ?2";
constexpr char writeSql[] =
    "INSERT OR REPLACE INTO entry (" COLUMNS ") VALUES (?1, ?2, ?3, ?4, ?5)";
#undef COLUMNS

bool isGood(const Statement &row)
{
    const QByteArray value = row.isNull(2) ? QByteArray() : row.utf8(2);
    return checksum(row.utf8(0), row.utf8(1), value, row.number(3)) == row.number(4);
}

QString complaintAbout(const Statement &row)
{
    return QStringLiteral("%1 of %2 is damaged: write it anew, or mend it with controllerd repair")
        .arg(row.text(1), row.text(0));
}

} // namespace

std::unique_ptr<Store> Store::open(const QString &file, QString *problem)
{
    return loaded(StoreFile::open(file, problem), file, problem);
}

std::unique_ptr<Store> Store::openToRead(const QString &file, QString *problem)
{
    return loaded(StoreFile::openToRead(file, problem), file, problem);
}

std::unique_ptr<Store> Store::loaded(std::unique_ptr<StoreFile> database, const QString &file,
                                     QString *problem)
{
    if (!database)
        return nullptr;
    std::unique_ptr<Store> store(new Store(std::move(database)));
    const QString reason = store->load();
    if (reason.isEmpty())
        return store;
    *problem = QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(file), reason);
    return nullptr;
}

std::unique_ptr<Store> Store::inMemory()
{
    std::unique_ptr<Store> store(new Store(StoreFile::inMemory()));
    store->load();
    return store;
}

Store::Store(std::unique_ptr<StoreFile> database)
    : m_database(std::move(database))
    , m_read(*m_database, readSql)
    , m_readAll(*m_database, readAllSql)
    , m_readRow(*m_database, readRowSql)
    , m_write(*m_database, writeSql)
{ }

/// Checks every entry once; returns why the store cannot be used.
QString Store::load()
{
    m_identity = m_database->about(storeformat::identityName);
    if (m_identity.isEmpty())
        return QStringLiteral("is damaged (it has no identity): restore a backup");
    Statement all(*m_database, everythingSql);
    int result = all.step();
    for (; result == SQLITE_ROW; result = all.step()) {
        m_sum += static_cast<quint64>(all.number(4));
        if (isGood(all))
            continue;
        m_complaints.append(complaintAbout(all));
        m_damaged.append({all.text(0), all.text(1)});
    }
    if (result != SQLITE_DONE)
        return QStringLiteral("cannot be read (%1)").arg(m_database->errorText());
    const quint64 known = m_database->about(storeformat::sumName).toULongLong();
    if (m_complaints.isEmpty() && known != m_sum)
        m_complaints.append(QStringLiteral("entries of the store are lost: restore a backup"));
    return {};
}

std::optional<Store::Entry> Store::read(const QString &path, const QString &key) const
{
    std::optional<Entry> entry;
    const int result = m_read.bind(1, path).bind(2, key).step();
    if (result == SQLITE_ROW)
        entry = entryFrom(m_read);
    else if (result == SQLITE_DONE)
        entry = Entry{};
    else
        failed();
    m_read.reset();
    return entry;
}

std::optional<qint64> Store::revision(const QString &path, const QString &key) const
{
    const std::optional<Row> row = rowOf({path, key, {}});
    return row ? std::make_optional(row->revision) : std::nullopt;
}

std::optional<Store::Row> Store::rowOf(const Change &change) const
{
    std::optional<Row> row;
    const int result = m_readRow.bind(1, change.path).bind(2, change.key).step();
    if (result == SQLITE_ROW)
        row = Row{m_readRow.number(0) != 0, m_readRow.number(1), m_readRow.number(2)};
    else if (result == SQLITE_DONE)
        row = Row{};
    else
        failed();
    m_readRow.reset();
    return row;
}

std::optional<std::map<QString, Store::Entry>> Store::readAll(const QString &path) const
{
    std::map<QString, Entry> entries;
    int result = m_readAll.bind(1, path).step();
    for (; result == SQLITE_ROW; result = m_readAll.step()) {
        if (const std::optional<Entry> entry = entryFrom(m_readAll))
            entries.emplace(m_readAll.text(1), *entry);
    }
    const bool good = result == SQLITE_DONE || failed();
    m_readAll.reset();
    return good ? std::make_optional(entries) : std::nullopt;
}

bool Store::wasStored(const Change &entry) const
{
    const std::optional<Row> row = rowOf(entry);
    return row
        && checksum(entry.path.toUtf8(), entry.key.toUtf8(), toJson(entry.value), row->revision)
        == row->sum;
}

bool Store::write(const QVector<Change> &changes, const Witness &witness)
{
    const quint64 sum = m_sum;
    const bool good = inTransaction([&] {
        return std::all_of(changes.begin(), changes.end(),
                           [&](const Change &change) { return writeOne(change, witness); })
            && m_database->setAbout(storeformat::sumName, QString::number(m_sum));
    });
    if (!good)
        m_sum = sum;
    return good;
}

bool Store::writeOne(const Change &change, const Witness &witness)
{
    const std::optional<Row> row = rowOf(change);
    if (!row)
        return false;
    if (!change.value.isValid() && !row->there)
        return true; // there is nothing to remove
    if (witness) {
        const QVariant before =
            row->there ? read(change.path, change.key).value_or(Entry()).value : QVariant();
        if (!witness(change, {before, row->revision}))
            return false;
    }
    return put(change, row->revision + 1, row->sum);
}

bool Store::put(const Change &change, qint64 revision, qint64 sumBefore)
{
    const QByteArray value = change.value.isValid() ? toJson(change.value) : QByteArray();
    const qint64 sum = checksum(change.path.toUtf8(), change.key.toUtf8(), value, revision);
    m_sum += static_cast<quint64>(sum) - static_cast<quint64>(sumBefore);
    m_write.bind(1, change.path).bind(2, change.key).bind(4, revision).bind(5, sum);
    value.isNull() ? m_write.bindNull(3) : m_write.bind(3, value);
    return m_write.run();
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
    Transaction transaction(*m_database);
    return (transaction.hasBegun() && work() && transaction.commit()) || failed();
}

bool Store::failed(const QString &text) const
{
    m_errorText = text.isEmpty() ? m_database->errorText() : text;
    return false;
}

std::optional<Store::Entry> Store::entryFrom(const Statement &row) const
{
    if (!isGood(row)) {
        failed(complaintAbout(row));
        return std::nullopt;
    }
    const qint64 revision = row.number(3);
    if (row.isNull(2))
        return Entry{{}, revision};
    const QByteArray text = row.utf8(2);
    if (const QVariant *known = m_values.object(text))
        return Entry{*known, revision};
    if (const std::optional<QVariant> value = fromJson(text)) {
        m_values.insert(text, new QVariant(*value));
        return Entry{*value, revision};
    }
    failed(complaintAbout(row));
    return std::nullopt;
}

} // namespace welmo::controller
