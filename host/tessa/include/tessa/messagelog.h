#pragma once

#include <QAbstractTableModel>
#include <QDateTime>
#include <QFile>
#include <QVector>

namespace tessa {

/// The pendant's message log, newest first, as a model for views. Its size is limited; the oldest
/// message is dropped. With keepIn() it lasts over restarts, including which messages were seen.
class MessageLog : public QAbstractTableModel
{
    Q_OBJECT
public:
    struct Entry
    {
        QDateTime time;
        QString level; ///< "error", "warning" or "info"
        QString text;
        QString sender; ///< the reporting object's name; empty if it has none
        bool old = false; ///< from an earlier run of the program
        QVariant source = {}; ///< what the text was made of, see kelp::TextSources
    };
    enum Column { Time, Level, Text, Sender, ColumnCount };
    enum Role { LevelRole = Qt::UserRole, SenderRole };

    static constexpr int capacity = 1000;

    using QAbstractTableModel::QAbstractTableModel;

    /// Loads the messages in the file, and keeps all further ones there.
    void keepIn(const QString &file);
    void append(const QObject *sender, const QString &level, const QString &text);
    /// Shows what was loaded in the present language; to be called once all translations are
    /// installed.
    void translateOld();
    const QVector<Entry> &entries() const { return m_entries; }
    void clear();
    /// The number of errors since the log was last looked at.
    int unseenErrors() const { return m_unseen; }
    /// The newest of them; null if there is none.
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
    int m_lines = 0; // in the file
};

} // namespace tessa
