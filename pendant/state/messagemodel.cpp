#include "pendant/state/messagemodel.h"

#include <QCoreApplication>
#include <QHash>

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

QString senderText(const QString &sender)
{
    static const QHash<QString, const char *> names{
        {QStringLiteral("setting"), QT_TRANSLATE_NOOP("Senders", "Device Setting")},
        {QStringLiteral("process setting"), QT_TRANSLATE_NOOP("Senders", "Process Setting")},
        {QStringLiteral("weaveFunction"), QT_TRANSLATE_NOOP("Senders", "Weave Function")},
        {QStringLiteral("welding options"), QT_TRANSLATE_NOOP("Senders", "Welding Options")},
        {QStringLiteral("monitor"), QT_TRANSLATE_NOOP("Senders", "Monitor")},
        {QStringLiteral("welmo"), QT_TRANSLATE_NOOP("Senders", "Arc Weld")},
        {QStringLiteral("weldbook"), QT_TRANSLATE_NOOP("Senders", "Weld Book")},
        {QStringLiteral("ProgramRun"), QT_TRANSLATE_NOOP("Senders", "Program")},
        {QStringLiteral("ProgramFiles"), QT_TRANSLATE_NOOP("Senders", "Program")},
        {QStringLiteral("Points"), QT_TRANSLATE_NOOP("Senders", "Points")},
        {QStringLiteral("Robot"), QT_TRANSLATE_NOOP("Senders", "Robot")},
        {QStringLiteral("Jog"), QT_TRANSLATE_NOOP("Senders", "Jog")},
        {QStringLiteral("Cell"), QT_TRANSLATE_NOOP("Senders", "Cell")},
        {QStringLiteral("Controller"), QT_TRANSLATE_NOOP("Senders", "Controller")}};
    const char *name = names.value(sender);
    return name ? QCoreApplication::translate("Senders", name) : sender;
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
    const QVariant value = QSortFilterProxyModel::data(index, role);
    const bool isSender = index.column() == MessageLog::Sender && role == Qt::DisplayRole;
    return isSender ? senderText(value.toString()) : value;
}

bool MessageModel::filterAcceptsRow(int row, const QModelIndex &parent) const
{
    const QModelIndex index = sourceModel()->index(row, 0, parent);
    return m_level.isEmpty() || index.data(MessageLog::LevelRole).toString() == m_level;
}

} // namespace welmo::pendant
