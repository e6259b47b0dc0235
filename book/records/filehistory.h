#pragma once

#include <QHash>

#include "book/records/database.h"

namespace welmo::book {

/// A file as it was from one moment on.
struct FileVersion
{
    QString file;
    qint64 number = 0; ///< counts from 1 for each file
    qint64 time = 0; ///< ms UTC when the book heard of it
    QString user; ///< null where nobody told
    QByteArray content; ///< as of contentJson(); null: there was no such file

    bool exists() const { return !content.isEmpty(); }
};

/// Every version of every parameter file that the book heard of.
class FileHistory
{
public:
    /// Older ones of a file give way.
    static constexpr int mostVersions = 500;

    explicit FileHistory(Database &database)
        : m_database(database)
    { }

    /// False, with the database's errorText(), when it could not be kept.
    bool add(const FileVersion &version);
    bool setUser(const QString &file, qint64 number, const QString &user);
    /// Newest first.
    QVector<FileVersion> versions(const QString &file);
    /// The newest one of each file.
    QVector<FileVersion> newest();
    /// In how many welds each file was used.
    QHash<QString, int> welds();

private:
    QVector<FileVersion> read(const QString &sql, const QVariantList &values = {});

    Database &m_database;
};

} // namespace welmo::book
