#include "book/plant/outbox.h"

#include <QUuid>

namespace welmo::book {

namespace {

const QString logNote = QStringLiteral("log");
const QString droppedNote = QStringLiteral("dropped");

const Schema &outboxSchema()
{
    static const Schema schema{
        0x776C6F62, // "wlob"
        1,
        {QStringLiteral("entry (sequence INTEGER PRIMARY KEY AUTOINCREMENT, kind TEXT NOT NULL,"
                        " content BLOB NOT NULL)"),
         QStringLiteral("note (name TEXT PRIMARY KEY, value TEXT NOT NULL)")},
        {}};
    return schema;
}

} // namespace

std::unique_ptr<Outbox> Outbox::open(const QString &file, QString *problem, Bounds bounds)
{
    auto database = Database::open(file, Database::ReadWrite, problem, outboxSchema());
    if (!database)
        return nullptr;
    std::unique_ptr<Outbox> outbox(new Outbox(std::move(database), bounds));
    if (outbox->load() && (!outbox->m_log.isEmpty() || outbox->renewLog()))
        return outbox;
    *problem = QStringLiteral("%1: %2").arg(file, outbox->errorText());
    return nullptr;
}

bool Outbox::load()
{
    QSqlQuery all = m_database->select(
        QStringLiteral("SELECT count(*), coalesce(sum(length(content)), 0) FROM entry"));
    if (!m_database->next(all))
        return false;
    m_count = all.value(0).toInt();
    m_bytes = all.value(1).toLongLong();
    m_log = note(logNote);
    m_dropped = note(droppedNote).toLongLong();
    return true;
}

bool Outbox::renewLog()
{
    m_log = QUuid::createUuid().toString(QUuid::Id128);
    return setNote({logNote, m_log});
}

qint64 Outbox::newest()
{
    return m_database->value(QStringLiteral("SELECT max(seq) FROM sqlite_sequence")).toLongLong();
}

bool Outbox::add(const QString &kind, const QByteArray &content, const Note &note)
{
    const bool done = m_database->atOnce([&] {
        if (!m_database->run(QStringLiteral("INSERT INTO entry (kind, content) VALUES (?, ?)"),
                             {kind, content})
            || (!note.name.isEmpty() && !setNote(note)))
            return false;
        ++m_count;
        m_bytes += content.size();
        return dropOldest();
    });
    if (!done)
        load(); // what was counted in vain
    return done;
}

bool Outbox::dropOldest()
{
    const qint64 before = m_dropped;
    while (m_count > 1 && (m_count > m_bounds.entries || m_bytes > m_bounds.bytes)) {
        QSqlQuery oldest = m_database->select(QStringLiteral(
            "SELECT sequence, length(content) FROM entry ORDER BY sequence LIMIT 1"));
        if (!m_database->next(oldest))
            return false;
        const qint64 bytes = oldest.value(1).toLongLong();
        if (!m_database->run(QStringLiteral("DELETE FROM entry WHERE sequence = ?"),
                             {oldest.value(0)}))
            return false;
        --m_count;
        m_bytes -= bytes;
        ++m_dropped;
    }
    return m_dropped == before || setNote({droppedNote, QString::number(m_dropped)});
}

bool Outbox::setNote(const Note &note)
{
    return m_database->run(QStringLiteral("INSERT OR REPLACE INTO note VALUES (?, ?)"),
                           {note.name, note.value});
}

QString Outbox::note(const QString &name)
{
    return m_database->value(QStringLiteral("SELECT value FROM note WHERE name = ?"), {name})
        .toString();
}

QVector<Outbox::Entry> Outbox::after(qint64 sequence, int most)
{
    QSqlQuery query = m_database->select(
        QStringLiteral("SELECT sequence, (SELECT max(sequence) FROM entry before"
                       " WHERE before.sequence < entry.sequence), kind, content"
                       " FROM entry WHERE sequence > ? ORDER BY sequence LIMIT ?"),
        {sequence, most});
    QVector<Entry> entries;
    while (m_database->next(query))
        entries.append({query.value(0).toLongLong(), query.value(1).toLongLong(),
                        query.value(2).toString(), query.value(3).toByteArray()});
    return entries;
}

int Outbox::countUpTo(qint64 sequence)
{
    return m_database
        ->value(QStringLiteral("SELECT count(*) FROM entry WHERE sequence <= ?"), {sequence})
        .toInt();
}

bool Outbox::forgetUpTo(qint64 sequence)
{
    const bool done =
        m_database->run(QStringLiteral("DELETE FROM entry WHERE sequence <= ?"), {sequence});
    return load() && done;
}

} // namespace welmo::book
