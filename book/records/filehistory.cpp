#include "book/records/filehistory.h"

namespace welmo::book {

bool FileHistory::add(const FileVersion &version)
{
    return m_database.atOnce([&] {
        return m_database.run(QStringLiteral("INSERT OR REPLACE INTO version"
                                             " (file, number, time, user, content)"
                                             " VALUES (?, ?, ?, ?, ?)"),
                              {version.file, version.number, version.time, version.user,
                               version.exists() ? QVariant(QString::fromUtf8(version.content))
                                                : QVariant(QVariant::String)})
            && m_database.run(QStringLiteral("DELETE FROM version WHERE file = ? AND number <= ?"),
                              {version.file, version.number - mostVersions});
    });
}

bool FileHistory::setUser(const QString &file, qint64 number, const QString &user)
{
    return m_database.run(
        QStringLiteral("UPDATE version SET user = ? WHERE file = ? AND number = ?"),
        {user, file, number});
}

QVector<FileVersion> FileHistory::versions(const QString &file)
{
    return read(QStringLiteral("SELECT file, number, time, user, content FROM version"
                               " WHERE file = ? ORDER BY number DESC"),
                {file});
}

// SQLite takes the other columns from the row with the maximum.
QVector<FileVersion> FileHistory::newest()
{
    return read(QStringLiteral("SELECT file, max(number), time, user, content FROM version"
                               " GROUP BY file"));
}

QHash<QString, int> FileHistory::welds()
{
    QHash<QString, int> counts;
    for (const char *column : {"arcon_file", "weld_file", "arcoff_file"}) {
        QSqlQuery query = m_database.select(
            QStringLiteral("SELECT %1, count(*) FROM seam WHERE %1 IS NOT NULL GROUP BY 1")
                .arg(QLatin1String(column)));
        while (m_database.next(query))
            counts[query.value(0).toString()] += query.value(1).toInt();
    }
    return counts;
}

QVector<FileVersion> FileHistory::read(const QString &sql, const QVariantList &values)
{
    QSqlQuery query = m_database.select(sql, values);
    QVector<FileVersion> all;
    while (m_database.next(query))
        all.append({query.value(0).toString(), query.value(1).toLongLong(),
                    query.value(2).toLongLong(), query.value(3).toString(),
                    query.value(4).toByteArray()});
    return all;
}

} // namespace welmo::book
