#include "book/plant/planttables.h"

namespace welmo::book {

namespace {

// Where an entry comes from is the key of each table, so that none can be there twice.
QString declaration(const ListTable &table)
{
    QStringList columns;
    for (const ListTable::Value &value : table.values)
        columns.append(
            QStringLiteral("%1 %2").arg(QLatin1String(value.column), QLatin1String(value.type)));
    return QStringLiteral("%1 (cell TEXT NOT NULL, log TEXT NOT NULL, sequence BIGINT NOT NULL, %2,"
                          " PRIMARY KEY (cell, log, sequence))")
        .arg(table.kind, columns.join(QStringLiteral(", ")));
}

QStringList tables()
{
    QStringList all{
        QStringLiteral("seam (id INTEGER PRIMARY KEY, course_rate INTEGER NOT NULL DEFAULT 10,"
                       " cell TEXT, log TEXT, sequence BIGINT, UNIQUE (cell, log, sequence))"),
        QStringLiteral("course (seam INTEGER NOT NULL, part INTEGER NOT NULL, data BLOB NOT NULL,"
                       " PRIMARY KEY (seam, part))"),
        QStringLiteral("limits (file TEXT PRIMARY KEY, content TEXT NOT NULL)"),
        QStringLiteral("taken (cell TEXT NOT NULL, log TEXT NOT NULL, sequence BIGINT NOT NULL,"
                       " dropped BIGINT NOT NULL, PRIMARY KEY (cell, log))"),
        // The hour comes first, since most questions are for a time.
        QStringLiteral("seamsum (hour BIGINT NOT NULL, cell TEXT NOT NULL, verdict INTEGER NOT"
                       " NULL, seams BIGINT NOT NULL, arc_time REAL NOT NULL, wire REAL NOT NULL,"
                       " gas_time REAL NOT NULL,"
                       " PRIMARY KEY (hour, cell, verdict))"),
    };
    for (const ListTable &table : listTables())
        all.append(declaration(table));
    return all;
}

QStringList indices()
{
    return {QStringLiteral("seam_started ON seam (started, cell, verdict)"),
            QStringLiteral("seam_rate ON seam (course_rate, started)"),
            QStringLiteral("seam_cell ON seam (cell, started)"),
            QStringLiteral("seamsum_cell ON seamsum (cell, hour)"),
            QStringLiteral("alarm_time ON alarm (time)"),
            QStringLiteral("alarm_cell ON alarm (cell, time)"),
            QStringLiteral("state_time ON state (cell, time)"),
            QStringLiteral("change_time ON change (time)"),
            QStringLiteral("change_cell ON change (cell, time)")};
}

// Books of version 1 have seams, but no sums.
QString sumsOfSeams()
{
    return QStringLiteral("INSERT INTO seamsum SELECT started - started % %1, cell,"
                          " coalesce(verdict, 0), count(*), coalesce(sum(arc_time), 0),"
                          " coalesce(sum(wire), 0), coalesce(sum(gas_time), 0) FROM seam"
                          " WHERE cell IS NOT NULL GROUP BY 1, 2, 3")
        .arg(hourMs);
}

} // namespace

const std::vector<ListTable> &listTables()
{
    static const std::vector<ListTable> tables{
        {kind::alarm,
         {{"time", "time", "BIGINT"},
          {"code", "code", "TEXT"},
          {"arguments", "arguments", "TEXT"},
          {"program", "program", "TEXT"},
          {"line", "line", "INTEGER"},
          {"file", "file", "TEXT"}}},
        {kind::state, {{"time", "time", "BIGINT"}, {"state", "state", "TEXT"}}},
        {kind::change,
         {{"time", "time", "BIGINT"},
          {"user", "author", "TEXT"},
          {"path", "path", "TEXT"},
          {"key", "entry", "TEXT"},
          {"revision", "revision", "BIGINT"},
          {"changes", "changes", "TEXT"}}},
    };
    return tables;
}

const Schema &plantSchema()
{
    static const Schema schema{0x776C7062, // "wlpb"
                               2,          tables(), indices(), true, {{2, sumsOfSeams()}}};
    return schema;
}

} // namespace welmo::book
