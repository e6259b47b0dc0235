#include "controller/core/auditlog.h"

#include <QCryptographicHash>
#include <sqlite3.h>

namespace welmo::controller {

namespace {

#define COLUMNS "number, time, user, client, path, key, revision, content"
constexpr char insertSql[] = "INSERT INTO audit (" COLUMNS ", seal)"
                             " VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9)";
constexpr char lastSql[] = "SELECT " COLUMNS " FROM audit WHERE path = ?1 AND key = ?2"
                           " ORDER BY number DESC LIMIT 1";
constexpr char historySql[] = "SELECT " COLUMNS " FROM audit WHERE path = ?1 AND key = ?2"
                              " ORDER BY number";
constexpr char pageSql[] = "SELECT " COLUMNS " FROM audit WHERE number < ?1 ORDER BY number DESC";
constexpr char allSql[] = "SELECT " COLUMNS ", seal FROM audit ORDER BY number";
#undef COLUMNS
constexpr char oldestSql[] = "SELECT length(CAST(content AS BLOB)), seal FROM audit"
                             " WHERE number = ?1";
constexpr char dropSql[] = "DELETE FROM audit WHERE number = ?1";
constexpr char extentSql[] = "SELECT min(number), max(number), sum(length(CAST(content AS BLOB)))"
                             " FROM audit";

// The seals of the last dropped record, from which the chain starts, and of the newest record.
constexpr char anchorName[] = "audit anchor";
constexpr char sealName[] = "audit seal";

AuditLog::Record recordFrom(const Statement &row)
{
    return {row.number(0), row.text(1), row.text(2),   row.text(3),
            row.text(4),   row.text(5), row.number(6), row.utf8(7)};
}

QString sealOf(const AuditLog::Record &record, const QString &before)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    const auto add = [&hash](const QByteArray &part) {
        hash.addData(QByteArray::number(part.size()) + ':' + part);
    };
    add(before.toUtf8());
    add(QByteArray::number(record.number));
    for (const QString &text : {record.time, record.user, record.client, record.path, record.key})
        add(text.toUtf8());
    add(QByteArray::number(record.revision));
    add(record.content);
    return QString::fromLatin1(hash.result().toHex());
}

} // namespace

AuditLog::AuditLog(Database &database)
    : m_database(database)
    , m_insert(database, insertSql)
    , m_last(database, lastSql)
    , m_page(database, pageSql)
    , m_oldest(database, oldestSql)
    , m_drop(database, dropSql)
{ }

bool AuditLog::load()
{
    Statement extent(m_database, extentSql);
    if (extent.step() != SQLITE_ROW)
        return false;
    m_first = qMax<qint64>(1, extent.number(0));
    m_next = extent.number(1) + 1;
    m_bytes = extent.number(2);
    m_seal = m_database.about(sealName);
    return true;
}

bool AuditLog::append(Record record)
{
    record.number = m_next;
    const QString seal = sealOf(record, m_seal);
    m_insert.bind(1, record.number)
        .bind(2, record.time)
        .bind(3, record.user)
        .bind(4, record.client)
        .bind(5, record.path)
        .bind(6, record.key)
        .bind(7, record.revision)
        .bind(8, record.content)
        .bind(9, seal);
    if (!m_insert.run() || !m_database.setAbout(sealName, seal))
        return false;
    m_seal = seal;
    m_bytes += record.content.size();
    ++m_next;
    return makeRoom();
}

bool AuditLog::makeRoom()
{
    while (m_next - m_first > mostRecords || (m_bytes > mostBytes && m_next - m_first > 1)) {
        if (!dropOldest())
            return false;
    }
    return true;
}

bool AuditLog::dropOldest()
{
    const bool there = m_oldest.bind(1, m_first).step() == SQLITE_ROW;
    const qint64 bytes = there ? m_oldest.number(0) : 0;
    const QString seal = there ? m_oldest.text(1) : QString();
    m_oldest.reset();
    if (there && (!m_drop.bind(1, m_first).run() || !m_database.setAbout(anchorName, seal)))
        return false;
    m_bytes -= bytes;
    ++m_first;
    return true;
}

AuditLog::Record AuditLog::lastOf(const QString &path, const QString &key) const
{
    const bool there = m_last.bind(1, path).bind(2, key).step() == SQLITE_ROW;
    const Record record = there ? recordFrom(m_last) : Record{};
    m_last.reset();
    return record;
}

QVector<AuditLog::Record> AuditLog::historyOf(const QString &path, const QString &key) const
{
    QVector<Record> records;
    Statement history(m_database, historySql);
    history.bind(1, path).bind(2, key);
    while (history.step() == SQLITE_ROW)
        records.append(recordFrom(history));
    return records;
}

QVector<AuditLog::Record> AuditLog::page(qint64 before, int count, int bytes) const
{
    QVector<Record> records;
    m_page.bind(1, before);
    while (records.size() < count && m_page.step() == SQLITE_ROW) {
        const Record record = recordFrom(m_page);
        bytes -= record.content.size();
        if (bytes < 0 && !records.isEmpty())
            break;
        records.append(record);
    }
    m_page.reset();
    return records;
}

qint64 AuditLog::firstBroken() const
{
    Statement all(m_database, allSql);
    QString seal = m_database.about(anchorName);
    qint64 number = m_first;
    for (; all.step() == SQLITE_ROW; ++number) {
        const Record record = recordFrom(all);
        const QString next = all.text(8);
        if (record.number != number || next != sealOf(record, seal))
            return number;
        seal = next;
    }
    return seal == m_seal ? 0 : number;
}

} // namespace welmo::controller
