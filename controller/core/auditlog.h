#pragma once

#include <QVector>

#include "controller/core/database.h"

namespace welmo::controller {

/// A table of the store: who changed what, in order. The oldest records are dropped, by number and
/// by size. Each record carries a seal over itself and the seal before it, so that a record that
/// was changed, removed or inserted from outside shows.
class AuditLog
{
public:
    struct Record
    {
        qint64 number = 0; ///< counts up from 1 without end; set by append()
        QString time = {};
        QString user = {};
        QString client = {};
        QString path = {};
        QString key = {};
        qint64 revision = 0; ///< the entry's revision after the change
        QByteArray content = {}; ///< JSON
    };

    static constexpr qint64 mostRecords = 5000;
    static constexpr qint64 mostBytes = qint64(4) * 1024 * 1024; ///< all contents together

    /// The database must outlive the log, and have its table.
    explicit AuditLog(Database &database);

    /// Reads the log's position, at the start and after a transaction that was rolled back.
    bool load();
    /// To be called within a transaction.
    bool append(Record record);
    /// The newest record of an entry; its number is 0 if there is none.
    Record lastOf(const QString &path, const QString &key) const;
    /// Every record of an entry, oldest first.
    QVector<Record> historyOf(const QString &path, const QString &key) const;
    /// The newest records with a number below @p before, newest first: at most @p count with @p
    /// bytes of contents, but at least one.
    QVector<Record> page(qint64 before, int count, int bytes) const;
    qint64 firstNumber() const { return m_first; }
    /// The newest record's seal; a copy kept elsewhere can prove the log up to there.
    QString seal() const { return m_seal; }
    /// The number of the first record whose seal does not match; 0 if all do.
    qint64 firstBroken() const;

private:
    bool makeRoom();
    bool dropOldest();

    Database &m_database;
    mutable Statement m_insert;
    mutable Statement m_last;
    mutable Statement m_page;
    mutable Statement m_oldest;
    mutable Statement m_drop;
    qint64 m_first = 1;
    qint64 m_next = 1;
    qint64 m_bytes = 0;
    QString m_seal;
};

} // namespace welmo::controller
