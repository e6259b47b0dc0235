#pragma once

#include <QHash>

#include "book/records/database.h"

namespace welmo::book {

/// A file's content from one moment on.
struct FileVersion
{
    QString file;
    qint64 number = 0; ///< counts from 1 for each file
    qint64 time = 0; ///< ms UTC when the book was notified
    QString user; ///< null if unknown
    QByteArray content; ///< see contentJson(); null if the file did not exist

    bool exists() const { return !content.isEmpty(); }
};

/// All versions of the parameter files that the book was notified of.
class FileHistory
{
public:
    /// A file's older versions are dropped.
    static constexpr int mostVersions = 500;

    explicit FileHistory(Database &database)
        : m_database(database)
    { }

    /// On failure false, with the database's errorText().
    bool add(const FileVersion &version);
    bool setUser(const QString &file, qint64 number, const QString &user);
    /// Newest first.
    QVector<FileVersion> versions(const QString &file);
    /// The newest version of each file.
    QVector<FileVersion> newest();
    /// The number of welds in which each file was used.
    QHash<QString, int> welds();

private:
    QVector<FileVersion> read(const QString &sql, const QVariantList &values = {});

    Database &m_database;
};

} // namespace welmo::book
