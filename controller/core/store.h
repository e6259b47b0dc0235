#pragma once

#include <QCache>
#include <QStringList>
#include <QVariant>
#include <QVector>
#include <functional>
#include <map>
#include <memory>
#include <optional>

#include "controller/core/storefile.h"

namespace welmo::controller {

/// What the controller keeps across restarts: one value for each (path, key). When a call has
/// succeeded its changes are on the disk. Values are plain (see isPlain()); their types come back
/// as json.h says. For one thread.
class Store
{
public:
    struct Entry
    {
        QVariant value; ///< invalid: never written, or removed
        qint64 revision = 0; ///< one more with each write or removal; 0: never written
    };
    struct Change
    {
        QString path;
        QString key;
        QVariant value; ///< invalid: the entry is removed
    };
    /// Called with each change inside its transaction, with the entry before it (without a value if
    /// that was damaged). If it returns false none of the changes is written.
    using Witness = std::function<bool(const Change &change, const Entry &before)>;

    /// Opens or creates the store; null with one line in @p problem, see StoreFile::open().
    static std::unique_ptr<Store> open(const QString &file, QString *problem);
    /// As StoreFile::openToRead(); nothing can be written.
    static std::unique_ptr<Store> openToRead(const QString &file, QString *problem);
    static std::unique_ptr<Store> inMemory();

    /// Different for each store that was made or restored: revisions are only comparable within
    /// one.
    const QString &identity() const { return m_identity; }
    /// Path and key of an entry.
    struct Place
    {
        QString path;
        QString key;
    };
    /// What was found damaged when the store was opened, a line each.
    const QStringList &complaints() const { return m_complaints; }
    /// The damaged entries among them: they cannot be read, only written anew.
    const QVector<Place> &damaged() const { return m_damaged; }

    /// The entry, which may have no value; empty if reading failed.
    std::optional<Entry> read(const QString &path, const QString &key) const;
    /// The entry's revision, without parsing its value; empty if reading failed.
    std::optional<qint64> revision(const QString &path, const QString &key) const;
    /// Every entry of @p path that has a value and is not damaged, by key; empty if reading failed.
    std::optional<std::map<QString, Entry>> readAll(const QString &path) const;
    /// Whether this value is what a damaged entry held, as far as its checksum can tell.
    bool wasStored(const Change &entry) const;
    /// Writes all of the changes or none.
    bool write(const QVector<Change> &changes, const Witness &witness = {});
    /// Removes all of the entries or none; a missing entry is no failure.
    bool remove(const QString &path, const QStringList &keys);
    /// Why the last operation failed.
    QString errorText() const { return m_errorText; }
    /// For tables beside the entries, which change within write().
    Database &database() { return *m_database; }

private:
    struct Row
    {
        bool there = false; // false if it never was written, or was removed
        qint64 revision = 0;
        qint64 sum = 0;
    };

    explicit Store(std::unique_ptr<StoreFile> database);
    static std::unique_ptr<Store> loaded(std::unique_ptr<StoreFile> database, const QString &file,
                                         QString *problem);
    bool inTransaction(const std::function<bool()> &work);
    bool failed(const QString &text = QString()) const;
    /// Makes an entry of the columns path, key, value, revision and sum.
    std::optional<Entry> entryFrom(const Statement &row) const;
    QString load();
    bool writeOne(const Change &change, const Witness &witness);
    bool put(const Change &change, qint64 revision, qint64 sumBefore);
    std::optional<Row> rowOf(const Change &change) const;

    std::unique_ptr<StoreFile> m_database;
    mutable Statement m_read;
    mutable Statement m_readAll;
    mutable Statement m_readRow;
    Statement m_write;
    QString m_identity;
    QStringList m_complaints;
    QVector<Place> m_damaged;
    quint64 m_sum = 0; // of the checksums of all rows
    // Values by their JSON text, since parsing costs more than reading the row.
    mutable QCache<QByteArray, QVariant> m_values{256};
    mutable QString m_errorText;
};

} // namespace welmo::controller
