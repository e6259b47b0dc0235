#include "pendant/state/messagemodel.h"

#include "pendant/theme/look.h"
#include "tessa/messagelog.h"

namespace welmo::pendant {

using tessa::MessageLog;

QString levelText(const QString &level)
{
    if (level == QLatin1String("error"))
        return MessageModel::tr("Error");
    if (level == QLatin1String("warning"))
        return MessageModel::tr("Warning");
    if (level == QLatin1String("info"))
        return MessageModel::tr("Info");
    return level;
}

QPixmap levelPicture(const QString &level)
{
    return themePixmap(QStringLiteral("widget/log_") + level);
}

MessageModel::MessageModel(MessageLog *log, QObject *parent)
    : QSortFilterProxyModel(parent)
{
    setSourceModel(log);
}

void MessageModel::setBrief(bool brief)
{
    m_isBrief = brief;
}

void MessageModel::setLevel(const QString &level)
{
    m_level = level;
    invalidateFilter();
}

QVariant MessageModel::data(const QModelIndex &index, int role) const
{
    if (index.column() == MessageLog::Level) {
        const QString level = QSortFilterProxyModel::data(index, MessageLog::LevelRole).toString();
        if (role == Qt::DisplayRole)
            return m_isBrief ? QString() : levelText(level);
        if (role == Qt::DecorationRole)
            return levelPicture(level);
    }
    return QSortFilterProxyModel::data(index, role);
}

bool MessageModel::filterAcceptsRow(int row, const QModelIndex &parent) const
{
    const QModelIndex index = sourceModel()->index(row, 0, parent);
    return m_level.isEmpty() || index.data(MessageLog::LevelRole).toString() == m_level;
}

} // namespace welmo::pendant
