#pragma once

#include <QCache>
#include <QStringList>
#include <QVariant>
#include <QVector>
#include <functional>
#include <map>
#include <memory>
#include <optional>

#include "controller/core/database.h"

namespace welmo::controller {

/// What outlives the controller: one value for each (path, key). What a call acknowledged is on
/// disk. Values are plain (see isPlain()); their types come back as json.h says. One thread.
class Store
{
public:
    struct Entry
    {
        QVariant value; ///< invalid: not there, or removed
        qint64 revision = 0; ///< one more with each write or removal; 0: never written
    };
    struct Change
    {
        QString path;
        QString key;
        QVariant value; ///< invalid: the entry is removed
    };

    /// Opens or creates the store; null with one line in @p problem, see Database::open().
    static std::unique_ptr<Store> open(const QString &file, QString *problem);
    static std::unique_ptr<Store> inMemory();

    /// The entry, which may be "not there"; nothing at all when reading failed.
    std::optional<Entry> read(const QString &path, const QString &key) const;
    /// The entry's revision, without taking its value apart; nothing at all when reading failed.
    std::optional<qint64> revision(const QString &path, const QString &key) const;
    /// Every entry of @p path that is there, by key; nothing at all when reading failed.
    std::optional<std::map<QString, Entry>> readAll(const QString &path) const;
    /// Writes all or none of the changes.
    bool write(const QVector<Change> &changes);
    /// Removes all or none of the entries; one that is not there is no failure.
    bool remove(const QString &path, const QStringList &keys);
    /// Why the last operation failed.
    QString errorText() const { return m_errorText; }

private:
    explicit Store(std::unique_ptr<Database> database);
    bool inTransaction(const std::function<bool()> &work);
    bool failed(const QString &text = QString()) const;
    std::optional<Entry> entryFrom(const Statement &row, int column) const;

    std::unique_ptr<Database> m_database;
    mutable Statement m_read;
    mutable Statement m_readRevision;
    mutable Statement m_readAll;
    Statement m_write;
    Statement m_remove;
    // By their text: to take it apart costs more than to read it.
    mutable QCache<QByteArray, QVariant> m_values{256};
    mutable QString m_errorText;
};

} // namespace welmo::controller
