#include "tessa/messagelog.h"

namespace tessa {

namespace {

QString nameOf(const QObject *sender)
{
    if (!sender)
        return {};
    return sender->objectName().isEmpty() ? QString::fromLatin1(sender->metaObject()->className())
                                          : sender->objectName();
}

} // namespace

void MessageLog::append(const QObject *sender, const QString &level, const QString &text)
{
    beginInsertRows({}, 0, 0);
    m_entries.prepend({QDateTime::currentDateTime(), level, text, nameOf(sender)});
    endInsertRows();
    if (m_entries.size() > capacity) {
        beginRemoveRows({}, capacity, capacity);
        m_entries.removeLast();
        endRemoveRows();
    }
    emit appended(level, text);
}

void MessageLog::clear()
{
    beginResetModel();
    m_entries.clear();
    endResetModel();
}

int MessageLog::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_entries.size();
}

int MessageLog::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant MessageLog::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= m_entries.size())
        return {};
    const Entry &entry = m_entries.at(index.row());
    if (role == LevelRole)
        return entry.level;
    if (role == SenderRole)
        return entry.sender;
    if (role != Qt::DisplayRole)
        return {};
    switch (index.column()) {
    case Time:
        return entry.time.toString(QStringLiteral("HH:mm:ss"));
    case Level:
        return entry.level;
    default:
        return entry.text;
    }
}

QVariant MessageLog::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return {};
    const QString titles[ColumnCount] = {tr("Time"), tr("Level"), tr("Message")};
    return section < ColumnCount ? titles[section] : QVariant();
}

} // namespace tessa
