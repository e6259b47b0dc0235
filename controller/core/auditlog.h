#pragma once

#include <QVector>

#include "controller/core/database.h"

namespace welmo::controller {

/// A table of the store: who changed what, in order. The oldest records give way to the newest, by
/// number and by size. Each record carries a seal over itself and the seal before it, so that one
/// that was changed, taken out or put in by another hand shows.
class AuditLog
{
public:
    struct Record
    {
        qint64 number = 0; ///< counts up from 1, for ever; append() gives it
        QString time = {};
        QString user = {};
        QString client = {};
        QString path = {};
        QString key = {};
        qint64 revision = 0; ///< that the entry has since
        QByteArray content = {}; ///< JSON
    };

    static constexpr qint64 mostRecords = 5000;
    static constexpr qint64 mostBytes = qint64(4) * 1024 * 1024; ///< of contents

    /// The database is borrowed, and has the table.
    explicit AuditLog(Database &database);

    /// Reads where the log stands, at the start and after a transaction that came to nothing.
    bool load();
    /// Within a transaction of the caller's.
    bool append(Record record);
    /// The newest record about an entry; its number is 0 when there is none.
    Record lastOf(const QString &path, const QString &key) const;
    /// Every record about an entry, oldest first.
    QVector<Record> historyOf(const QString &path, const QString &key) const;
    /// The newest records with a number below @p before, newest first: at most @p count, and no
    /// more contents than @p bytes, but at least one.
    QVector<Record> page(qint64 before, int count, int bytes) const;
    qint64 firstNumber() const { return m_first; }
    /// The seal of the newest record: who keeps it elsewhere can prove the log up to there.
    QString seal() const { return m_seal; }
    /// The number of the first record whose seal does not fit; 0 when all do.
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
