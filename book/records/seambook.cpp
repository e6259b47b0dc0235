#include "book/records/seambook.h"

#include <algorithm>
#include <limits>

#include "book/records/columns.h"
#include "book/records/limitsjson.h"
#include "book/records/seamrecorder.h"

namespace welmo::book {

namespace {

// "user" is a word of SQL.
QString quoted(const Column &column)
{
    return QLatin1Char('"') + column.name + QLatin1Char('"');
}

QString columnNames()
{
    QStringList names;
    for (const Column &column : seamColumns())
        names.append(quoted(column));
    return names.join(QLatin1String(", "));
}

struct Where
{
    QString sql;
    QVariantList values;

    void add(const QString &condition, const QVariant &value)
    {
        sql += (sql.isEmpty() ? QLatin1String(" WHERE ") : QLatin1String(" AND ")) + condition;
        values.append(value);
    }
};

Where whereOf(const Filter &filter)
{
    Where where;
    if (filter.from > 0)
        where.add(QStringLiteral("started >= ?"), filter.from);
    if (filter.until > 0)
        where.add(QStringLiteral("started < ?"), filter.until);
    if (!filter.cell.isEmpty())
        where.add(QStringLiteral("cell = ?"), filter.cell);
    if (!filter.program.isEmpty())
        where.add(QStringLiteral("program = ?"), filter.program);
    if (!filter.file.isEmpty())
        where.add(QStringLiteral("weld_file = ?"), filter.file);
    if (filter.verdict)
        where.add(QStringLiteral("verdict = ?"), static_cast<int>(*filter.verdict));
    if (filter.realOnly)
        where.add(QStringLiteral("coalesce(mode, 'real') = ?"), QStringLiteral("real"));
    return where;
}

} // namespace

bool SeamBook::begin(Seam *seam)
{
    QStringList marks;
    QVariantList values;
    for (const Column &column : seamColumns()) {
        marks.append(QStringLiteral("?"));
        values.append(column.get(*seam));
    }
    const QSqlQuery insert =
        m_database->select(QStringLiteral("INSERT INTO seam (%1) VALUES (%2)")
                               .arg(columnNames(), marks.join(QLatin1Char(','))),
                           values);
    if (!insert.isActive())
        return false;
    seam->id = insert.lastInsertId().toLongLong();
    return true;
}

bool SeamBook::append(qint64 seam, const Samples &more)
{
    return m_database->run(
        QStringLiteral("INSERT INTO course (seam, part, data) VALUES (?,"
                       " (SELECT coalesce(max(part), 0) + 1 FROM course WHERE seam = ?), ?)"),
        {seam, seam, packed(more)});
}

bool SeamBook::finish(const Seam &seam)
{
    return m_database->atOnce([&] {
        int parts = 0;
        const Samples all = samples(seam.id, &parts);
        return store(seam) && (parts < 2 || replaceCourse(seam.id, all));
    });
}

int SeamBook::closeInterrupted()
{
    QSqlQuery query = m_database->select(
        QStringLiteral("SELECT id, %1 FROM seam WHERE ended IS NULL").arg(columnNames()));
    if (!query.isActive())
        return -1;
    const QVector<Seam> open = read(query);
    for (Seam seam : open) {
        completeFromCourse(&seam, samples(seam.id));
        seam.ended = ending::interrupted;
        Judge(limits(seam.weldFile)).conclude(&seam);
        if (!finish(seam))
            return -1;
    }
    return open.size();
}

bool SeamBook::store(const Seam &seam)
{
    QStringList settings;
    QVariantList values;
    for (const Column &column : seamColumns()) {
        settings.append(quoted(column) + QLatin1String(" = ?"));
        values.append(column.get(seam));
    }
    values.append(seam.id);
    return m_database->run(
        QStringLiteral("UPDATE seam SET %1 WHERE id = ?").arg(settings.join(QLatin1String(", "))),
        values);
}

bool SeamBook::replaceCourse(qint64 seam, const Samples &samples)
{
    return m_database->run(QStringLiteral("DELETE FROM course WHERE seam = ?"), {seam})
        && m_database->run(QStringLiteral("INSERT INTO course VALUES (?, 1, ?)"),
                           {seam, packed(samples)});
}

QVector<Seam> SeamBook::read(QSqlQuery &query)
{
    QVector<Seam> seams;
    while (m_database->next(query)) {
        Seam seam;
        int column = 0;
        seam.id = query.value(column++).toLongLong();
        for (const Column &entry : seamColumns())
            entry.set(seam, query.value(column++));
        seams.append(seam);
    }
    return seams;
}

QVector<Seam> SeamBook::list(const Filter &filter, int limit, int offset)
{
    const Where where = whereOf(filter);
    const QString part =
        limit < 0 ? QString() : QStringLiteral(" LIMIT %1 OFFSET %2").arg(limit).arg(offset);
    QSqlQuery query = m_database->select(
        QStringLiteral("SELECT id, %1 FROM seam%2 ORDER BY started DESC, id DESC%3")
            .arg(columnNames(), where.sql, part),
        where.values);
    return read(query);
}

int SeamBook::count(const Filter &filter)
{
    const Where where = whereOf(filter);
    return m_database->value(QStringLiteral("SELECT count(*) FROM seam") + where.sql, where.values)
        .toInt();
}

std::optional<Seam> SeamBook::seam(qint64 id)
{
    QSqlQuery query = m_database->select(
        QStringLiteral("SELECT id, %1 FROM seam WHERE id = ?").arg(columnNames()), {id});
    const QVector<Seam> found = read(query);
    return found.isEmpty() ? std::nullopt : std::optional<Seam>(found.first());
}

Samples SeamBook::samples(qint64 seam, int *parts)
{
    QSqlQuery query = m_database->select(
        QStringLiteral("SELECT data FROM course WHERE seam = ? ORDER BY part"), {seam});
    Samples all;
    int count = 0;
    for (; m_database->next(query); ++count)
        all += unpacked(query.value(0).toByteArray());
    if (parts)
        *parts = count;
    return all;
}

Course SeamBook::course(qint64 seam)
{
    const int rate =
        m_database->value(QStringLiteral("SELECT course_rate FROM seam WHERE id = ?"), {seam})
            .toInt();
    return {rate > 0 ? rate : Course::fullRate, samples(seam)};
}

// Jumps from name to name in the index instead of reading every record.
QStringList SeamBook::distinct(const QString &column)
{
    QSqlQuery query = m_database->select(
        QStringLiteral("WITH RECURSIVE name(n) AS (SELECT min(%1) FROM seam UNION ALL"
                       " SELECT (SELECT min(%1) FROM seam WHERE %1 > n) FROM name"
                       " WHERE n IS NOT NULL) SELECT n FROM name WHERE n IS NOT NULL")
            .arg(column));
    QStringList names;
    while (m_database->next(query))
        names.append(query.value(0).toString());
    return names;
}

QStringList SeamBook::programs()
{
    return distinct(QStringLiteral("program"));
}

QStringList SeamBook::files()
{
    return distinct(QStringLiteral("weld_file"));
}

Limits SeamBook::limits(const QString &file)
{
    const QVariant content =
        m_database->value(QStringLiteral("SELECT content FROM limits WHERE file = ?"), {file});
    return limitsFromJson(file, content.toByteArray());
}

QVector<Limits> SeamBook::allLimits()
{
    QSqlQuery query = m_database->select(QStringLiteral("SELECT file, content FROM limits"));
    QVector<Limits> all;
    while (m_database->next(query))
        all.append(limitsFromJson(query.value(0).toString(), query.value(1).toByteArray()));
    return all;
}

bool SeamBook::setLimits(const Limits &limits)
{
    if (!limits.areSet())
        return m_database->run(QStringLiteral("DELETE FROM limits WHERE file = ?"), {limits.file});
    return m_database->run(QStringLiteral("INSERT INTO limits VALUES (?, ?) ON CONFLICT (file)"
                                          " DO UPDATE SET content = excluded.content"),
                           {limits.file, QString::fromUtf8(toJson(limits))});
}

int SeamBook::thin(qint64 olderThan, qint64 bytes, int most)
{
    const bool isTooLarge = bytes != anySize && usedBytes() > bytes;
    QSqlQuery query = m_database->select(
        QStringLiteral("SELECT id FROM seam WHERE course_rate = %1 AND ended IS NOT NULL"
                       " AND started < ? ORDER BY started LIMIT %2")
            .arg(Course::fullRate)
            .arg(most),
        {isTooLarge ? std::numeric_limits<qint64>::max() : olderThan});
    QVector<qint64> due;
    while (m_database->next(query))
        due.append(query.value(0).toLongLong());
    const bool done = m_database->atOnce([&] {
        return std::all_of(due.begin(), due.end(), [this](qint64 id) { return thinOne(id); });
    });
    return done ? due.size() : 0;
}

// Somebody else may have done it meanwhile: who changes the rate does the work.
bool SeamBook::thinOne(qint64 seam)
{
    const QSqlQuery changed =
        m_database->select(QStringLiteral("UPDATE seam SET course_rate = ?"
                                          " WHERE id = ? AND course_rate = ?"),
                           {Course::thinRate, seam, Course::fullRate});
    if (!changed.isActive() || changed.numRowsAffected() == 0)
        return changed.isActive();
    return replaceCourse(seam, thinned(samples(seam), Course::fullRate / Course::thinRate));
}

qint64 SeamBook::usedBytes()
{
    const qint64 pages = m_database->value(QStringLiteral("PRAGMA page_count")).toLongLong()
        - m_database->value(QStringLiteral("PRAGMA freelist_count")).toLongLong();
    return pages * m_database->value(QStringLiteral("PRAGMA page_size")).toLongLong();
}

QString SeamBook::setting(const QString &name)
{
    return m_database->value(QStringLiteral("SELECT value FROM setting WHERE name = ?"), {name})
        .toString();
}

bool SeamBook::setSetting(const QString &name, const QString &value)
{
    return m_database->run(QStringLiteral("INSERT OR REPLACE INTO setting VALUES (?, ?)"),
                           {name, value});
}

} // namespace welmo::book
