#pragma once

#include <QAbstractTableModel>
#include <QDateTime>
#include <QVector>

namespace tessa {

/// The pendant's message log, newest first: a model that a window can show. Bounded; the oldest
/// message goes when it is full.
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
    };
    enum Column { Time, Level, Text, ColumnCount };
    enum Role { LevelRole = Qt::UserRole, SenderRole };

    static constexpr int capacity = 1000;

    using QAbstractTableModel::QAbstractTableModel;

    void append(const QObject *sender, const QString &level, const QString &text);
    const QVector<Entry> &entries() const { return m_entries; }
    void clear();

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

signals:
    void appended(const QString &level, const QString &text);

private:
    QVector<Entry> m_entries;
};

} // namespace tessa
