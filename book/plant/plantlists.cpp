#include <QJsonArray>
#include <QJsonDocument>

#include "book/plant/plantbook.h"

// What a plant's book is asked.
namespace welmo::book {

namespace {

QVariantList listOf(const QVariant &json)
{
    return QJsonDocument::fromJson(json.toByteArray()).array().toVariantList();
}

// A question for a time, and perhaps for one cell.
struct Span
{
    QString sql;
    QVariantList values;

    Span(const QString &column, qint64 from, qint64 until, const QString &cell)
        : sql(QStringLiteral(" WHERE %1 >= ? AND %1 < ?").arg(column))
        , values{from, until}
    {
        if (cell.isEmpty())
            return;
        sql += QStringLiteral(" AND cell = ?");
        values.append(cell);
    }
};

// The newest rows of one of listTables(): cell and time, then the columns.
QSqlQuery newest(Database &database, const QString &table, const QString &columns, Span span,
                 int most)
{
    span.values.append(most);
    return database.select(
        QStringLiteral("SELECT cell, time, %1 FROM %2%3 ORDER BY time DESC, cell, sequence DESC"
                       " LIMIT ?")
            .arg(columns, table, span.sql),
        span.values);
}

} // namespace

QVector<PlantBook::Sum> PlantBook::sums(qint64 from, qint64 until, const QString &cell, SumOf of)
{
    const Span span(QStringLiteral("hour"), from, until, cell);
    QStringList keys{QStringLiteral("hour"), QStringLiteral("cell"), QStringLiteral("verdict")};
    if (of != SumOf::CellAndHour)
        keys.removeAt(of == SumOf::Hour ? 1 : 0);
    QSqlQuery rows = database().select(
        QStringLiteral("SELECT %1, %2, verdict, CAST(sum(seams) AS BIGINT), sum(arc_time),"
                       " sum(wire), sum(gas_time) FROM seamsum%3 GROUP BY %4 ORDER BY %4")
            .arg(of == SumOf::Hour ? QStringLiteral("''") : QStringLiteral("cell"),
                 of == SumOf::Cell ? QStringLiteral("0") : QStringLiteral("hour"), span.sql,
                 keys.join(QStringLiteral(", "))),
        span.values);
    QVector<Sum> sums;
    while (database().next(rows)) {
        const int verdict = qBound(0, rows.value(2).toInt(), static_cast<int>(Verdict::Red));
        sums.append({rows.value(0).toString(), rows.value(1).toLongLong(),
                     static_cast<Verdict>(verdict), rows.value(3).toLongLong(),
                     rows.value(4).toDouble(), rows.value(5).toDouble(), rows.value(6).toDouble()});
    }
    return sums;
}

QVector<PlantBook::Alarm> PlantBook::alarms(qint64 from, qint64 until, const QString &cell,
                                            int most)
{
    QSqlQuery rows =
        newest(database(), kind::alarm, QStringLiteral("code, arguments, program, line, file"),
               {QStringLiteral("time"), from, until, cell}, most);
    QVector<Alarm> alarms;
    while (database().next(rows))
        alarms.append({rows.value(0).toString(), rows.value(1).toLongLong(),
                       rows.value(2).toString(), listOf(rows.value(3)), rows.value(4).toString(),
                       rows.value(5).toInt(), rows.value(6).toString()});
    return alarms;
}

QVector<PlantBook::Change> PlantBook::changes(qint64 from, qint64 until, const QString &cell,
                                              int most)
{
    QSqlQuery rows =
        newest(database(), kind::change, QStringLiteral("author, path, entry, revision, changes"),
               {QStringLiteral("time"), from, until, cell}, most);
    QVector<Change> changes;
    while (database().next(rows))
        changes.append({rows.value(0).toString(), rows.value(1).toLongLong(),
                        rows.value(2).toString(), rows.value(3).toString(),
                        rows.value(4).toString(), rows.value(5).toLongLong(),
                        listOf(rows.value(6))});
    return changes;
}

} // namespace welmo::book
