#pragma once

#include <QVector>

#include "book/records/database.h"

namespace welmo::book {

/// What a cell has to hand over to a plant's recorder, kept on the disk until it is taken: entries
/// in order, of a bounded number and size. What does not fit any more drops the oldest ones, which
/// are counted.
class Outbox
{
public:
    struct Bounds
    {
        int entries = 5000;
        qint64 bytes = qint64(16) * 1024 * 1024;
    };
    struct Entry
    {
        qint64 sequence = 0; ///< counts up from 1
        qint64 after = 0; ///< the sequence of the entry before, as long as that is kept; else 0
        QString kind;
        QByteArray content; ///< JSON
    };
    /// A text that the outbox keeps beside its entries, under a name.
    struct Note
    {
        QString name;
        QString value;
    };

    /// Null, with a line in @p problem, if the file cannot be used.
    static std::unique_ptr<Outbox> open(const QString &file, QString *problem, Bounds bounds);

    /// Random, made with the file: sequences of another log mean nothing.
    QString log() const { return m_log; }
    /// Gives the entries a new log, since their sequences were used for others before.
    bool renewLog();
    /// How many entries were lost since the file was made.
    qint64 dropped() const { return m_dropped; }
    /// The sequence of the newest entry ever added.
    qint64 newest();

    /// Adds an entry and sets a note, both or none. On failure false, with errorText().
    bool add(const QString &kind, const QByteArray &content, const Note &note = {});
    bool setNote(const Note &note);
    QString note(const QString &name);

    /// The entries after that sequence, oldest first.
    QVector<Entry> after(qint64 sequence, int most);
    int countUpTo(qint64 sequence);
    /// Removes the entries up to that sequence.
    bool forgetUpTo(qint64 sequence);

    QString errorText() const { return m_database->errorText(); }

private:
    Outbox(std::unique_ptr<Database> database, Bounds bounds)
        : m_database(std::move(database))
        , m_bounds(bounds)
    { }
    bool load();
    bool dropOldest();

    std::unique_ptr<Database> m_database;
    const Bounds m_bounds;
    QString m_log;
    int m_count = 0;
    qint64 m_bytes = 0;
    qint64 m_dropped = 0;
};

} // namespace welmo::book
