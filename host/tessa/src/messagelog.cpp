#include "tessa/messagelog.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>

#include "kelp/translationmanager.h"
#include "kelp/workspace.h"

namespace tessa {

namespace {

QString nameOf(const QObject *sender)
{
    if (!sender)
        return {};
    return sender->objectName().isEmpty() ? QString::fromLatin1(sender->metaObject()->className())
                                          : sender->objectName();
}

const QString errorLevel = QStringLiteral("error");
const QString seenKey = QStringLiteral("seen");
const QString timeKey = QStringLiteral("time");
const QString levelKey = QStringLiteral("level");
const QString textKey = QStringLiteral("text");
const QString senderKey = QStringLiteral("sender");
const QString sourceKey = QStringLiteral("source");
const QByteArray seenLine = QByteArrayLiteral("{\"seen\":true}\n");

MessageLog::Entry entryFrom(const QJsonObject &line)
{
    return {QDateTime::fromString(line.value(timeKey).toString(), Qt::ISODateWithMs),
            line.value(levelKey).toString(),
            line.value(textKey).toString(),
            line.value(senderKey).toString(),
            true,
            line.value(sourceKey).toVariant()};
}

QByteArray lineFor(const MessageLog::Entry &entry)
{
    QJsonObject line{{timeKey, entry.time.toString(Qt::ISODateWithMs)},
                     {levelKey, entry.level},
                     {textKey, entry.text},
                     {senderKey, entry.sender}};
    if (entry.source.isValid())
        line.insert(sourceKey, QJsonValue::fromVariant(entry.source));
    return QJsonDocument(line).toJson(QJsonDocument::Compact) + '\n';
}

QVariant sourceOf(const QString &text)
{
    const kelp::Workspace *host = kelp::Workspace::current();
    return host ? translator()->sources().sourceOf(text) : QVariant();
}

} // namespace

void MessageLog::keepIn(const QString &file)
{
    m_file.setFileName(file);
    m_file.open(QIODevice::ReadWrite); // messages are shown even if the file cannot be opened
    beginResetModel();
    while (m_file.isOpen() && !m_file.atEnd()) {
        const QJsonObject line = QJsonDocument::fromJson(m_file.readLine()).object();
        if (line.contains(seenKey))
            m_unseen = 0;
        else if (line.contains(textKey))
            add(entryFrom(line));
    }
    endResetModel();
    rewrite();
}

void MessageLog::append(const QObject *sender, const QString &level, const QString &text)
{
    const Entry entry{
        QDateTime::currentDateTime(), level, text, nameOf(sender), false, sourceOf(text)};
    beginInsertRows({}, 0, 0);
    m_entries.prepend(entry);
    endInsertRows();
    if (m_entries.size() > capacity) {
        beginRemoveRows({}, capacity, capacity);
        m_entries.removeLast();
        endRemoveRows();
    }
    if (level == errorLevel)
        ++m_unseen;
    write(lineFor(entry));
    emit appended(level, text);
    if (level == errorLevel)
        emit unseenChanged();
}

void MessageLog::translateOld()
{
    beginResetModel();
    for (Entry &entry : m_entries) {
        if (entry.old && entry.source.isValid())
            entry.text = kelp::TextSources::shown(entry.source);
    }
    endResetModel();
}

void MessageLog::add(const Entry &entry)
{
    m_entries.prepend(entry);
    m_unseen += entry.level == errorLevel ? 1 : 0;
    if (m_entries.size() > capacity)
        m_entries.removeLast();
}

void MessageLog::write(const QByteArray &line)
{
    if (!m_file.isOpen())
        return;
    m_file.write(line);
    m_file.flush();
    if (++m_lines > 4 * capacity)
        rewrite();
}

void MessageLog::rewrite()
{
    if (!m_file.isOpen())
        return;
    m_file.resize(0);
    m_file.seek(0);
    m_lines = m_entries.size();
    int unseen = 0;
    for (const Entry &entry : qAsConst(m_entries))
        unseen += entry.level == errorLevel ? 1 : 0;
    for (int i = m_entries.size() - 1; i >= 0; --i) {
        if (unseen == m_unseen)
            m_file.write(seenLine); // later messages are unseen
        unseen -= m_entries.at(i).level == errorLevel ? 1 : 0;
        m_file.write(lineFor(m_entries.at(i)));
    }
    if (m_unseen == 0)
        m_file.write(seenLine);
    m_file.flush();
}

const MessageLog::Entry *MessageLog::unseenError() const
{
    if (m_unseen == 0)
        return nullptr;
    const auto found = std::find_if(m_entries.begin(), m_entries.end(),
                                    [](const Entry &entry) { return entry.level == errorLevel; });
    return found == m_entries.end() ? nullptr : &*found;
}

void MessageLog::markSeen()
{
    if (std::exchange(m_unseen, 0) == 0)
        return;
    write(seenLine);
    emit unseenChanged();
}

void MessageLog::clear()
{
    beginResetModel();
    m_entries.clear();
    m_unseen = 0;
    endResetModel();
    rewrite();
    emit unseenChanged();
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
        return entry.time.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    case Level:
        return entry.level;
    case Sender:
        return entry.sender;
    default:
        return entry.text;
    }
}

QVariant MessageLog::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return {};
    const QString titles[ColumnCount] = {tr("Time"), tr("Level"), tr("Message"), tr("From")};
    return section < ColumnCount ? titles[section] : QVariant();
}

} // namespace tessa
