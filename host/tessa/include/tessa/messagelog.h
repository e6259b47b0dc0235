#pragma once

#include <QAbstractTableModel>
#include <QDateTime>
#include <QFile>
#include <QVector>

namespace tessa {

/// The pendant's message log, newest first: a model that a window can show. Bounded; the oldest
/// message goes when it is full. Kept in a file, it outlives the program, with what was seen.
class MessageLog : public QAbstractTableModel
{
    Q_OBJECT
public:
    struct Entry
    {
        QDateTime time;
        QString level; ///< "error", "warning" or "info"
        QString text;
        QString sender; ///< the reporting object's name, empty when it named none
        bool old = false; ///< from before this program was started
    };
    enum Column { Time, Level, Text, Sender, ColumnCount };
    enum Role { LevelRole = Qt::UserRole, SenderRole };

    static constexpr int capacity = 1000;

    using QAbstractTableModel::QAbstractTableModel;

    /// Takes in what the file kept, and keeps everything there from now on.
    void keepIn(const QString &file);
    void append(const QObject *sender, const QString &level, const QString &text);
    const QVector<Entry> &entries() const { return m_entries; }
    void clear();
    /// Errors since somebody last looked.
    int unseenErrors() const { return m_unseen; }
    /// The newest of them; null when there is none.
    const Entry *unseenError() const;
    void markSeen();

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

signals:
    void appended(const QString &level, const QString &text);
    void unseenChanged();

private:
    void add(const Entry &entry);
    void write(const QByteArray &line);
    void rewrite();

    QVector<Entry> m_entries;
    int m_unseen = 0;
    QFile m_file;
    int m_lines = 0; // of the file
};

} // namespace tessa
